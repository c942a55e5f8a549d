// The commands of `tavisk`.
#pragma once

#include <span>
#include <string>

#include "command/streams.h"

namespace tavisk {

/// What the process ends with.
enum class ExitCode : int { done = 0, found = 1, usage = 2, rejected = 3, runTimeError = 4 };

/// Runs one command line, without the program's name. Nothing is thrown.
ExitCode runCommand(std::span<const std::string> arguments, const Streams& streams) noexcept;

}  // namespace tavisk
