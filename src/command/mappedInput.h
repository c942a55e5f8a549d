// Reading a file by mapping it: no copy, and no fresh memory for what is in the page cache already.
#pragma once

#include <optional>

#include "base/fileSystem.h"
#include "xml/dom.h"

namespace tavisk {

/// The file's bytes where they are in memory, also after it is closed; or nothing where the file
/// has to be read: it is no ordinary file, is small, or cannot be mapped.
std::optional<dom::Source> mapInput(const fileSystem::OpenFile& file);

/// A mapped file that another program cuts short ends the process at the next look at it. From here
/// on that is a line on standard error and exit code 4. For the command's own process only.
void reportShrunkInput();

}  // namespace tavisk
