#include "render/wx/frmPreview.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <utility>
#include <wx/display.h>
#include <wx/stattext.h>
#include <wx/webview.h>

#include "platform/error.h"
#include "platform/wx/handlers.h"
#include "platform/wx/launch.h"
#include "platform/wx/nativeExtras.h"
#include "platform/wx/strings.h"

namespace tavisk {
namespace {

constexpr float zoomStep = 1.1F;
constexpr float smallestZoom = 0.3F;
constexpr float greatestZoom = 5.0F;

bool standsForItself(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// As the browser writes it, too, so that the page's address can be compared.
std::string fileAddress(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path native(std::u8string(path.begin(), path.end()));
    const std::u8string full = fs::absolute(native).lexically_normal().generic_u8string();
    constexpr std::string_view digits = "0123456789ABCDEF";
    // A path may begin with a server, with the root, or with a drive.
    const bool onServer = full.starts_with(u8"//");
    const bool onDrive = !full.starts_with(u8"/");
    std::string address = onServer ? "file:" : onDrive ? "file:///" : "file://";
    for (const char8_t& unit : full) {
        const char c = static_cast<char>(unit);
        if (standsForItself(c) || (onDrive && &unit == &full[1])) {
            address += c;
        } else {
            address += {'%', digits[unit >> 4U], digits[unit & 15U]};
        }
    }
    return address;
}

/// Room for a page on any screen, and not more than there is.
wxSize firstSize(const wxWindow& window) {
    const int display = std::max(0, wxDisplay::GetFromWindow(&window));
    const wxSize screen = wxDisplay(static_cast<unsigned>(display)).GetClientArea().GetSize();
    wxSize size = window.FromDIP(wxSize(960, 680));
    size.DecTo(screen);
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

    prepareBrowserEngine();
    browserPreview =
        wxWebView::New(this, wxID_ANY, wxWebViewDefaultURLStr, wxDefaultPosition, wxDefaultSize,
                       wxWebViewBackendDefault, wxBORDER_NONE, "browserPreview");
    if (!browserPreview) raise(ErrorNumber::cannotLoadObject);
    // The browser calls from inside itself; what the window does follows when it has returned.
    const auto later = [this](const std::function<void()>& action) {
        CallAfter([this, action] { guarded(dialogs_, action); });
    };
    policy_ = std::make_unique<BrowserPolicy>(
        *browserPreview,
        BrowserEvents{
            .keyPressed = [this, later](BrowserKey key) { later([this, key] { onKey(key); }); },
            .addressClicked =
                [this, later](const std::string& address) {
                    later([this, address] { openAddress(address); });
                },
            .ended = [this, later] { later([this] { onEnded(); }); }});
    fillClientArea();

    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { guarded(dialogs_, [&] { fillClientArea(); }); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { guarded(dialogs_, [&] { endModal(); }); });
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
    pageLoaded_ = false;
    failed_ = false;
    policy_->load(page_);
}

bool frmPreview::isPage(const wxWebViewEvent& event) const {
    return utf8Of(event.GetURL()) == page_;
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
