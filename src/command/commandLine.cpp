#include "command/commandLine.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "base/text.h"
#include "command/fileNames.h"

namespace tavisk {
namespace {

bool asksForHelp(std::string_view word) { return word == "--help" || word == "-h"; }

/// More threads than that help nobody.
constexpr std::size_t mostJobs = 256;

std::string inQuotes(std::string_view word) { return '"' + std::string(word) + '"'; }

CommandLine helpOn(std::optional<Action> topic) {
    CommandLine line;
    line.topic = topic;
    return line;
}

/// The words behind the name of one command. Throws UsageError.
class CommandParser {
public:
    CommandParser(const CommandOptions& command, std::span<const std::string> words)
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
        if (line_.files.empty()) fail("no FILE given");
        if (line_.action == Action::render) checkRender();
        if (line_.json && line_.sarif) failTogether("--json", "--sarif");
        return std::move(line_);
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        const std::string name(command_.name);
        throw UsageError{"tavisk " + name + ": " + what + " (try \"tavisk " + name + " --help\")"};
    }

    [[noreturn]] void failTogether(std::string_view one, std::string_view other) const {
        fail(inQuotes(one) + " and " + inQuotes(other) + " exclude each other");
    }

    void operand(const std::string& word) {
        if (!line_.files.empty() && !command_.takesManyFiles) {
            fail("one FILE only, but " + inQuotes(word) + " is a second one");
        }
        if (word.empty()) fail("the name of FILE is empty");
        if (word == "-" && std::ranges::find(line_.files, word) != line_.files.end()) {
            fail("standard input is given twice");
        }
        line_.files.push_back(word);
    }

    void checkRender() const {
        if (line_.output && !line_.standalone) fail(R"("-o" goes with "--standalone" only)");
        if (line_.standalone && line_.each) failTogether("--each", "--standalone");
        if (line_.output && line_.files.size() > 1) {
            fail("\"-o\" is for one FILE; for several give --folder DIR");
        }
        if (!line_.folder && !line_.output) {
            fail(line_.standalone ? "--folder DIR or -o OUT is missing"
                                  : "--folder DIR is missing");
        }
        const bool named = line_.standalone ? !line_.output : line_.each || line_.files.size() > 1;
        if (named) checkNames();
    }

    /// Results of several documents are called after them.
    void checkNames() const {
        std::map<std::string, std::string_view> files;
        for (const std::string& file : line_.files) {
            const std::string name = documentName(file);
            if (name.empty()) fail("no name for the page of " + inQuotes(file));
            // Some file systems and web servers take both letter cases for the same.
            const auto [found, isNew] = files.emplace(lowerAscii(name), file);
            if (isNew) continue;
            fail("the pages of " + inQuotes(found->second) + " and " + inQuotes(file) +
                 " would have one name, " + inQuotes(name));
        }
    }

    void option(std::string_view word) {
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
        const std::string_view name = word.substr(0, equals);
        const Option* const found = command_.find(name);
        if (found == nullptr) fail("unknown option " + inQuotes(name));

        const bool attached = equals != std::string_view::npos;
        if (const auto* target = std::get_if<Option::Switch>(&found->target)) {
            if (attached) fail(inQuotes(name) + " takes no value");
            line_.** target = true;
            return;
        }
        const std::string value =
            attached ? std::string(word.substr(equals + 1)) : followingValue(name);
        if (value.empty()) fail(inQuotes(name) + " needs a value");
        if (const auto* target = std::get_if<Option::Value>(&found->target)) {
            set(line_.**target, name, value);
        } else {
            set(line_.*std::get<Option::Count>(found->target), name, count(name, value));
        }
    }

    template <class Target>
    void set(std::optional<Target>& target, std::string_view name, const Target& value) {
        if (target) fail(inQuotes(name) + " is given twice");
        target = value;
    }

    std::size_t count(std::string_view name, std::string_view digits) const {
        const bool whole =
            digits.size() <= 3 && digits.find_first_not_of("0123456789") == std::string_view::npos;
        const auto number = whole ? static_cast<std::size_t>(leadingNumber(digits)) : 0;
        if (number >= 1 && number <= mostJobs) return number;
        fail(inQuotes(name) + " takes a whole number from 1 to " + std::to_string(mostJobs) +
             ", not " + inQuotes(digits));
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

    const CommandOptions& command_;
    std::span<const std::string> words_;
    std::size_t at_ = 0;
    CommandLine line_;
};

CommandLine parseHelp(std::span<const std::string> words) {
    if (words.empty()) return helpOn(std::nullopt);
    const CommandOptions* const topic = commandNamed(words.front());
    if (topic == nullptr || words.size() > 1) {
        throw UsageError{"tavisk: no help on " + inQuotes(words.back()) +
                         " (try \"tavisk --help\")"};
    }
    return helpOn(topic->action);
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
    const CommandOptions* const command = commandNamed(first);
    if (command == nullptr) {
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
