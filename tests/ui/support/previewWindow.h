// The real preview window, on pages in a folder of their own.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <wx/uiaction.h>
#include <wx/webview.h>

#include "base/files.h"
#include "ui/preview/frmPreview.h"
#include "ui/support/closing.h"
#include "ui/support/pump.h"

namespace tavisk::test {

/// A folder that goes with this object.
class PageFolder {
public:
    /// `name` is its last level, UTF-8.
    explicit PageFolder(const std::string& name = "pages");
    PageFolder(const PageFolder&) = delete;
    PageFolder& operator=(const PageFolder&) = delete;
    ~PageFolder();

    std::string path() const { return path_; }
    /// Returns the file's path.
    std::string write(const std::string& name, std::string_view bytes) const;
    /// A picture of one colour, 0xRRGGBB.
    std::string writePicture(const std::string& name, std::uint32_t colour) const;

private:
    std::string above_;
    std::string path_;
};

/// All navigations that browsers ask for, whatever the answer. Begins behind the first browser.
class AskedAddresses {
public:
    AskedAddresses();
    AskedAddresses(const AskedAddresses&) = delete;
    AskedAddresses& operator=(const AskedAddresses&) = delete;
    ~AskedAddresses();

    std::size_t count(std::string_view address) const;

    struct Hook;

private:
    std::unique_ptr<Hook> hook_;
};

/// What is visible in the browser now, as text.
std::string shownText(const wxWebView& browser);
/// The colour of one point of what is visible, 0xRRGGBB, with the focus and the pointer left out.
std::uint32_t shownColour(const wxWebView& browser, int x, int y);
/// A click with the real pointer; returns when the browser has got it.
void clickAt(const wxWebView& browser, const wxPoint& place, int button);
/// Shown, not modal, so that a test can go on.
class PreviewWindow {
public:
    explicit PreviewWindow(const std::string& folder = "pages") : pages(folder) {
        window->openAddress = [this](const std::string& address) { opened.push_back(address); };
    }
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;
    ~PreviewWindow() {
        delete window;
        pumpPending();
    }

    /// On the screen, loaded and ready for input.
    void open(const std::string& path) {
        window->Show();
        window->navigate(path);
        ASSERT_TRUE(pumpUntil([this] { return window->pageLoaded() && window->IsActive(); }));
        shownColour(browser(), 0, 0);  // returns when the page has been laid out
    }
    /// A page with this in its body.
    void openBody(std::string_view html) {
        open(pages.write("temp.html", "<html><body>" + std::string(html) + "</body></html>"));
    }
    /// By a real pointer; returns when the page has handled it.
    void click(int x, int y, int button = wxMOUSE_BTN_LEFT) {
        clickAt(browser(), wxPoint(x, y), button);
        shownColour(browser(), x, y);
    }
    /// By real keys, which arrive in their time.
    void press(int key, int modifiers = wxMOD_NONE) { wxUIActionSimulator().Char(key, modifiers); }
    bool opens(std::size_t count) {
        return pumpUntil([this, count] { return opened.size() >= count; });
    }

    wxWebView& browser() { return *window->browserPreview; }

    PageFolder pages;
    frmPreview* window = new frmPreview(nullptr);
    AskedAddresses asked;
    std::vector<std::string> opened;
};

/// A link that covers the upper left corner from `y` on, 100 pixels high.
inline std::string linkAt(int y, std::string_view attributes) {
    return "<a style='display:block;position:fixed;left:0;width:300px;height:100px;top:" +
           std::to_string(y) + "px' " + std::string(attributes) + ">link</a>";
}

}  // namespace tavisk::test
