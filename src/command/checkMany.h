// `tavisk check` for several documents, and for reports that are the same for one and for several.
#pragma once

#include "host/commandLine.h"
#include "host/commands.h"

namespace tavisk {

ExitCode checkMany(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
