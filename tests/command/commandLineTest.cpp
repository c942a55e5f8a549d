#include "command/commandLine.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tavisk {
namespace {

using Words = std::vector<std::string>;

CommandLine accepted(const Words& words) {
    const auto parsed = parseCommandLine(words);
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        ADD_FAILURE() << error->hint;
        return {};
    }
    return std::get<CommandLine>(parsed);
}

std::string refused(const Words& words) {
    const auto parsed = parseCommandLine(words);
    const auto* error = std::get_if<UsageError>(&parsed);
    return error == nullptr ? "accepted" : error->hint;
}

TEST(CommandLine, RenderTakesFileFolderAndEvaluate) {
    const CommandLine line = accepted({"render", "a.xml", "--folder", "out", "--evaluate"});
    EXPECT_EQ(line.action, Action::render);
    EXPECT_EQ(line.file(), "a.xml");
    EXPECT_EQ(line.folder, "out");
    EXPECT_TRUE(line.evaluate);
}

TEST(CommandLine, OptionsMayStandBeforeTheFile) {
    const CommandLine line = accepted({"render", "--evaluate", "--folder", "out", "a.xml"});
    EXPECT_EQ(line.file(), "a.xml");
    EXPECT_EQ(line.folder, "out");
    EXPECT_TRUE(line.evaluate);
}

TEST(CommandLine, ValuesMayBeAttached) {
    const CommandLine line = accepted({"save", "a.xml", "--refresh=a=>b", "--folder=x y"});
    EXPECT_EQ(line.refreshKey, "a=>b");
    EXPECT_EQ(line.folder, "x y");
}

TEST(CommandLine, SaveTakesItsOptions) {
    const CommandLine line = accepted({"save", "-o", "b.xml", "a.xml"});
    EXPECT_EQ(line.action, Action::save);
    EXPECT_EQ(line.output, "b.xml");
    EXPECT_FALSE(line.folder);
    EXPECT_FALSE(line.refreshKey);
}

TEST(CommandLine, EditTakesAnOutput) {
    const CommandLine line = accepted({"edit", "a.xml", "-o", "b.xml"});
    EXPECT_EQ(line.action, Action::edit);
    EXPECT_EQ(line.file(), "a.xml");
    EXPECT_EQ(line.output, "b.xml");
}

TEST(CommandLine, PreviewTakesEvaluate) {
    const CommandLine line = accepted({"preview", "--evaluate", "a.xml"});
    EXPECT_EQ(line.action, Action::preview);
    EXPECT_EQ(line.file(), "a.xml");
    EXPECT_TRUE(line.evaluate);
    EXPECT_FALSE(accepted({"preview", "a.xml"}).evaluate);
}

TEST(CommandLine, CheckTakesJson) {
    EXPECT_TRUE(accepted({"check", "a.xml", "--json"}).json);
    EXPECT_FALSE(accepted({"check", "a.xml"}).json);
}

TEST(CommandLine, HyphenIsAFile) {
    EXPECT_EQ(accepted({"check", "-"}).file(), "-");
    EXPECT_EQ(accepted({"save", "a.xml", "-o", "-"}).output, "-");
}

TEST(CommandLine, EverythingBehindTwoHyphensIsFile) {
    EXPECT_EQ(accepted({"check", "--json", "--", "--json"}).file(), "--json");
    EXPECT_EQ(accepted({"check", "--", "--"}).file(), "--");
}

TEST(CommandLine, HelpOfTheToolAndOfACommand) {
    for (const Words& words : {Words{"--help"}, Words{"-h"}, Words{"help"}}) {
        EXPECT_EQ(accepted(words).action, Action::help);
        EXPECT_FALSE(accepted(words).topic);
    }
    for (const Words& words : {Words{"help", "save"}, Words{"--help", "save"},
                               Words{"save", "--help"}, Words{"save", "a.xml", "-h"}}) {
        EXPECT_EQ(accepted(words).action, Action::help);
        EXPECT_EQ(accepted(words).topic, Action::save);
    }
}

TEST(CommandLine, HelpIsGivenForAnIncompleteCommandLine) {
    EXPECT_EQ(accepted({"render", "--help"}).topic, Action::render);
}

TEST(CommandLine, Version) { EXPECT_EQ(accepted({"--version"}).action, Action::version); }

TEST(CommandLine, RefusesNothingAtAll) {
    EXPECT_EQ(refused({}), "tavisk: no command given (try \"tavisk --help\")");
}

