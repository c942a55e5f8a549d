// Work on the documents of a command line: one is many, once.
#pragma once

#include <string>

#include "command/commandLine.h"
#include "command/inOrder.h"
#include "command/input.h"

namespace tavisk {

/// A file that is cut short while it is mapped must not take other documents with it.
inline Mapping mappingFor(const CommandLine& line) {
    return line.isAlone() ? Mapping::allowed : Mapping::refused;
}

/// Runs `work(file)` for every FILE, on as many threads as the command line says, and hands the
/// results to `take` on this thread, in the order of the command line. An exception of either ends
/// it.
template <class Work, class Take>
void forEachFile(const CommandLine& line, Work work, Take take) {
    inOrder(
        line.files.size(), line.jobsOrAll(), [&](std::size_t i) { return work(line.files[i]); },
        take);
}

}  // namespace tavisk
