#include <algorithm>
#include <wx/dcclient.h>
#include <wx/msw/wrapwin.h>
// after windows.h
#include <commctrl.h>

#include "ui/support/editorLook.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {
namespace {

HWND handleOf(const wxWindow& window) { return static_cast<HWND>(window.GetHandle()); }

wxString windowText(const wxWindow& window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handleOf(window))) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(handleOf(window), text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

int leastWidth(wxWindow& control) {
    // A button's best size is that of all buttons.
    SIZE needed{};
    if (dynamic_cast<wxButton*>(&control) &&
        SendMessageW(handleOf(control), BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&needed)))
        return static_cast<int>(needed.cx);
    return control.GetBestSize().x;
}

std::string drawnText(const wxStaticText& label) {
    return utf8Of(wxControl::RemoveMnemonics(windowText(label)));
}

bool isElidedInTheMiddle(const wxStaticText& label) {
    const wxString drawn = wxControl::RemoveMnemonics(windowText(label));
    const wxString whole = label.GetLabelText();
    const std::size_t dots = drawn.find("...");
    return dots != wxString::npos && dots > 0 && whole.StartsWith(drawn.Left(dots)) &&
           whole.EndsWith(drawn.Mid(dots + 3)) && dots + 3 < drawn.length();
}

Wrapped wrapped(const wxStaticText& label) {
    wxClientDC dc(const_cast<wxStaticText*>(&label));
    dc.SetFont(label.GetFont());
    RECT room{0, 0, label.GetSize().x, 0};
    const wxString text = windowText(label);
    const int line = dc.GetCharHeight();
    DrawTextW(static_cast<HDC>(dc.GetHDC()), text.wc_str(), -1, &room,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL);
    const int needed = (static_cast<int>(room.bottom) + line - 1) / line;
    Wrapped result;
    result.lines = std::min(needed, label.GetSize().y / line);
    result.size = wxSize(static_cast<int>(room.right), result.lines * line);
    result.cut = needed > result.lines;
    return result;
}

bool elidesLongNames(const wxChoice& list) {
    // Here they are seen whole in the open list.
    const HWND window = handleOf(list);
    SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0);
    const LRESULT width = SendMessageW(window, CB_GETDROPPEDWIDTH, 0, 0);
    SendMessageW(window, CB_SHOWDROPDOWN, FALSE, 0);
    return width > list.GetSize().x;
}

bool isDrawnUnderlined(const wxCheckBox& box) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(handleOf(box), WM_GETFONT, 0, 0));
    LOGFONTW look{};
    return GetObjectW(font, sizeof look, &look) != 0 && look.lfUnderline;
}

}  // namespace tavisk::test
