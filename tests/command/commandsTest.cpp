#include "command/commands.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "base/assets.h"
#include "command/commandRun.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;
using test::CommandRun;
using test::runIt;
using test::runWith;

const std::string plain =
    "<cabinetinfo><cabinet><A value='x `f`'/><B_1/></cabinet>"
    "<formula name='f' standard='1' description='d' value='5'/></cabinetinfo>";
const std::string plainSaved =
    "<cabinetinfo><cabinet><A value=\"x `f`\"/><B_1/></cabinet>"
    "<formula name=\"f\" description=\"d\" standard=\"1\"/>"
    "<formula name=\"code\" standard=\"1\"/><formula name=\"type\" standard=\"1\"/>"
    "</cabinetinfo>";

constexpr const char* frameHead =
    "<html xmlns:v=\"urn:schemas-microsoft-com:vml\"><head><link rel=\"stylesheet\" "
    "href=\"style.css\" type=\"text/css\"></head><body><table width=100%><tr><td>\r\n";

TEST(Command, HelpAndVersionGoToStandardOutput) {
    EXPECT_EQ(runIt({"--version"}), (CommandRun{0, "tavisk 0.1.0\n", ""}));
    const CommandRun help = runIt({"--help"});
    EXPECT_EQ(help.exit, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_TRUE(help.out.starts_with("tavisk - ")) << help.out;
    for (const char* command : {"edit", "preview", "render", "save", "check"}) {
        const std::string usage = "Usage: tavisk " + std::string(command) + " FILE";
        EXPECT_TRUE(runIt({command, "--help"}).out.starts_with(usage)) << command;
    }
}

TEST(Command, UsageErrorsAreOneLineAndExit2) {
    EXPECT_EQ(runIt({"check"}),
              (CommandRun{2, "", "tavisk check: no FILE given (try \"tavisk check --help\")\n"}));
}

TEST(Command, MissingInputIsExit4WithTheFile) {
    EXPECT_EQ(runIt({"save", "/nowhere/a.xml"}),
              (CommandRun{4, "", "Run-time error '53': File not found\nFile: /nowhere/a.xml\n"}));
}

TEST(Command, FolderAsInputIsExit4) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runIt({"check", folder.path()}),
              (CommandRun{
                  4, "", "Run-time error '70': Permission denied\nFile: " + folder.path() + "\n"}));
}

TEST(Command, RejectedDocumentIsExit3WithTitleAndText) {
    EXPECT_EQ(runWith("<cabinetinfo/>", {"save", "-"}),
              (CommandRun{3, "", "Error: No cabinet data found...\n"}));
}

TEST(Command, LineBreaksOfTheMessageAreLineFeeds) {
    EXPECT_EQ(runWith("<other><cabinet/></other>", {"save", "-"}),
              (CommandRun{3, "",
                          "Fatal error: Error in XML data:\n\ncabinetinfo basenode does not "
                          "exist\n"}));
}

TEST(Command, ParseErrorTellsReasonAndLine) {
    EXPECT_EQ(runWith("", {"save", "-"}),
              (CommandRun{3, "", "Tavisk: The document is empty\nline 1\n"}));
}

TEST(Command, LoneSurrogateIsAParseError) {
    EXPECT_EQ(runWith(std::string("\xFE\xFF\xD8\0", 4), {"save", "-"}),
              (CommandRun{3, "", "Tavisk: The text is not valid Unicode\nline 1\n"}));
}

TEST(Command, EmptyCabinetIsARunTimeError) {
    EXPECT_EQ(runWith("<cabinetinfo><cabinet/></cabinetinfo>", {"save", "-"}),
              (CommandRun{
                  4, "", "Run-time error '91': Object variable or With block variable not set\n"}));
}

TEST(SaveCommand, WritesTheSavedDocumentAndNothingElse) {
    EXPECT_EQ(runWith(plain, {"save", "-"}), (CommandRun{0, plainSaved, ""}));
}

TEST(SaveCommand, NeedsNoPictureFile) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runWith(plain, {"save", "-", "--folder", folder.path()}),
              (CommandRun{0, plainSaved, ""}));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(SaveCommand, TakesThePictureOfTheFolderOutAgain) {
    const test::TemporaryFolder folder;
    folder.write("cabinet.png", "picture");
    EXPECT_EQ(runWith(plain, {"save", "-", "--folder", folder.path()}),
              (CommandRun{0, plainSaved, ""}));
}

