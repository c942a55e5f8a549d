// `tavisk check`: what an author should mend, in one document or in many.
#pragma once

#include "command/commandLine.h"
#include "command/output.h"

namespace tavisk {

ExitCode checkDocuments(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
