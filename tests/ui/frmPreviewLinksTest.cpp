// What pages and their readers cannot make the preview window do.
#include "base/error.h"
#include "ui/support/dialogAnswers.h"
#include "ui/support/previewWindow.h"

namespace tavisk {
namespace {

using test::linkAt;
using test::PreviewWindow;
using test::pumpUntil;
using test::shownColour;
using test::shownText;
using Addresses = std::vector<std::string>;

constexpr const char* web = "http://example.invalid/";

/// The page is still there, and nobody went anywhere.
void expectUntouched(PreviewWindow& preview, const std::string& text) {
    EXPECT_EQ(shownText(preview.browser()), text);
    EXPECT_EQ(preview.opened, Addresses{});
}

TEST(FrmPreviewLinks, ClickedLinkOpensOutsideAndThePageStays) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "href='http://example.invalid/a?b=1#c'"));
    preview.click(50, 50);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(shownText(preview.browser()), "link");
    EXPECT_EQ(preview.opened, Addresses{"http://example.invalid/a?b=1#c"});
}

TEST(FrmPreviewLinks, LinkFollowedByKeyboardOpensOutside) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "href='https://example.invalid/'"));
    preview.press(WXK_TAB);
    preview.press(WXK_RETURN);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(preview.opened, Addresses{"https://example.invalid/"});
}

TEST(FrmPreviewLinks, LinkForANewWindowOpensOutside) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "target='_blank' href='http://example.invalid/'"));
    preview.click(50, 50);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(shownText(preview.browser()), "link");
    EXPECT_EQ(preview.opened, Addresses{web});
}

TEST(FrmPreviewLinks, LinkClickedForANewTabOpensOutside) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "href='http://example.invalid/'"));
    preview.click(50, 50, wxMOUSE_BTN_MIDDLE);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(preview.opened, Addresses{web});
}

TEST(FrmPreviewLinks, MailAddressOpensOutside) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "href='mailto:a@example.invalid'"));
    preview.click(50, 50);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(preview.opened, Addresses{"mailto:a@example.invalid"});
}

TEST(FrmPreviewLinks, ErrorOfTheUsersBrowserIsReported) {
    PreviewWindow preview;
    test::DialogAnswers dialogs;
    dialogs.expectBox("Run-time error '53':\n\nFile not found", "Tavisk", wxOK | wxICON_ERROR);
    preview.window->openAddress = [](const std::string&) { raise(ErrorNumber::fileNotFound); };
    preview.openBody(linkAt(0, "href='http://example.invalid/'"));
    preview.click(50, 50);
    EXPECT_TRUE(pumpUntil([&] { return dialogs.finished(); }));
}

TEST(FrmPreviewLinks, LinkInsideThePageScrolls) {
    PreviewWindow preview;
    preview.openBody(linkAt(0, "href='#end'") +
                     "<div style='height:5000px'></div><div id='end' "
                     "style='height:2000px;background:#00F'></div>");
    preview.click(50, 50);
    EXPECT_TRUE(pumpUntil([&] { return shownColour(preview.browser(), 400, 300) == 0x0000FF; }));
    expectUntouched(preview, "link\n");
}

/// Clicks a link that must do nothing, and then one that opens outside, so that what the first did
/// has been done.
void expectDeadLink(const std::string& attributes) {
    PreviewWindow preview;
    preview.pages.write("other.html", "<html><body>other</body></html>");
    preview.openBody(linkAt(0, attributes) + linkAt(200, "href='http://example.invalid/'"));
    preview.click(50, 50);
    preview.click(50, 250);
    ASSERT_TRUE(preview.opens(1)) << attributes;
    EXPECT_EQ(shownText(preview.browser()), "linklink") << attributes;
    EXPECT_EQ(preview.opened, Addresses{web}) << attributes;
    EXPECT_TRUE(preview.browser().GetCurrentURL().Contains("/pages/temp.html")) << attributes;
}

TEST(FrmPreviewLinks, LinksToFilesDoNothing) {
    expectDeadLink("href='other.html'");
    expectDeadLink("href='file:///etc/hostname'");
    expectDeadLink("href='other.html' target='_blank'");
    expectDeadLink("href='other.html' download");
    expectDeadLink("href='?other'");
}

