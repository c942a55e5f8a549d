// The preview window: an embedded browser that shows the page.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ui/preview/browserPolicy.h"
#include "ui/toolkit/runtime.h"
#include "ui/toolkit/wxDialogs.h"

class wxButton;
class wxStaticText;
class wxToolBar;
class wxWebView;
class wxWebViewEvent;

namespace tavisk {

/// Runs no scripts of the page, opens no windows for it and leaves it for no link; a clicked link
/// to another address goes to `openAddress`. What the page would load from servers it does without,
/// unless the user wants it: a bar above the page tells how much that is. Zooms with Ctrl and plus,
/// minus or 0; Escape and Ctrl+W close it.
class frmPreview final : public ModalFrame {
public:
    explicit frmPreview(wxWindow* parent);

    /// `path` is that of the page file, UTF-8.
    void navigate(const std::string& path);

    /// Whether the page, with its pictures and style, has been loaded since `navigate`. The browser
    /// tells it by its own event, wxEVT_WEBVIEW_LOADED, which it also sends for its empty page and
    /// for its report of a page that cannot be read.
    bool pageLoaded() const noexcept { return pageLoaded_; }

    wxWebView* browserPreview = nullptr;
    /// Stands in for the browser when its process has ended.
    wxStaticText* lblEnded = nullptr;
    /// Above the page while something of it was not loaded, and what to do about it.
    wxToolBar* toolOtherPlaces = nullptr;
    wxButton* cmdLoadOtherPlaces = nullptr;

    /// Opens an address in the user's own browser.
    std::function<void(const std::string& address)> openAddress;

private:
    void openBrowser(PageReach reach);
    void loadPage();
    void tellOfOtherPlaces(std::size_t count);
    void loadOtherPlaces();
    void fillClientArea();
    bool isPage(const wxWebViewEvent& event) const;
    void onKey(BrowserKey key);
    void onEnded();

    WxDialogs dialogs_{this};
    std::string page_;
    bool pageLoaded_ = false;
    bool failed_ = false;
    std::unique_ptr<BrowserPolicy> policy_;
};

/// Shows the page modally, over `parent` or on its own.
void showPreview(wxWindow* parent, const std::string& path);

}  // namespace tavisk