TEST(CommandLine, RefusesAnUnknownCommand) {
    EXPECT_EQ(refused({"rendre", "a.xml"}),
              "tavisk: unknown command \"rendre\" (try \"tavisk --help\")");
}

TEST(CommandLine, RefusesAnUnknownOption) {
    EXPECT_EQ(refused({"render", "a.xml", "--folder", "out", "--evalute"}),
              "tavisk render: unknown option \"--evalute\" (try \"tavisk render --help\")");
    EXPECT_EQ(refused({"check", "a.xml", "-j"}),
              "tavisk check: unknown option \"-j\" (try \"tavisk check --help\")");
}

TEST(CommandLine, RefusesAnOptionOfAnotherCommand) {
    EXPECT_EQ(refused({"save", "a.xml", "--evaluate"}),
              "tavisk save: unknown option \"--evaluate\" (try \"tavisk save --help\")");
}

TEST(CommandLine, RefusesRenderWithoutFolder) {
    EXPECT_EQ(refused({"render", "a.xml"}),
              "tavisk render: --folder DIR is missing (try \"tavisk render --help\")");
}

TEST(CommandLine, RefusesAMissingOrSecondFile) {
    EXPECT_EQ(refused({"check"}), "tavisk check: no FILE given (try \"tavisk check --help\")");
    EXPECT_EQ(refused({"save", "a", "b"}),
              "tavisk save: one FILE only, but \"b\" is a second one (try \"tavisk save "
              "--help\")");
    EXPECT_EQ(refused({"check", ""}),
              "tavisk check: the name of FILE is empty (try \"tavisk check --help\")");
}

TEST(CommandLine, RefusesAMissingValue) {
    EXPECT_EQ(refused({"save", "a.xml", "-o"}),
              "tavisk save: \"-o\" needs a value (try \"tavisk save --help\")");
    EXPECT_EQ(refused({"save", "a.xml", "--folder="}),
              "tavisk save: \"--folder\" needs a value (try \"tavisk save --help\")");
}

TEST(CommandLine, RefusesAnOptionInPlaceOfAValue) {
    EXPECT_EQ(refused({"render", "a.xml", "--folder", "--evaluate"}),
              "tavisk render: \"--folder\" needs a value, but \"--evaluate\" follows; if it is the "
              "value, write --folder=--evaluate (try \"tavisk render --help\")");
    EXPECT_EQ(accepted({"render", "a.xml", "--folder=--evaluate"}).folder, "--evaluate");
}

TEST(CommandLine, RefusesAValueOfASwitch) {
    EXPECT_EQ(refused({"check", "a.xml", "--json=yes"}),
              "tavisk check: \"--json\" takes no value (try \"tavisk check --help\")");
}

TEST(CommandLine, RefusesAValueGivenTwice) {
    EXPECT_EQ(refused({"save", "a.xml", "-o", "b", "-o", "c"}),
              "tavisk save: \"-o\" is given twice (try \"tavisk save --help\")");
}

TEST(CommandLine, RefusesHelpOnWhatIsNoCommand) {
    EXPECT_EQ(refused({"help", "open"}), "tavisk: no help on \"open\" (try \"tavisk --help\")");
    EXPECT_EQ(refused({"help", "save", "x"}), "tavisk: no help on \"x\" (try \"tavisk --help\")");
}

TEST(CommandLine, RefusesWordsBehindVersion) {
    EXPECT_EQ(refused({"--version", "x"}), "tavisk: nothing may follow \"--version\"");
}

TEST(CommandLine, RenderAndCheckTakeManyFiles) {
    EXPECT_EQ(accepted({"check", "a", "b", "a"}).files, (Words{"a", "b", "a"}));
    EXPECT_EQ(accepted({"render", "a", "--folder", "out", "b"}).files, (Words{"a", "b"}));
}

TEST(CommandLine, TheOthersTakeOneFile) {
    for (const char* command : {"edit", "preview", "save"}) {
        EXPECT_EQ(refused({command, "a", "b"}),
                  "tavisk " + std::string(command) +
                      ": one FILE only, but \"b\" is a second one (try \"tavisk " + command +
                      " --help\")");
    }
}

TEST(CommandLine, StandardInputIsThereOnce) {
    EXPECT_EQ(refused({"check", "-", "a", "-"}),
              "tavisk check: standard input is given twice (try \"tavisk check --help\")");
    EXPECT_EQ(accepted({"check", "-", "a"}).files, (Words{"-", "a"}));
}

