// `tavisk check` for several documents, and for reports that are the same for one and for several.
#pragma once

#include "command/commandLine.h"
#include "command/output.h"

namespace tavisk {

ExitCode checkMany(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
