// What the desktop that the tests run on cannot do.
#pragma once

namespace tavisk::test {

/// Skips the tests that cannot hold here, each with its reason.
void skipWhatCannotHold();

}  // namespace tavisk::test
