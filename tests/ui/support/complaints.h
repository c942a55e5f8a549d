// What the toolkit complains about on the standard error.
#pragma once

namespace tavisk::test {

/// Each complaint is told once. GTK tells some of its own for every drawing, such as a caret
/// between a carriage return and a line feed, and what fails is then hard to find among them.
void tellComplaintsOnce();

}  // namespace tavisk::test
