#include "render/wx/frmPreview.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <wx/display.h>
#include <wx/stattext.h>
#include <wx/webview.h>

#include "platform/error.h"
#include "platform/wx/handlers.h"
#include "platform/wx/launch.h"
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
    std::string address = "file://";
    for (const char8_t unit : full) {
        const char c = static_cast<char>(unit);
        if (standsForItself(c)) {
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
    SetSize(firstSize(parent ? *parent : *this));
    CentreOnParent();

    prepareBrowserEngine();
    browserPreview =
        wxWebView::New(this, wxID_ANY, wxWebViewDefaultURLStr, wxDefaultPosition, wxDefaultSize,
                       wxWebViewBackendDefault, wxBORDER_NONE, "browserPreview");
    if (!browserPreview) raise(ErrorNumber::cannotLoadObject);
    // The browser calls from inside itself; what a window does follows when it has returned.
    policy_ = std::make_unique<BrowserPolicy>(
        *browserPreview,
        BrowserEvents{[this](const std::string& address) {
                          CallAfter([this, address] {
                              guarded(dialogs_, [&] { openAddress(address); });
                          });
                      },
                      [this] { CallAfter([this] { guarded(dialogs_, [&] { showEnded(); }); }); }});
    fillClientArea();

    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { guarded(dialogs_, [&] { fillClientArea(); }); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { guarded(dialogs_, [&] { endModal(); }); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { guarded(dialogs_, [&] { onKey(event); }); });
    browserPreview->Bind(wxEVT_WEBVIEW_LOADED, [this](wxWebViewEvent& event) {
        guarded(dialogs_, [&] {
            if (utf8Of(event.GetURL()) == page_) pageLoaded_ = true;
            event.Skip();
        });
    });
    browserPreview->SetFocus();
}

void frmPreview::navigate(const std::string& path) {
    page_ = fileAddress(path);
    pageLoaded_ = false;
    policy_->load(page_);
}

void frmPreview::fillClientArea() {
    const wxSize client = GetClientSize();
    const wxSize size(std::max(0, client.x), std::max(0, client.y));
    browserPreview->SetSize(0, 0, size.x, size.y);
    if (lblEnded) lblEnded->SetSize(0, 0, size.x, size.y);
}

void frmPreview::onKey(wxKeyEvent& event) {
    const float zoom = browserPreview->GetZoomFactor();
    const auto setZoom = [this](float factor) {
        browserPreview->SetZoomFactor(std::clamp(factor, smallestZoom, greatestZoom));
    };
    const bool control = event.GetModifiers() == wxMOD_CONTROL ||
                         event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT);
    const int key = event.GetKeyCode();
    if (key == WXK_ESCAPE && event.GetModifiers() == wxMOD_NONE) {
        Close();
        return;
    }
    if (!control) {
        event.Skip();
        return;
    }
    switch (key) {
        case 'W': Close(); break;
        // The plus shares its key with the equals sign on many keyboards.
        case '+':
        case '=':
        case WXK_NUMPAD_ADD: setZoom(zoom * zoomStep); break;
        case '-':
        case WXK_NUMPAD_SUBTRACT: setZoom(zoom / zoomStep); break;
        case '0':
        case WXK_NUMPAD0: setZoom(1.0F); break;
        default: event.Skip();
    }
}

void frmPreview::showEnded() {
    if (lblEnded) return;
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
