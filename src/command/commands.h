// The commands of `tavisk`.
#pragma once

#include <span>
#include <string>

#include "command/commandLine.h"
#include "command/output.h"

namespace tavisk {

/// Runs one command line, without the program's name. Nothing is thrown.
ExitCode runCommand(std::span<const std::string> arguments, const Streams& streams) noexcept;

}  // namespace tavisk
