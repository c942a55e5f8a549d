// What the words of a command line ask for, and what the process ends with.
#pragma once

#include <span>
#include <string>
#include <variant>

#include "command/options.h"

namespace tavisk {

/// What the process ends with; of several documents the highest one.
enum class ExitCode : int { done = 0, found = 1, usage = 2, rejected = 3, runTimeError = 4 };

/// One line for the user: what is wrong and where help is.
struct UsageError {
    std::string hint;
};

/// `arguments` are the words behind the program's name.
std::variant<CommandLine, UsageError> parseCommandLine(std::span<const std::string> arguments);

}  // namespace tavisk