TEST(FrmPreviewLinks, LinksOfOtherKindsDoNothing) {
    expectDeadLink("href='javascript:document.body.textContent=1'");
    expectDeadLink("href='javascript:window.open(\"http://example.invalid/popup\")'");
    expectDeadLink("href='#' onclick='document.body.textContent=1'");
    expectDeadLink("href='data:text/html,other'");
    expectDeadLink("href='ftp://example.invalid/'");
    expectDeadLink("href='about:blank'");
    expectDeadLink("href='view-source:http://example.invalid/'");
    expectDeadLink("href='tavisk-unknown:1'");
}

TEST(FrmPreviewLinks, LinkToThePageItselfDoesNothing) {
    expectDeadLink("href='temp.html'");
    expectDeadLink("href=''");
    expectDeadLink("href='#here' target='_blank'");
}

TEST(FrmPreviewLinks, ScriptsDoNotRun) {
    PreviewWindow preview;
    preview.openBody(
        "<p id='a'>page</p><script>document.title='ran'</script>"
        "<script>document.getElementById('a').textContent='ran'</script>"
        "<img src='data:,' onerror=\"document.title='ran'\">"
        "<body onload=\"document.title='ran'\">"
        "<svg onload=\"document.title='ran'\"></svg>"
        "<script>window.open('http://example.invalid/')</script>"
        "<script>location='http://example.invalid/'</script>");
    expectUntouched(preview, "page\n\n");
    EXPECT_EQ(preview.browser().GetCurrentTitle(), "");
    EXPECT_EQ(preview.asked.count(web), 0U);
}

TEST(FrmPreviewLinks, PageCannotGoElsewhereByItself) {
    PreviewWindow preview;
    preview.openBody("page<meta http-equiv='refresh' content='0;url=http://example.invalid/'>");
    ASSERT_TRUE(pumpUntil([&] { return preview.asked.count(web) > 0; }));
    expectUntouched(preview, "page");
}

TEST(FrmPreviewLinks, PageCannotReloadItself) {
    PreviewWindow preview;
    preview.openBody("page<meta http-equiv='refresh' content='0'>");
    const std::string own = preview.browser().GetCurrentURL().ToStdString();
    ASSERT_TRUE(pumpUntil([&] { return preview.asked.count(own) == 2; }));
    expectUntouched(preview, "page");
    EXPECT_EQ(preview.asked.count(own), 2U);
}

TEST(FrmPreviewLinks, FramesStayEmpty) {
    PreviewWindow preview;
    preview.pages.write("other.html", "<html><body>other</body></html>");
    const std::string style = "style='position:fixed;left:0;border:0;background:#FFF;top:";
    preview.openBody(
        "page<iframe src='http://example.invalid/'></iframe>"
        "<iframe src='other.html'></iframe><iframe src='temp.html'></iframe>"
        "<iframe srcdoc='<body style=\"background:red\">' " +
        style + "100px;width:100px;height:100px'></iframe>" +
        "<object type='text/html' data='other.html' " + style +
        "200px;width:100px;height:100px'></object>"
        "<embed type='text/html' src='other.html'>");
    EXPECT_EQ(shownColour(preview.browser(), 50, 150), 0xFFFFFFU);
    EXPECT_EQ(preview.browser().Find("page"), 1);
    EXPECT_EQ(preview.browser().Find("other"), 0);
    EXPECT_EQ(preview.opened, Addresses{});
}

TEST(FrmPreviewLinks, FormsAreNotSent) {
    for (const char* method : {"get", "post"}) {
        PreviewWindow preview;
        preview.openBody(
            "<form action='http://example.invalid/' method='" + std::string(method) +
            "'>page<input type='submit' value='send' style='position:fixed;left:0;top:0;"
            "width:300px;height:100px'></form>");
        preview.click(50, 50);
        const std::string asked = std::string(web) + (method == std::string("get") ? "?" : "");
        ASSERT_TRUE(pumpUntil([&] { return preview.asked.count(asked) > 0; })) << method;
        expectUntouched(preview, "page");
        EXPECT_TRUE(preview.browser().GetCurrentURL().EndsWith("/temp.html"));
    }
}

TEST(FrmPreviewLinks, FormsChooseNoFiles) {
    PreviewWindow preview;
    preview.openBody(
        "<input type='file' style='position:fixed;left:0;top:0;width:300px;"
        "height:100px'>" +
        linkAt(200, "href='http://example.invalid/'"));
    preview.click(50, 50);
    preview.click(50, 250);
    EXPECT_TRUE(preview.opens(1));  // no dialog took the click
}

}  // namespace
}  // namespace tavisk
