// What the words of a command line ask for, and what the process ends with.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tavisk {

/// What the process ends with; of several documents the highest one.
enum class ExitCode : int { done = 0, found = 1, usage = 2, rejected = 3, runTimeError = 4 };

enum class Action { help, version, edit, preview, render, save, check };

struct CommandLine {
    Action action = Action::help;
    std::optional<Action> topic;  ///< the command that help is asked about; the whole tool if none
    std::vector<std::string> files;  ///< one or more, for most commands one; "-" is standard input
    std::optional<std::string> folder;
    std::optional<std::string> refreshKey;
    std::optional<std::string> output;  ///< "-" is standard output
    std::optional<std::size_t> jobs;
    bool evaluate = false;
    bool each = false;
    bool standalone = false;
    bool json = false;
    bool sarif = false;

    const std::string& file() const { return files.front(); }
    bool isAlone() const { return files.size() == 1; }
    /// Whether the result is one as well, without a folder and a line of its own.
    bool isOne() const { return isAlone() && !each; }
    /// How many documents are worked on at a time.
    std::size_t jobsOrAll() const;
};

/// One line for the user: what is wrong and where help is.
struct UsageError {
    std::string hint;
};

/// `arguments` are the words behind the program's name.
std::variant<CommandLine, UsageError> parseCommandLine(std::span<const std::string> arguments);

}  // namespace tavisk
