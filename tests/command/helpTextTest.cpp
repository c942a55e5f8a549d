#include "command/helpText.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace tavisk {
namespace {

/// What stands before the first blank line.
std::string usageOf(const std::string& help) { return help.substr(0, help.find("\n\n")); }

TEST(HelpText, CallsShowEveryOption) {
    for (const CommandOptions& command : commandTable()) {
        const std::string usage = usageOf(helpText(command.action));
        for (const Option& option : command.options) {
            std::string call(option.name);
            if (!option.value.empty()) call.append(" ").append(option.value);
            EXPECT_NE(usage.find(call), std::string::npos) << command.name << ' ' << call;
        }
    }
}

TEST(HelpText, GivesEveryOptionALineInATidyColumn) {
    for (const CommandOptions& command : commandTable()) {
        const std::string help = helpText(command.action);
        for (const Option& option : command.options) {
            const std::string line = "\n  " + std::string(option.name) + ' ';
            EXPECT_NE(help.find(line), std::string::npos) << command.name << line;
        }
    }
    EXPECT_NE(helpText(Action::save).find("\n  -o OUT         write the result to OUT, which is"),
              std::string::npos);
}

TEST(HelpText, FitsIntoAWideTerminal) {
    constexpr std::size_t widest = 101;  // the example of a finding
    for (const auto topic : {Action::help, Action::edit, Action::preview, Action::render,
                             Action::save, Action::check}) {
        std::istringstream help(helpText(topic));
        for (std::string line; std::getline(help, line);)
            EXPECT_LE(line.size(), widest) << line;
    }
}

}  // namespace
}  // namespace tavisk