TEST(SaveCommand, FillingThePanelWritesBack) {
    EXPECT_EQ(runWith("<cabinetinfo><cabinet><A titlehidden='yes'/><B titlehidden='yes'/></cabinet>"
                      "</cabinetinfo>",
                      {"save", "-"})
                  .out,
              "<cabinetinfo><cabinet><A titlehidden=\"1\"/><B titlehidden=\"yes\"/></cabinet>"
              "<formula name=\"code\" standard=\"1\"/><formula name=\"type\" standard=\"1\"/>"
              "</cabinetinfo>");
}

TEST(SaveCommand, AStyleThatIsNoNumberEndsTheLoad) {
    EXPECT_EQ(
        runWith("<cabinetinfo><cabinet><A style='x'/></cabinet></cabinetinfo>", {"save", "-"}),
        (CommandRun{4, "", "Run-time error '13': Type mismatch\n"}));
}

TEST(SaveCommand, Utf16ComesOutAsUtf8) {
    std::string wide("\xFF\xFE", 2);
    for (const char c : plain)
        wide += {c, '\0'};
    EXPECT_EQ(runWith(wide, {"save", "-"}), (CommandRun{0, plainSaved, ""}));
}

TEST(SaveCommand, RefreshMarksTheNodeOfTheKey) {
    const CommandRun run = runWith(plain, {"save", "-", "--refresh", "cabinet=>B 1"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.out,
              "<cabinetinfo><cabinet><A value=\"x `f`\"/><B_1 value=\"\"/></cabinet>"
              "<location value=\"cabinet=&gt;B 1\"/>"
              "<formula name=\"f\" description=\"d\" standard=\"1\"/>"
              "<formula name=\"code\" standard=\"1\"/><formula name=\"type\" standard=\"1\"/>"
              "</cabinetinfo>");
}

TEST(SaveCommand, RefreshMayMarkTheCabinet) {
    const CommandRun run = runWith(plain, {"save", "-", "--refresh=cabinet"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_NE(run.out.find("<location value=\"cabinet\"/>"), std::string::npos) << run.out;
}

TEST(SaveCommand, UnknownKeyIsExit2) {
    EXPECT_EQ(runWith(plain, {"save", "-", "--refresh", "cabinet=>B_1"}),
              (CommandRun{2, "", "tavisk save: no node has the key \"cabinet=>B_1\"\n"}));
}

TEST(SaveCommand, WritesToAFile) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a.xml", plain);
    EXPECT_EQ(runIt({"save", file, "-o", folder.path("b.xml")}), (CommandRun{0, "", ""}));
    EXPECT_EQ(folder.read("b.xml"), plainSaved);
}

TEST(SaveCommand, TheFileMayReplaceItself) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a.xml", plain);
    EXPECT_EQ(runIt({"save", file, "-o", file}), (CommandRun{0, "", ""}));
    EXPECT_EQ(folder.read("a.xml"), plainSaved);
}

TEST(SaveCommand, HyphenAsOutputIsStandardOutput) {
    EXPECT_EQ(runWith(plain, {"save", "-", "-o", "-"}), (CommandRun{0, plainSaved, ""}));
}

TEST(SaveCommand, ARejectedDocumentLeavesTheOutputAlone) {
    const test::TemporaryFolder folder;
    const std::string out = folder.write("b.xml", "old");
    EXPECT_EQ(runWith("<a/>", {"save", "-", "-o", out}).exit, 3);
    EXPECT_EQ(folder.read("b.xml"), "old");
}

TEST(SaveCommand, OutputWithoutFolderIsExit4WithTheFile) {
    const test::TemporaryFolder folder;
    const std::string out = folder.path("none/b.xml");
    EXPECT_EQ(runWith(plain, {"save", "-", "-o", out}),
              (CommandRun{4, "", "Run-time error '76': Path not found\nFile: " + out + "\n"}));
}

TEST(RenderCommand, WritesThePageAndPrintsNothing) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runWith(plain, {"render", "-", "--folder", folder.path()}), (CommandRun{0, "", ""}));
    const std::string page = folder.read("temp.html");
    EXPECT_TRUE(page.starts_with(frameHead)) << page;
    EXPECT_NE(page.find("x `f`"), std::string::npos) << page;
    EXPECT_FALSE(folder.has("temp_images"));
}

