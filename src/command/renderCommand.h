// `tavisk render`: the page of one document, or of many, whatever becomes of the others.
#pragma once

#include "command/commandLine.h"
#include "command/output.h"

namespace tavisk {

ExitCode renderDocuments(const CommandLine& line, const Streams& streams);

}  // namespace tavisk
