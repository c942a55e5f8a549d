// The commands and their options: what can be asked for, how it is written, what help tells of it.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavisk {

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

struct Option {
    using Value = std::optional<std::string> CommandLine::*;
    using Count = std::optional<std::size_t> CommandLine::*;
    using Switch = bool CommandLine::*;

    std::string_view name;
    std::string_view value;  ///< what help calls it; empty where there is none
    std::variant<Value, Count, Switch> target;
    std::string_view help;  ///< lines of at most 83 characters
};

struct CommandOptions {
    std::string_view name;
    Action action;
    bool takesManyFiles;
    std::span<const Option> options;

    /// Null where the command has none of that name.
    const Option* find(std::string_view option) const;
};

std::span<const CommandOptions> commandTable();

/// Null where there is none of that name.
const CommandOptions* commandNamed(std::string_view name);

}  // namespace tavisk
