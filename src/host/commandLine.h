// What the words of a command line ask for.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace tavisk {

enum class Action { help, version, edit, preview, render, save, check };

struct CommandLine {
    Action action = Action::help;
    std::optional<Action> topic;  ///< the command that help is asked about; the whole tool if none
    std::string file;             ///< "-" is standard input
    std::optional<std::string> folder;
    std::optional<std::string> refreshKey;
    std::optional<std::string> output;  ///< "-" is standard output
    bool evaluate = false;
    bool json = false;
};

/// One line for the user: what is wrong and where help is.
struct UsageError {
    std::string hint;
};

/// `arguments` are the words behind the program's name.
std::variant<CommandLine, UsageError> parseCommandLine(std::span<const std::string> arguments);

}  // namespace tavisk
