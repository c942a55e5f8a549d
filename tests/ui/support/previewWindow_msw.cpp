#include <algorithm>
#include <wx/eventfilter.h>

#include "ui/support/previewWindow.h"
// after those of wxWidgets
#include <wx/msw/ole/activex.h>
// after windows.h
#include <exdispid.h>

#include "ui/support/drawing.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {

struct AskedAddresses::Hook final : wxEventFilter {
    Hook() { wxEvtHandler::AddFilter(this); }
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;
    ~Hook() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& event) override {
        if (event.GetEventType() != wxEVT_ACTIVEX) return Event_Skip;
        auto& native = static_cast<wxActiveXEvent&>(event);
        if (native.GetDispatchId() == DISPID_BEFORENAVIGATE2)
            addresses.push_back(utf8Of(native[1].GetString()));
        if (native.GetDispatchId() == DISPID_NEWWINDOW3)
            addresses.push_back(utf8Of(native[4].GetString()));
        return Event_Skip;
    }

    std::vector<std::string> addresses;
};

AskedAddresses::AskedAddresses() : hook_(std::make_unique<Hook>()) {}
AskedAddresses::~AskedAddresses() = default;

std::size_t AskedAddresses::count(std::string_view address) const {
    return static_cast<std::size_t>(
        std::count(hook_->addresses.begin(), hook_->addresses.end(), address));
}

std::string shownText(const wxWebView& browser) {
    wxString text = browser.GetPageText();
    text.Replace("\r\n", "\n");
    return utf8Of(text);
}

std::uint32_t shownColour(const wxWebView& browser, int x, int y) {
    const wxImage image = imageOf(browser);
    return static_cast<std::uint32_t>(image.GetRed(x, y) << 16U | image.GetGreen(x, y) << 8U |
                                      image.GetBlue(x, y));
}

void clickAt(const wxWebView& browser, const wxPoint& place, int button) {
    wxUIActionSimulator pointer;
    // From elsewhere, so that there is a movement.
    pointer.MouseMove(browser.ClientToScreen(place + wxPoint(5, 5)));
    pointer.MouseMove(browser.ClientToScreen(place));
    pointer.MouseClick(button);
    pumpPending();
}

}  // namespace tavisk::test
