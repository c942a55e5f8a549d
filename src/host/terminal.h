// What the command asks of the system that it was started from.
#pragma once

namespace tavisk {

bool errorOutputIsTerminal();

/// A closed pipe or a file as long as a limit allows is then an error of the writing call and does
/// not end the process, which would leave half a file behind.
void reportFailedWrites();

}  // namespace tavisk
