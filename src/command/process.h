// What the command asks of the system in its own process.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavisk {

/// What stands behind the command's name, as UTF-8. The parameters are those of `main`.
std::vector<std::string> commandArguments(int count, char** words);

bool errorOutputIsTerminal();

/// A line on what may be missing where no window can be shown; empty where nothing is known.
std::string_view missingForWindows();

/// Bytes go through the standard streams as they are, and a terminal shows them as UTF-8.
void passBytesThrough();

/// A closed pipe or a file as long as a limit allows is then an error of the writing call and does
/// not end the process, which would leave half a file behind.
void reportFailedWrites();

/// From here on memory that is no longer needed is kept for the next document and not given back to
/// the system, which would have to clear it first.
void keepFreedMemory();

}  // namespace tavisk
