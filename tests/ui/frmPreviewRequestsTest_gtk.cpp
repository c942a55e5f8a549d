// What a page that is shown asks servers for: nothing, however it tries.
#include <wx/button.h>
#include <wx/frame.h>

#include "ui/support/countingServer_gtk.h"
#include "ui/support/previewWindow.h"

namespace tavisk {
namespace {

using test::CountingServer;
using test::PreviewWindow;
using test::pumpUntil;

/// Everything in a page that makes a browser load something by itself; S stands for the server.
constexpr std::string_view head = R"(
<link rel='stylesheet' href='S-stylesheet'><link rel='stylesheet' href='other.css'>
<link rel='icon' href='S-icon'><link rel='preload' as='image' href='S-preload'>
<link rel='prefetch' href='S-prefetch'><link rel='preconnect' href='S'>
<link rel='dns-prefetch' href='S'><link rel='manifest' href='S-manifest'>
<link rel='modulepreload' href='S-module'><link rel='import' href='S-import'>
<style>@import 'S-imported'; @import url(S-imported-too);
@font-face { font-family: Far; src: url(S-font) }
body { font-family: Far; background: url(S-background); cursor: url(S-cursor), auto }
ul { list-style-image: url(S-bullet) } p::before { content: url(S-content) }
hr { border-image: url(S-border) 1; mask: url(S-mask); filter: url(S-filter#f);
     clip-path: url(S-clip#c); shape-outside: url(S-shape); height: 9px }</style>
<script src='S-script'></script>
<meta http-equiv='refresh' content='0;url=S-refresh'>)";

constexpr std::string_view body = R"(
<p>Far</p><ul><li>a</li></ul><hr>
<img src='S-picture?value=450'><img srcset='S-srcset 2x, S-srcset-too 1x'>
<picture><source srcset='S-source'><img src='S-source-picture'></picture>
<table background='S-table'><tr><td background='S-cell'>a</td></tr></table>
<div style='background: url(S-inline)'>a</div>
<svg width='9' height='9'><image href='S-svg' width='9' height='9'/><use href='S-use#a'/></svg>
<iframe src='S-frame'></iframe><iframe srcdoc="<img src='S-srcdoc'>"></iframe>
<object data='S-object'></object><embed src='S-embed'>
<video src='S-video' autoplay></video><video poster='S-poster'></video>
<audio src='S-audio' autoplay></audio><video><track default src='S-track'></video>
<input type='image' src='S-input'><form action='S-form'><button autofocus>a</button></form>
<math><mglyph src='S-glyph'/></math><bgsound src='S-sound'>)";

constexpr std::string_view otherStylesheet =
    "@import 'S-from-file'; body { background-image: url(S-background-from-file) }";

std::string asking(std::string_view markup, const CountingServer& server) {
    std::string text(markup);
    for (std::size_t at = 0; (at = text.find("S-", at)) != std::string::npos;)
        text.replace(at, 2, server.address());
    for (std::size_t at = 0; (at = text.find("'S'", at)) != std::string::npos;)
        text.replace(at, 3, "'" + server.address() + "'");
    return text;
}

std::string pageAsking(const test::PageFolder& pages, const CountingServer& server) {
    pages.write("other.css", asking(otherStylesheet, server));
    return pages.write("temp.html", "<html><head>" + asking(head, server) + "</head><body>" +
                                        asking(body, server) + "</body></html>");
}

TEST(FrmPreviewRequests, NoServerIsAsked) {
    const CountingServer server;
    PreviewWindow preview;
    preview.open(pageAsking(preview.pages, server));
    EXPECT_EQ(server.asked(), std::set<std::string>());
}

TEST(FrmPreviewRequests, AnOrdinaryBrowserAsksForMost) {
    const CountingServer server;
    const test::PageFolder pages;
    const std::string page = pageAsking(pages, server);
    wxFrame window(nullptr, wxID_ANY, "Browser");
    wxWebView* const browser = wxWebView::New(&window, wxID_ANY, "file://" + page);
    window.Show();
    ASSERT_NE(browser, nullptr);
    EXPECT_TRUE(pumpUntil([&] { return server.asked().size() >= 20; })) << server.asked().size();
}

TEST(FrmPreviewRequests, TheUserMayLoadWhatWasLeftOut) {
    const CountingServer server;
    PreviewWindow preview;
    preview.openBody("page<img src='" + server.address() + "one'><img src='" + server.address() +
                     "two'>");
    ASSERT_NE(preview.window->toolOtherPlaces, nullptr);
    const wxWindow* const said = wxWindow::FindWindowByName("lblOtherPlaces", preview.window);
    ASSERT_NE(said, nullptr);
    EXPECT_EQ(said->GetLabel(), "2 things from other places were not loaded  ");
    EXPECT_EQ(server.asked(), std::set<std::string>());

    wxCommandEvent pressed(wxEVT_BUTTON, preview.window->cmdLoadOtherPlaces->GetId());
    preview.window->cmdLoadOtherPlaces->ProcessWindowEvent(pressed);
    ASSERT_TRUE(pumpUntil(
        [&] { return !preview.window->toolOtherPlaces && preview.window->pageLoaded(); }));
    EXPECT_EQ(server.asked(), (std::set<std::string>{"one", "two"}));
    EXPECT_EQ(preview.browser().GetSize(), preview.window->GetClientSize());
}

TEST(FrmPreviewRequests, APageOfFilesHasNoBar) {
    PreviewWindow preview;
    preview.openBody("page<a href='http://example.invalid/'>link</a>");
    EXPECT_EQ(preview.window->toolOtherPlaces, nullptr);
}

TEST(FrmPreviewRequests, AClickedLinkTellsNobody) {
    const CountingServer server;
    PreviewWindow preview;
    preview.openBody(
        test::linkAt(0, "href='" + server.address() + "link' ping='" + server.address() + "ping'"));
    preview.click(50, 50);
    ASSERT_TRUE(preview.opens(1));
    EXPECT_EQ(preview.opened.front(), server.address() + "link");
    EXPECT_EQ(server.asked(), std::set<std::string>());
}

}  // namespace
}  // namespace tavisk
