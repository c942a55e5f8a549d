#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "command/commandRun.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;
using test::CommandRun;
using test::runIt;
using test::runWith;
using test::TemporaryFolder;

std::string documentOf(const std::string& answer) {
    return "<cabinetinfo><cabinet><A value='" + answer + "'/></cabinet></cabinetinfo>";
}

constexpr const char* rejected = "<cabinetinfo/>";

/// Documents that go well, are rejected, and are not there.
struct Three {
    TemporaryFolder folder;
    std::string good = folder.write("good.xml", documentOf("x"));
    std::string bad = folder.write("bad.xml", rejected);
    std::string gone = folder.path("gone.xml");
    std::string out = folder.path("out");
};

TEST(RenderMany, AFolderForEachDocument) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a.xml", documentOf("one"));
    const std::string b = folder.write("b c.xml", documentOf("two"));
    EXPECT_EQ(runIt({"render", a, b, "--folder", folder.path("out")}),
              (CommandRun{0, "2 documents: 2 rendered\n", ""}));
    EXPECT_NE(folder.read("out/a/temp.html").find("one"), std::string::npos);
    EXPECT_NE(folder.read("out/b c/temp.html").find("two"), std::string::npos);
    EXPECT_TRUE(folder.has("out/a/style.css"));
    EXPECT_TRUE(folder.has("out/a/cabinet.png"));
    EXPECT_FALSE(folder.has("out/style.css"));
}

TEST(RenderMany, OneThatGoesWrongDoesNotStopTheOthers) {
    const Three three;
    EXPECT_EQ(runIt({"render", three.gone, three.bad, three.good, "--folder", three.out}),
              (CommandRun{4, "3 documents: 1 rendered, 1 rejected, 1 failed\n",
                          three.gone + ": Run-time error '53': File not found\n" + three.bad +
                              ": rejected: No cabinet data found...\n"}));
    EXPECT_TRUE(three.folder.has("out/good/temp.html"));
}

TEST(RenderMany, RejectionIsExit3) {
    const Three three;
    EXPECT_EQ(runIt({"render", three.bad, three.good, "--folder", three.out}).exit, 3);
}

TEST(RenderMany, APlaceThatCannotBeWrittenIsNamed) {
    const Three three;
    fs::create_directory(three.out);
    three.folder.write("out/good", "a file in place of the folder");
    EXPECT_EQ(
        runIt({"render", three.bad, three.good, "--folder", three.out}),
        (CommandRun{4, "2 documents: 1 rejected, 1 failed\n",
                    three.bad + ": rejected: No cabinet data found...\n" + three.good +
                        ": Run-time error '70': Permission denied (" + three.out + "/good)\n"}));
}

TEST(RenderMany, EachMakesAFolderForOneToo) {
    const Three three;
    EXPECT_EQ(runIt({"render", three.good, "--each", "--folder", three.out}),
              (CommandRun{0, "1 document: 1 rendered\n", ""}));
    EXPECT_TRUE(three.folder.has("out/good/temp.html"));
    EXPECT_FALSE(three.folder.has("out/temp.html"));
}

TEST(RenderMany, OwnAssetsServeEveryDocument) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a.xml", documentOf("x"));
    const std::string b = folder.write("b.xml", documentOf("x"));
    fs::create_directories(folder.path("out/b"));
    folder.write("out/style.css", "own");
    folder.write("out/b/style.css", "b's own");
    EXPECT_EQ(runIt({"render", a, b, "--folder", folder.path("out")}).exit, 0);
    EXPECT_EQ(folder.read("out/a/style.css"), "own");
    EXPECT_EQ(folder.read("out/b/style.css"), "b's own");
}

TEST(RenderMany, StandardInputMayBeAmongThem) {
    const Three three;
    EXPECT_EQ(runWith(documentOf("piped"),
                      {"render", three.good, "-", "--folder", three.out, "--jobs", "2"}),
              (CommandRun{0, "2 documents: 2 rendered\n", ""}));
    EXPECT_NE(three.folder.read("out/document/temp.html").find("piped"), std::string::npos);
}

TEST(RenderMany, PagesOfOneNameAreRefusedBeforeAnythingIsDone) {
    const Three three;
    EXPECT_EQ(runIt({"render", three.good, three.good, "--folder", three.out}).exit, 2);
    EXPECT_FALSE(three.folder.has("out"));
}

