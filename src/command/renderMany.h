// `tavisk render` for several documents: a page for each, whatever becomes of the others.
#pragma once

#include "host/commandLine.h"
#include "host/commands.h"

namespace tavisk {

ExitCode renderMany(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
