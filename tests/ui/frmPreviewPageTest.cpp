// What the preview window shows.
#include <wx/base64.h>

#include "base/assets.h"
#include "page/helpFile.h"
#include "ui/support/previewWindow.h"

namespace tavisk {
namespace {

using test::PageFolder;
using test::PreviewWindow;
using test::shownColour;
using test::shownText;

/// Writes the page of a document as the editor does; returns its path.
std::string writePage(const PageFolder& folder, const std::string& nodes, bool evaluate = false,
                      const std::string& images = {}) {
    DiskFiles files;
    provideAssets(files, folder.path());
    HelpFile file(files, folder.path());
    const auto refusal = file.load(dom::Source::copy("<cabinetinfo><cabinet>" + nodes +
                                                     "</cabinet>" + images + "</cabinetinfo>"));
    if (refusal) throw std::runtime_error("the test's own document: " + refusal->reason);
    return file.generatepreview(evaluate);
}

TEST(FrmPreview, ShowsThePageOfTheDocument) {
    PreviewWindow preview;
    preview.open(writePage(preview.pages, "<Door_Hinges value='Three of them'/>"));
    EXPECT_EQ(shownText(preview.browser()), "Door Hinges\tThree of them\n ");
}

TEST(FrmPreview, ShowsLettersOfCodePage1252) {
    PreviewWindow preview;
    preview.open(writePage(
        preview.pages, "<a value='\u00e4\u00f6\u00fc\u00df \u20ac \u201equoted\u201c \u2022'/>"));
    EXPECT_EQ(shownText(preview.browser()),
              "a\t\u00e4\u00f6\u00fc\u00df \u20ac \u201equoted\u201c \u2022\n ");
}

TEST(FrmPreview, AppliesTheStylesheetBesideThePage) {
    PreviewWindow preview;
    preview.pages.write("style.css", "body { background: #123456 }");
    preview.open(writePage(preview.pages, "<a/>"));
    EXPECT_EQ(shownColour(preview.browser(), 5, 200), 0x123456U);
}

TEST(FrmPreview, ShowsPicturesOfTheDocument) {
    PreviewWindow preview;
    preview.pages.write("style.css", "img { position: fixed; left: 0; top: 0 }");
    const std::string bytes = DiskFiles().read(preview.pages.writePicture("red.png", 0xCC1122));
    const std::string image =
        "<image xmlns:dt='urn:schemas-microsoft-com:datatypes' dt:dt='bin.base64' name='logo'"
        " extension='png'>" +
        wxBase64Encode(bytes.data(), bytes.size()).ToStdString() + "</image>";
    preview.open(writePage(preview.pages, "<a value='`~logo`'/>", true, image));
    EXPECT_EQ(shownColour(preview.browser(), 32, 32), 0xCC1122U);
}

TEST(FrmPreview, ShowsPicturesNamedByPath) {
    PreviewWindow preview;
    const PageFolder elsewhere("else where");
    const std::string picture = elsewhere.writePicture("green.png", 0x11AA22);
    preview.pages.write("style.css", "img { position: fixed; left: 0; top: 0 }");
    preview.open(writePage(preview.pages, "<a value='`@" + picture + "`'/>", true));
    EXPECT_EQ(shownColour(preview.browser(), 32, 32), 0x11AA22U);
}

TEST(FrmPreview, ShowsPagesInFoldersWithOddNames) {
    for (const char* name : {"two words", "50%41", "#1", "what?", "K\u00fcche", "\u5eda"}) {
        PreviewWindow preview(name);
        preview.pages.write("style.css", "body { background: #654321 }");
        preview.open(writePage(preview.pages, "<a value='here'/>"));
        EXPECT_EQ(shownColour(preview.browser(), 5, 200), 0x654321U) << name;
        EXPECT_EQ(shownText(preview.browser()), "a\there\n ") << name;
    }
}

TEST(FrmPreview, FindsAPageNamedByARelativePath) {
    PreviewWindow preview;
    const std::string page = writePage(preview.pages, "<a value='here'/>");
    preview.open(std::filesystem::relative(page).string());
    EXPECT_EQ(shownText(preview.browser()), "a\there\n ");
}

TEST(FrmPreview, SecondPageReplacesTheFirst) {
    PreviewWindow preview;
    preview.open(writePage(preview.pages, "<a value='first'/>"));
    EXPECT_EQ(shownText(preview.browser()), "a\tfirst\n ");
    preview.open(writePage(preview.pages, "<a value='second'/>"));
    EXPECT_EQ(shownText(preview.browser()), "a\tsecond\n ");
}

TEST(FrmPreview, MissingPageIsNotLoaded) {
    PreviewWindow preview;
    bool failed = false;
    preview.browser().Bind(wxEVT_WEBVIEW_ERROR, [&](wxWebViewEvent&) { failed = true; });
    preview.window->navigate(preview.pages.path() + "/missing.html");
    EXPECT_TRUE(test::pumpUntil([&] { return failed; }));
    EXPECT_FALSE(preview.window->pageLoaded());
}

TEST(FrmPreview, FileThatIsNoPageIsNotDownloaded) {
    PreviewWindow preview;
    bool failed = false;
    preview.browser().Bind(wxEVT_WEBVIEW_ERROR, [&](wxWebViewEvent&) { failed = true; });
    preview.window->navigate(preview.pages.write("data.bin", std::string_view("\0\1\2\3", 4)));
    EXPECT_TRUE(test::pumpUntil([&] { return failed; }));
    EXPECT_FALSE(preview.window->pageLoaded());
}

}  // namespace
}  // namespace tavisk