TEST(RenderCommand, EvaluateFillsInAndWritesPictures) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runWith("<cabinetinfo><cabinet><A value='`f` `~p`'/></cabinet>"
                      "<formula name='f' value='5'/><image name='p' extension='png' width='7'>aGk="
                      "</image></cabinetinfo>",
                      {"render", "--evaluate", "-", "--folder=" + folder.path()}),
              (CommandRun{0, "", ""}));
    EXPECT_EQ(folder.read("temp_images/p.png"), "hi");
    EXPECT_TRUE(folder.has("temp_images/generated_cabinet_picture.png"));
    EXPECT_NE(folder.read("temp.html")
                  .find("5 <img src='" + folder.path() + "/temp_images//p.png' width='7'>"),
              std::string::npos);
}

TEST(RenderCommand, CreatesTheFolderWithEveryLevelAndItsAssets) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runWith(plain, {"render", "-", "--folder", folder.path("a/b/")}),
              (CommandRun{0, "", ""}));
    EXPECT_EQ(folder.read("a/b/cabinet.png"), cabinetPicture());
    EXPECT_EQ(folder.read("a/b/style.css"), stylesheet());
    EXPECT_TRUE(folder.has("a/b/temp.html"));
}

TEST(RenderCommand, KeepsTheAssetsThatAreThere) {
    const test::TemporaryFolder folder;
    folder.write("style.css", "own");
    EXPECT_EQ(runWith(plain, {"render", "-", "--folder", folder.path()}).exit, 0);
    EXPECT_EQ(folder.read("style.css"), "own");
}

TEST(RenderCommand, ACharacterOutsideTheCodePageLeavesTheOldPage) {
    const test::TemporaryFolder folder;
    folder.write("temp.html", "old");
    EXPECT_EQ(runWith("<cabinetinfo><cabinet><A value='\xC5\x82'/></cabinet></cabinetinfo>",
                      {"render", "-", "--folder", folder.path()}),
              (CommandRun{4, "", "Run-time error '5': Invalid procedure call or argument\n"}));
    EXPECT_EQ(folder.read("temp.html"), "old");
}

TEST(RenderCommand, APictureNameNeverLeavesTheFolder) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(runWith("<cabinetinfo><cabinet><A/></cabinet>"
                      "<image name='../p' extension='png'>aGk=</image></cabinetinfo>",
                      {"render", "-", "--evaluate", "--folder", folder.path("a")}),
              (CommandRun{4, "", "Run-time error '52': Bad file name or number\n"}));
    EXPECT_FALSE(folder.has("a/p.png"));
}

TEST(RenderCommand, AFileInPlaceOfTheFolderIsExit4) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "");
    EXPECT_EQ(runWith(plain, {"render", "-", "--folder", file}),
              (CommandRun{4, "", "Run-time error '70': Permission denied\nFile: " + file + "\n"}));
}

TEST(CheckCommand, NothingFoundIsExit0) {
    EXPECT_EQ(runWith(plain, {"check", "-"}), (CommandRun{0, "no findings\n", ""}));
    EXPECT_EQ(runWith(plain, {"check", "-", "--json"}),
              (CommandRun{0, "{\"file\": \"-\", \"findings\": []}\n", ""}));
}

TEST(CheckCommand, FindingsAreExit1) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write(
        "a.xml", "<cabinetinfo><cabinet><A value='12345678901 `r`'/></cabinet></cabinetinfo>");
    EXPECT_EQ(runIt({"check", file}),
              (CommandRun{1,
                          file + ": error: cabinet=>A: value, position 12: No formula is named "
                                 "\"r\". [unknown-formula]\n1 finding\n",
                          ""}));
}

TEST(CheckCommand, RejectionIsAFinding) {
    EXPECT_EQ(
        runWith("<cabinetinfo/>", {"check", "-"}),
        (CommandRun{1, "-: error: No cabinet data found... [document-rejected]\n1 finding\n", ""}));
    EXPECT_EQ(runWith(std::string("\xFE\xFF\xD8\0", 4), {"check", "-"}),
              (CommandRun{1,
                          "-: error: The text is not valid Unicode (line 1) [not-well-formed]\n"
                          "1 finding\n",
                          ""}));
}

}  // namespace
}  // namespace tavisk