TEST(CheckMany, FindingsOfAllAndOneLineAtTheEnd) {
    const Three three;
    const std::string odd = three.folder.write("odd.xml", documentOf("`"));
    EXPECT_EQ(
        runIt({"check", three.bad, three.good, odd}),
        (CommandRun{1,
                    three.bad + ": error: No cabinet data found... [document-rejected]\n" + odd +
                        ": warning: cabinet=>A: value, position 0: This backquote has no "
                        "partner; it is shown as it is. [odd-backquote]\n"
                        "3 documents: 1 clean, 2 with findings; 2 findings\n",
                    ""}));
}

TEST(CheckMany, NothingFoundIsExit0) {
    const Three three;
    EXPECT_EQ(runIt({"check", three.good, three.good}),
              (CommandRun{0, "2 documents: 2 clean; no findings\n", ""}));
}

TEST(CheckMany, AFileThatCannotBeReadIsExit4AndTheOthersAreChecked) {
    const Three three;
    EXPECT_EQ(runIt({"check", three.gone, three.bad}),
              (CommandRun{4,
                          three.bad + ": error: No cabinet data found... [document-rejected]\n"
                                      "2 documents: 1 with findings, 1 failed; 1 finding\n",
                          three.gone + ": Run-time error '53': File not found\n"}));
}

TEST(CheckMany, JsonIsOneObject) {
    const Three three;
    EXPECT_EQ(
        runWith(documentOf("x"), {"check", "--json", "-", three.gone, three.bad}),
        (CommandRun{
            4,
            "{\"documents\": [\n{\"file\": \"-\", \"findings\": []},\n{\"file\": \"" + three.gone +
                "\", \"error\": {\"number\": 53, \"message\": \"File not found\"}, \"findings\": "
                "[]},\n{\"file\": \"" +
                three.bad +
                "\", \"findings\": [\n{\"severity\": \"error\", \"code\": \"document-rejected\", "
                "\"key\": null, \"attribute\": null, \"position\": null, \"message\": \"No cabinet "
                "data found...\"}\n]}\n], \"summary\": {\"documents\": 3, \"clean\": 1, "
                "\"withFindings\": 1, \"failed\": 1, \"findings\": 1}}\n",
            three.gone + ": Run-time error '53': File not found\n"
                         "3 documents: 1 clean, 1 with findings, 1 failed; 1 finding\n"}));
}

TEST(CheckMany, SarifOfOneDocumentHasNoSummary) {
    const CommandRun run = runWith(documentOf("`"), {"check", "--sarif", "-"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out.find("\"region\": {\"startLine\": 1, \"startColumn\": 33}"),
              std::string::npos)
        << run.out;
}

TEST(CheckMany, SarifOfSeveralHasTheSummaryOnStandardError) {
    const Three three;
    const CommandRun run = runIt({"check", "--sarif", three.good, three.gone});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.err, three.gone +
                           ": Run-time error '53': File not found\n"
                           "2 documents: 1 clean, 1 failed; no findings\n");
}

TEST(ManyDocuments, NothingDependsOnTheNumberOfJobs) {
    const TemporaryFolder folder;
    std::vector<std::string> files;
    for (int i = 0; i < 40; ++i) {
        const std::string name = "d" + std::to_string(i) + ".xml";
        files.push_back(i % 7 == 3   ? folder.path("gone-" + name)
                        : i % 5 == 2 ? folder.write(name, rejected)
                                     : folder.write(name, documentOf(std::string(
                                                              static_cast<std::size_t>(i), '`'))));
    }
    const auto run = [&](const std::vector<std::string>& options) {
        std::vector<std::string> words = options;
        words.insert(words.end(), files.begin(), files.end());
        return runIt(words);
    };
    for (const char* format : {"--json", "--sarif"}) {
        const CommandRun one = run({"check", format, "--jobs", "1"});
        EXPECT_EQ(run({"check", format, "--jobs", "8"}), one);
    }
    const std::string first = folder.path("1");
    const std::string second = folder.path("2");
    const CommandRun one = run({"render", "--folder", first, "--evaluate", "--jobs", "1"});
    EXPECT_EQ(run({"render", "--folder", second, "--evaluate", "--jobs", "8"}), one);
    EXPECT_EQ(one.out, "40 documents: 27 rendered, 7 rejected, 6 failed\n");
    EXPECT_EQ(folder.read("1/d39/temp.html"), folder.read("2/d39/temp.html"));
}

