// `tavisk render` for several documents: a page for each, whatever becomes of the others.
#pragma once

#include "command/commandLine.h"
#include "command/output.h"

namespace tavisk {

ExitCode renderMany(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
