#include "host/commandLine.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavisk {
namespace {

struct Command {
    std::string_view name;
    Action action;
};

constexpr std::array commands{
    Command{"edit", Action::edit},     Command{"preview", Action::preview},
    Command{"render", Action::render}, Command{"save", Action::save},
    Command{"check", Action::check},
};

std::optional<Action> commandNamed(std::string_view name) {
    const auto found = std::ranges::find(commands, name, &Command::name);
    return found == commands.end() ? std::nullopt : std::optional(found->action);
}

bool asksForHelp(std::string_view word) { return word == "--help" || word == "-h"; }

using Value = std::optional<std::string> CommandLine::*;
using Switch = bool CommandLine::*;

struct Option {
    std::string_view name;
    Action action;
    std::variant<Value, Switch> target;
};

constexpr std::array options{
    Option{"-o", Action::edit, &CommandLine::output},
    Option{"--evaluate", Action::preview, &CommandLine::evaluate},
    Option{"--folder", Action::render, &CommandLine::folder},
    Option{"--evaluate", Action::render, &CommandLine::evaluate},
    Option{"--folder", Action::save, &CommandLine::folder},
    Option{"--refresh", Action::save, &CommandLine::refreshKey},
    Option{"-o", Action::save, &CommandLine::output},
    Option{"--json", Action::check, &CommandLine::json},
};

std::string inQuotes(std::string_view word) { return '"' + std::string(word) + '"'; }

CommandLine helpOn(std::optional<Action> topic) {
    CommandLine line;
    line.topic = topic;
    return line;
}

/// The words behind the name of one command. Throws UsageError.
class CommandParser {
public:
    CommandParser(const Command& command, std::span<const std::string> words)
        : command_(command), words_(words) {
        line_.action = command.action;
    }

    CommandLine parse() {
        bool onlyOperands = false;
        while (at_ < words_.size()) {
            const std::string& word = words_[at_++];
            if (onlyOperands || word == "-" || !word.starts_with('-')) {
                operand(word);
            } else if (word == "--") {
                onlyOperands = true;
            } else if (asksForHelp(word)) {
                return helpOn(command_.action);
            } else {
                option(word);
            }
        }
        if (!hasFile_) fail("no FILE given");
        if (line_.action == Action::render && !line_.folder) fail("--folder DIR is missing");
        return std::move(line_);
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        const std::string name(command_.name);
        throw UsageError{"tavisk " + name + ": " + what + " (try \"tavisk " + name + " --help\")"};
    }

    void operand(const std::string& word) {
        if (hasFile_) fail("one FILE only, but " + inQuotes(word) + " is a second one");
        if (word.empty()) fail("the name of FILE is empty");
        hasFile_ = true;
        line_.file = word;
    }

    void option(std::string_view word) {
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
        const std::string_view name = word.substr(0, equals);
        const auto found = std::ranges::find_if(options, [&](const Option& option) {
            return option.name == name && option.action == command_.action;
        });
        if (found == options.end()) fail("unknown option " + inQuotes(name));

        const bool attached = equals != std::string_view::npos;
        if (const Switch* target = std::get_if<Switch>(&found->target)) {
            if (attached) fail(inQuotes(name) + " takes no value");
            line_.** target = true;
            return;
        }
        std::optional<std::string>& target = line_.*std::get<Value>(found->target);
        if (target) fail(inQuotes(name) + " is given twice");
        target = attached ? std::string(word.substr(equals + 1)) : followingValue(name);
        if (target->empty()) fail(inQuotes(name) + " needs a value");
    }

    std::string followingValue(std::string_view name) {
        if (at_ == words_.size()) fail(inQuotes(name) + " needs a value");
        const std::string& value = words_[at_++];
        // More likely a forgotten value than a folder or key of that name.
        if (value.starts_with('-') && value != "-") {
            const bool isLong = name.starts_with("--");
            fail(inQuotes(name) + " needs a value, but " + inQuotes(value) + " follows" +
                 (isLong ? "; if it is the value, write " + std::string(name) + "=" + value : ""));
        }
        return value;
    }

    const Command& command_;
    std::span<const std::string> words_;
    std::size_t at_ = 0;
    CommandLine line_;
    bool hasFile_ = false;
};

CommandLine parseHelp(std::span<const std::string> words) {
    if (words.empty()) return helpOn(std::nullopt);
    const std::optional<Action> topic = commandNamed(words.front());
    if (!topic || words.size() > 1) {
        throw UsageError{"tavisk: no help on " + inQuotes(words.back()) +
                         " (try \"tavisk --help\")"};
    }
    return helpOn(topic);
}

CommandLine parse(std::span<const std::string> words) {
    if (words.empty()) throw UsageError{"tavisk: no command given (try \"tavisk --help\")"};
    const std::string& first = words.front();
    const std::span<const std::string> rest = words.subspan(1);
    if (first == "--version") {
        if (!rest.empty()) throw UsageError{"tavisk: nothing may follow \"--version\""};
        CommandLine line;
        line.action = Action::version;
        return line;
    }
    if (asksForHelp(first) || first == "help") return parseHelp(rest);
    const auto command = std::ranges::find(commands, first, &Command::name);
    if (command == commands.end()) {
        throw UsageError{"tavisk: unknown command " + inQuotes(first) + " (try \"tavisk --help\")"};
    }
    return CommandParser(*command, rest).parse();
}

}  // namespace

std::variant<CommandLine, UsageError> parseCommandLine(std::span<const std::string> arguments) {
    try {
        return parse(arguments);
    } catch (UsageError& error) {
        return std::move(error);
    }
}

}  // namespace tavisk
