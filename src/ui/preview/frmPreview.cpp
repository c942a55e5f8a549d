#include "ui/preview/frmPreview.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>
#include <wx/webview.h>

#include "base/error.h"
#include "base/files.h"
#include "page/otherPlaces.h"
#include "ui/preview/fileAddress.h"
#include "ui/toolkit/handlers.h"
#include "ui/toolkit/launch.h"
#include "ui/toolkit/nativeExtras.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

constexpr float zoomStep = 1.1F;
constexpr float smallestZoom = 0.3F;
constexpr float greatestZoom = 5.0F;

/// Room for a page on any screen, and not more than there is.
wxSize firstSize(const wxWindow& window) {
    wxSize size = window.FromDIP(wxSize(960, 680));
    size.DecTo(wxDisplay(&window).GetClientArea().GetSize());
    return size;
}

}  // namespace

frmPreview::frmPreview(wxWindow* parent)
    : ModalFrame(parent, wxID_ANY, "Help Preview", wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_FRAME_STYLE | (parent ? wxFRAME_FLOAT_ON_PARENT : 0), "frmPreview"),
      openAddress([](const std::string& address) { openInUsersBrowser(address); }) {
    placeByRealSize(*this);
    SetSize(firstSize(parent ? *parent : *this));
    CentreOnParent();

    openBrowser(PageReach::files);

    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { guarded(dialogs_, [&] { fillClientArea(); }); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { guarded(dialogs_, [&] { endModal(); }); });
}

void frmPreview::openBrowser(PageReach reach) {
    policy_.reset();
    if (browserPreview) browserPreview->Destroy();
    browserPreview = newConfinedBrowser(*this, "browserPreview", reach);
    if (!browserPreview) raise(ErrorNumber::cannotLoadObject);
    // The browser calls from inside itself; what the window does follows when it has returned.
    const auto later = [this](const std::function<void()>& action) {
        CallAfter([this, action] { guarded(dialogs_, action); });
    };
    policy_ = std::make_unique<BrowserPolicy>(
        *browserPreview, reach,
        BrowserEvents{
            .keyPressed = [this, later](BrowserKey key) { later([this, key] { onKey(key); }); },
            .addressClicked =
                [this, later](const std::string& address) {
                    later([this, address] { openAddress(address); });
                },
            .ended = [this, later] { later([this] { onEnded(); }); }});
    fillClientArea();
    browserPreview->Bind(wxEVT_WEBVIEW_ERROR, [this](wxWebViewEvent& event) {
        guarded(dialogs_, [&] {
            if (isPage(event)) failed_ = true;
            event.Skip();
        });
    });
    browserPreview->Bind(wxEVT_WEBVIEW_LOADED, [this](wxWebViewEvent& event) {
        guarded(dialogs_, [&] {
            if (isPage(event) && !failed_) pageLoaded_ = true;
            event.Skip();
        });
    });
    browserPreview->SetFocus();
}

void frmPreview::navigate(const std::string& path) {
    page_ = fileAddress(path);
    loadPage();
    DiskFiles files;
    if (files.fileExists(path)) tellOfOtherPlaces(countOtherPlaces(files.read(path)));
}

void frmPreview::loadPage() {
    pageLoaded_ = false;
    failed_ = false;
    policy_->load(page_);
}

void frmPreview::tellOfOtherPlaces(std::size_t count) {
    if (count == 0) return;
    // A bar of the frame: the page has the client area for itself.
    toolOtherPlaces = CreateToolBar(wxTB_HORIZONTAL | wxTB_NODIVIDER, wxID_ANY, "toolOtherPlaces");
    const wxString said =
        count == 1 ? wxString("1 thing from another place was not loaded")
                   : wxString::Format("%zu things from other places were not loaded", count);
    toolOtherPlaces->AddControl(new wxStaticText(toolOtherPlaces, wxID_ANY, said + "  ",
                                                 wxDefaultPosition, wxDefaultSize, 0,
                                                 "lblOtherPlaces"));
    cmdLoadOtherPlaces = new wxButton(toolOtherPlaces, wxID_ANY, "&Load them");
    cmdLoadOtherPlaces->SetName("cmdLoadOtherPlaces");
    cmdLoadOtherPlaces->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        // The button goes with its bar.
        CallAfter([this] { guarded(dialogs_, [&] { loadOtherPlaces(); }); });
    });
    toolOtherPlaces->AddControl(cmdLoadOtherPlaces);
    toolOtherPlaces->Realize();
    fillClientArea();
}

void frmPreview::loadOtherPlaces() {
    if (!toolOtherPlaces) return;
    SetToolBar(nullptr);
    std::exchange(toolOtherPlaces, nullptr)->Destroy();
    cmdLoadOtherPlaces = nullptr;
    openBrowser(PageReach::everywhere);
    loadPage();
}

bool frmPreview::isPage(const wxWebViewEvent& event) const {
    return spelledLike(page_, utf8Of(event.GetURL())) == page_;
}

void frmPreview::fillClientArea() {
    const wxSize client = GetClientSize();
    const wxSize size(std::max(0, client.x), std::max(0, client.y));
    browserPreview->SetSize(0, 0, size.x, size.y);
    if (lblEnded) lblEnded->SetSize(0, 0, size.x, size.y);
}

void frmPreview::onKey(BrowserKey key) {
    const auto zoom = [this](float factor) {
        browserPreview->SetZoomFactor(std::clamp(factor, smallestZoom, greatestZoom));
    };
    switch (key) {
        case BrowserKey::close: Close(); break;
        case BrowserKey::zoomIn: zoom(browserPreview->GetZoomFactor() * zoomStep); break;
        case BrowserKey::zoomOut: zoom(browserPreview->GetZoomFactor() / zoomStep); break;
        case BrowserKey::zoomNormal: zoom(1.0F); break;
    }
}

void frmPreview::onEnded() {
    if (lblEnded) return;
    pageLoaded_ = false;
    browserPreview->Hide();
    lblEnded = new wxStaticText(this, wxID_ANY,
                                "The page can no longer be shown, because the browser engine has "
                                "ended.\nClose this window and preview again.",
                                wxDefaultPosition, wxDefaultSize,
                                wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE, "lblEnded");
    fillClientArea();
}

void showPreview(wxWindow* parent, const std::string& path) {
    frmPreview preview(parent);
    preview.navigate(path);
    preview.showModal();
}

}  // namespace tavisk
