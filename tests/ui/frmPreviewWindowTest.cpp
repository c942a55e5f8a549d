// The preview window as a window: sizes, keys, closing, modality, and what it leaves behind.
#include <wx/button.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/timer.h>

#include "ui/support/whileModal.h"

namespace tavisk {
namespace {

using test::PageFolder;
using test::PreviewWindow;
using test::pumpUntil;
using test::shownPreview;
using test::shownText;
using test::WhileModal;

void pressEscape(frmPreview&) { wxUIActionSimulator().Char(WXK_ESCAPE); }

TEST(FrmPreviewWindow, BrowserFollowsTheClientArea) {
    PreviewWindow preview;
    preview.openBody("page");
    for (const wxSize size : {wxSize(500, 400), wxSize(777, 333)}) {
        preview.window->SetClientSize(size);
        ASSERT_TRUE(pumpUntil([&] { return preview.window->GetClientSize() == size; }));
        EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetSize() == size; }));
        EXPECT_EQ(preview.browser().GetPosition(), wxPoint(0, 0));
    }
}

TEST(FrmPreviewWindow, BrowserHasItsSizeBeforeTheWindowIsShown) {
    PreviewWindow preview;
    EXPECT_EQ(preview.browser().GetSize(), preview.window->GetClientSize());
    EXPECT_GT(preview.browser().GetSize().x, 0);
}

TEST(FrmPreviewWindow, TinyWindowMakesNoNegativeSize) {
    PreviewWindow preview;
    preview.openBody("page");
    for (const wxSize size : {wxSize(1, 1), wxSize(300, 1), wxSize(1, 300)}) {
        preview.window->SetClientSize(size);
        wxSizeEvent event(size);
        preview.window->GetEventHandler()->ProcessEvent(event);
        EXPECT_GE(preview.browser().GetSize().x, 0);
        EXPECT_GE(preview.browser().GetSize().y, 0);
        EXPECT_EQ(preview.browser().GetSize(), preview.window->GetClientSize());
    }
}

TEST(FrmPreviewWindow, FitsASmallScreen) {
    PreviewWindow preview;
    preview.openBody("page");
    EXPECT_LE(preview.window->GetSize().x, 1024);
    EXPECT_LE(preview.window->GetSize().y, 768);
}

TEST(FrmPreviewWindow, HasItsTitleAndNames) {
    PreviewWindow preview;
    EXPECT_EQ(preview.window->GetTitle(), "Help Preview");
    EXPECT_EQ(preview.window->GetName(), "frmPreview");
    EXPECT_EQ(preview.browser().GetName(), "browserPreview");
}

TEST(FrmPreviewWindow, EscapeClosesIt) {
    PreviewWindow preview;
    preview.openBody("page");
    preview.press(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !preview.window->IsShown(); }));
}

TEST(FrmPreviewWindow, ControlWClosesIt) {
    PreviewWindow preview;
    preview.openBody("page");
    preview.press('W', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return !preview.window->IsShown(); }));
}

TEST(FrmPreviewWindow, EscapeClosesItFromInsideAField) {
    PreviewWindow preview;
    preview.openBody("<input autofocus>");
    preview.press(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !preview.window->IsShown(); }));
}

TEST(FrmPreviewWindow, KeysZoom) {
    PreviewWindow preview;
    preview.openBody("page");
    preview.press('=', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetZoomFactor() > 1.05F; }));
    preview.press('0', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetZoomFactor() == 1.0F; }));
    preview.press('-', wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetZoomFactor() < 0.95F; }));
    preview.press(WXK_NUMPAD_ADD, wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetZoomFactor() > 0.95F; }));
    preview.press('=', wxMOD_CONTROL | wxMOD_SHIFT);  // the plus of many keyboards
    EXPECT_TRUE(pumpUntil([&] { return preview.browser().GetZoomFactor() > 1.05F; }));
}

TEST(FrmPreviewWindow, ReturnsWhenTheWindowManagerClosesIt) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    WhileModal modal(
        [](frmPreview& window) { EXPECT_EQ(shownText(*window.browserPreview), "page"); },
        [](frmPreview& window) { test::closeFromOutside(window); });
    showPreview(nullptr, page);
    EXPECT_TRUE(modal.ran());
    EXPECT_EQ(shownPreview(), nullptr);
}

TEST(FrmPreviewWindow, ReturnsAfterEscape) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    WhileModal modal([](frmPreview&) {}, pressEscape);
    showPreview(nullptr, page);
    EXPECT_TRUE(modal.ran());
    EXPECT_EQ(shownPreview(), nullptr);
}

TEST(FrmPreviewWindow, SecondPreviewShowsTheSecondPage) {
    const PageFolder pages;
    for (const char* text : {"first", "second"}) {
        const std::string page =
            pages.write("temp.html", "<html><body>" + std::string(text) + "</body></html>");
        WhileModal modal(
            [&](frmPreview& window) { EXPECT_EQ(shownText(*window.browserPreview), text); });
        showPreview(nullptr, page);
        EXPECT_TRUE(modal.ran());
    }
}

TEST(FrmPreviewWindow, WindowBelowTakesNoInputMeanwhile) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    wxFrame below(nullptr, wxID_ANY, "Below", wxPoint(0, 0), wxSize(200, 150));
    int pressed = 0;
    auto* const button = new wxButton(&below, wxID_ANY, "Press");
    button->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { ++pressed; });
    below.Show();
    ASSERT_TRUE(pumpUntil([&] { return below.IsActive(); }));
    const auto press = [&] {
        wxUIActionSimulator pointer;
        pointer.MouseMove(button->ClientToScreen(wxPoint(20, 20)));
        pointer.MouseClick();
    };
    WhileModal modal(
        [&](frmPreview& window) {
            window.Move(600, 300);
            ASSERT_TRUE(pumpUntil([&] { return window.GetScreenPosition().x >= 500; }));
            press();
        },
        pressEscape);  // after the click, so that it is handled after it
    showPreview(&below, page);
    EXPECT_TRUE(modal.ran());
    EXPECT_EQ(pressed, 0);
    press();
    EXPECT_TRUE(pumpUntil([&] { return pressed == 1; }));
}

TEST(FrmPreviewWindow, CanBeClosedBeforeThePageIsThere) {
    const PageFolder pages;
    const std::string page = pages.write("temp.html", "<html><body>page</body></html>");
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { shownPreview()->Close(); });
    timer.StartOnce(1);
    showPreview(nullptr, page);
    EXPECT_EQ(shownPreview(), nullptr);
}

}  // namespace
}  // namespace tavisk