TEST(CommandLine, JobsIsAWholeNumber) {
    EXPECT_FALSE(accepted({"check", "a"}).jobs);
    EXPECT_EQ(accepted({"check", "a", "--jobs", "1"}).jobs, 1u);
    EXPECT_EQ(accepted({"render", "a", "--folder=o", "--jobs=256"}).jobs, 256u);
    for (const char* number : {"0", "257", "1000", "1.5", "+2", "x", "1 "}) {
        EXPECT_EQ(refused({"check", "a", "--jobs", number}),
                  "tavisk check: \"--jobs\" takes a whole number from 1 to 256, not \"" +
                      std::string(number) + "\" (try \"tavisk check --help\")");
    }
    EXPECT_EQ(refused({"check", "a", "--jobs", "1", "--jobs", "2"}),
              "tavisk check: \"--jobs\" is given twice (try \"tavisk check --help\")");
    EXPECT_EQ(refused({"check", "a", "--jobs"}),
              "tavisk check: \"--jobs\" needs a value (try \"tavisk check --help\")");
    EXPECT_EQ(refused({"save", "a", "--jobs", "1"}),
              "tavisk save: unknown option \"--jobs\" (try \"tavisk save --help\")");
}

TEST(CommandLine, CheckTakesSarif) {
    EXPECT_TRUE(accepted({"check", "a", "--sarif"}).sarif);
    EXPECT_FALSE(accepted({"check", "a", "--json"}).sarif);
}

TEST(CommandLine, JsonAndSarifExcludeEachOther) {
    EXPECT_EQ(refused({"check", "a", "--json", "--sarif"}),
              "tavisk check: \"--json\" and \"--sarif\" exclude each other (try \"tavisk check "
              "--help\")");
}

TEST(CommandLine, AStandalonePageGoesToAFolderOrAFile) {
    const CommandLine toFile = accepted({"render", "a.xml", "--standalone", "-o", "a.html"});
    EXPECT_TRUE(toFile.standalone);
    EXPECT_EQ(toFile.output, "a.html");
    EXPECT_FALSE(toFile.folder);
    EXPECT_EQ(accepted({"render", "a.xml", "--standalone", "--folder", "out"}).folder, "out");
    EXPECT_EQ(accepted({"render", "a", "--standalone", "-o", "b", "--folder", "c"}).output, "b");
    EXPECT_EQ(refused({"render", "a.xml", "--standalone"}),
              "tavisk render: --folder DIR or -o OUT is missing (try \"tavisk render --help\")");
}

TEST(CommandLine, OnlyAStandalonePageHasAFile) {
    EXPECT_EQ(
        refused({"render", "a.xml", "--folder", "out", "-o", "b"}),
        "tavisk render: \"-o\" goes with \"--standalone\" only (try \"tavisk render --help\")");
    EXPECT_EQ(refused({"render", "a", "b", "--standalone", "-o", "c"}),
              "tavisk render: \"-o\" is for one FILE; for several give --folder DIR (try \"tavisk "
              "render --help\")");
}

TEST(CommandLine, EachIsForFolders) {
    EXPECT_TRUE(accepted({"render", "a", "--folder", "out", "--each"}).each);
    EXPECT_EQ(refused({"render", "a", "--folder", "out", "--each", "--standalone"}),
              "tavisk render: \"--each\" and \"--standalone\" exclude each other (try \"tavisk "
              "render --help\")");
}

TEST(CommandLine, RefusesPagesOfOneName) {
    EXPECT_EQ(refused({"render", "x/a.xml", "b.xml", "y/A.html", "--folder", "out"}),
              "tavisk render: the pages of \"x/a.xml\" and \"y/A.html\" would have one name, \"A\" "
              "(try \"tavisk render --help\")");
    EXPECT_EQ(refused({"render", "a", "./a", "--folder", "out", "--standalone"}),
              "tavisk render: the pages of \"a\" and \"./a\" would have one name, \"a\" (try "
              "\"tavisk render --help\")");
    EXPECT_EQ(accepted({"render", "a.b.xml", "a.c.xml", "--folder", "out"}).files.size(), 2u);
}

TEST(CommandLine, RefusesPagesWithoutAName) {
    for (const char* file : {"..", "x/.", "x/"}) {
        EXPECT_EQ(refused({"render", file, "--each", "--folder", "out"}),
                  "tavisk render: no name for the page of \"" + std::string(file) +
                      "\" (try \"tavisk render --help\")");
    }
    EXPECT_EQ(accepted({"render", "..", "--folder", "out"}).file(), "..");
}

}  // namespace
}  // namespace tavisk