TEST(ManyDocuments, DeepDocumentsAreWorkedOnInAnyThread) {
    const TemporaryFolder folder;
    std::string deep;
    for (int i = 0; i < 996; ++i)
        deep += "<n>";
    for (int i = 0; i < 996; ++i)
        deep += "</n>";
    std::vector<std::string> words{"check", "--jobs", "4"};
    for (int i = 0; i < 4; ++i) {
        words.push_back(folder.write(std::to_string(i),
                                     "<cabinetinfo><cabinet>" + deep + "</cabinet></cabinetinfo>"));
    }
    EXPECT_EQ(runIt(words), (CommandRun{0, "4 documents: 4 clean; no findings\n", ""}));
}

constexpr const char* onePixel = "R0lGODlhAQABAIAAAP///wAAACH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==";

std::string withPicture() {
    return "<cabinetinfo><cabinet><A value='`~p`'/></cabinet><image name='p' extension='gif'>" +
           std::string(onePixel) + "</image></cabinetinfo>";
}

std::string pictureTag() {
    return "<img src='data:image/gif;base64," + std::string(onePixel) + "'>";
}

/// Behind external pictures: as many characters as they grow by are not looked at for tokens.
const std::string padding(60, ' ');

TEST(RenderStandalone, WritesOneFile) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a.xml", withPicture());
    EXPECT_EQ(runIt({"render", file, "--standalone", "-o", folder.path("b.html"), "--evaluate"}),
              (CommandRun{0, "", ""}));
    EXPECT_NE(folder.read("b.html").find(pictureTag()), std::string::npos);
    EXPECT_EQ(folder.count(), 2);
}

