// What the command asks of the system that it was started from.
#pragma once

namespace tavisk {

bool errorOutputIsTerminal();

/// A closed pipe is then an error of the writing call and does not end the process.
void reportClosedPipes();

}  // namespace tavisk