TEST(RenderStandalone, HyphenIsStandardOutput) {
    const CommandRun run =
        runWith(withPicture(), {"render", "-", "--standalone", "-o", "-", "--evaluate"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out.find(pictureTag()), std::string::npos);
}

TEST(RenderStandalone, WithoutEvaluationTokensStay) {
    const CommandRun run = runWith(withPicture(), {"render", "-", "--standalone", "-o", "-"});
    EXPECT_NE(run.out.find("`~p`"), std::string::npos);
    EXPECT_EQ(run.out.find("<img"), std::string::npos);
}

TEST(RenderStandalone, IntoAFolderUnderTheNameOfTheDocument) {
    const Three three;
    EXPECT_EQ(runIt({"render", three.good, "--standalone", "--folder", three.out}),
              (CommandRun{0, "", ""}));
    EXPECT_TRUE(three.folder.has("out/good.html"));
    EXPECT_EQ(std::distance(fs::directory_iterator(three.out), {}), 1);
}

TEST(RenderStandalone, SeveralIntoOneFolder) {
    const Three three;
    const std::string other = three.folder.write("other.xml", documentOf("y"));
    EXPECT_EQ(
        runIt({"render", three.good, three.bad, other, "--standalone", "--folder", three.out}),
        (CommandRun{3, "3 documents: 2 rendered, 1 rejected\n",
                    three.bad + ": rejected: No cabinet data found...\n"}));
    EXPECT_TRUE(three.folder.has("out/good.html"));
    EXPECT_TRUE(three.folder.has("out/other.html"));
}

TEST(RenderStandalone, OwnAssetsOfTheFolderAreUsed) {
    const TemporaryFolder folder;
    folder.write("style.css", "own style");
    folder.write("cabinet.png", "own picture");
    const CommandRun run = runWith(
        documentOf("`~generated_cabinet_picture` `@cabinet.png`"),
        {"render", "-", "--standalone", "--evaluate", "-o", "-", "--folder", folder.path()});
    EXPECT_NE(run.out.find("<style>own style</style>"), std::string::npos);
    // "own picture", and behind it the byte that stored pictures have.
    EXPECT_NE(run.out.find("<img src='data:image/png;base64,b3duIHBpY3R1cmUA' height='256' "
                           "width='256'>"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(folder.count(), 2);
}

TEST(RenderStandalone, TheDefaultPictureLiesBesideEveryPage) {
    const CommandRun run = runWith(documentOf("`@cabinet.png`"),
                                   {"render", "-", "--standalone", "--evaluate", "-o", "-"});
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out.find("<img src='data:image/png;base64,iVBORw0KGgo"), std::string::npos);
}

TEST(RenderStandalone, PicturesByPathAreThoseThatThePageWouldFind) {
    const TemporaryFolder folder;
    folder.write("near.gif", "GIF89a");
    const std::string file = folder.write(
        "a.xml", documentOf("`@near.gif` `@" + folder.path("near.gif") + "` `@far.gif`" + padding));
    EXPECT_EQ(runIt({"render", file, "--standalone", "--evaluate", "-o", folder.path("a.html")}),
              (CommandRun{0, "", file + ": warning: the picture \"far.gif\" is missing\n"}));
    EXPECT_NE(folder.read("a.html").find("<img src='data:image/gif;base64,R0lGODlh'> "
                                         "<img src='data:image/gif;base64,R0lGODlh'> "
                                         "<img src='data:,'>"),
              std::string::npos)
        << folder.read("a.html");
}

TEST(RenderStandalone, MissingPicturesOfSeveralDocumentsAreTold) {
    const Three three;
    const std::string lost = three.folder.write("lost.xml", documentOf("`@a` `@b` `@a`" + padding));
    EXPECT_EQ(
        runIt({"render", lost, three.good, "--standalone", "--evaluate", "--folder", three.out}),
        (CommandRun{0, "2 documents: 2 rendered\n",
                    lost + ": warning: the picture \"a\" is missing\n" + lost +
                        ": warning: the picture \"b\" is missing\n"}));
}

TEST(RenderStandalone, RejectionLeavesTheOldPage) {
    const Three three;
    const std::string old = three.folder.write("old.html", "old");
    EXPECT_EQ(runIt({"render", three.bad, "--standalone", "-o", old}),
              (CommandRun{3, "", "Error: No cabinet data found...\n"}));
    EXPECT_EQ(three.folder.read("old.html"), "old");
}

TEST(RenderStandalone, AnErrorLeavesTheOldPageAndWritesNothingToStandardOutput) {
    const TemporaryFolder folder;
    const std::string old = folder.write("old.html", "old");
    const std::string file =
        folder.write("a.xml",
                     "<cabinetinfo><cabinet><A/><B value='`~p`'/></cabinet>"
                     "<image name='p' extension='gif'>no base64!</image></cabinetinfo>");
    const CommandRun failed{4, "", "Run-time error '13': Type mismatch\n"};
    EXPECT_EQ(runIt({"render", file, "--standalone", "--evaluate", "-o", old}), failed);
    EXPECT_EQ(folder.read("old.html"), "old");
    EXPECT_EQ(runIt({"render", file, "--standalone", "--evaluate", "-o", "-"}), failed);
}

TEST(RenderStandalone, AFolderThatIsMissingIsExit4) {
    const Three three;
    const std::string page = three.folder.path("none/a.html");
    EXPECT_EQ(runIt({"render", three.good, "--standalone", "-o", page}),
              (CommandRun{4, "", "Run-time error '76': Path not found\nFile: " + page + "\n"}));
}

TEST(RenderStandalone, APageIsNeverWrittenOverItsDocument) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a.html", documentOf("x"));
    const std::string other = folder.write("b.xml", documentOf("x"));
    EXPECT_EQ(runIt({"render", file, "--standalone", "--folder", folder.path()}),
              (CommandRun{4, "", "Run-time error '70': Permission denied\nFile: " + file + "\n"}));
    EXPECT_EQ(runIt({"render", file, other, "--standalone", "--folder", folder.path()}),
              (CommandRun{4, "2 documents: 1 rendered, 1 failed\n",
                          file + ": Run-time error '70': Permission denied\n"}));
    EXPECT_EQ(runIt({"render", file, "--standalone", "-o", file}).exit, 4);
    EXPECT_EQ(folder.read("a.html"), documentOf("x"));
}

}  // namespace
}  // namespace tavisk
