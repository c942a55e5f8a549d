#include <algorithm>
#include <array>
#include <cwctype>
#include <vector>
#include <windows.h>
// after windows.h
#include <commctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/settings.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

HWND handleOf(const wxWindow* window) { return static_cast<HWND>(window->GetHandle()); }

/// An open list closes by this key.
bool needsEscape(const wxWindow* focus) {
    return dynamic_cast<const wxChoice*>(focus) &&
           SendMessageW(handleOf(focus), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

/// What the key would type without Alt, in capitals, or 0.
wchar_t letterOf(const wxKeyEvent& event) {
    std::array<BYTE, 256> state{};
    GetKeyboardState(state.data());
    state[VK_MENU] = 0;
    std::array<wchar_t, 4> typed{};
    constexpr UINT leaveStateAlone = 4;
    const int count = ToUnicode(event.GetRawKeyCode(), 0, state.data(), typed.data(),
                                static_cast<int>(typed.size()), leaveStateAlone);
    return count == 1 ? static_cast<wchar_t>(std::towupper(typed[0])) : L'\0';
}

bool hasMnemonic(const wxWindow& window, wchar_t letter) {
    const wxString& caption = window.GetLabel();
    const std::size_t at = caption.find('&');
    return (dynamic_cast<const wxButton*>(&window) || dynamic_cast<const wxCheckBox*>(&window)) &&
           at + 1 < caption.length() && std::towupper(caption[at + 1]) == letter;
}

void collect(wxWindow& window, wchar_t letter, std::vector<wxWindow*>& found,
             std::size_t& beforeFocus) {
    if (!window.IsShown() || !window.IsEnabled()) return;
    if (hasMnemonic(window, letter)) found.push_back(&window);
    if (window.HasFocus()) beforeFocus = found.size();
    for (wxWindow* child : window.GetChildren()) {
        if (!child->IsTopLevel()) collect(*child, letter, found, beforeFocus);
    }
}

bool isMenuOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE) != 0;
}

/// Returns whether there was something to click or to go to.
bool followMnemonic(wxTopLevelWindow& window, const wxKeyEvent& event) {
    const wchar_t letter = letterOf(event);
    if (letter == L'\0' || isMenuOpen()) return false;
    std::vector<wxWindow*> found;
    std::size_t next = 0;
    collect(window, letter, found, next);
    if (found.empty()) return false;
    wxWindow& control = *found[next % found.size()];
    control.SetFocus();
    if (found.size() == 1) PostMessageW(handleOf(&control), BM_CLICK, 0, 0);
    return true;
}

const wxSize paddingOfText(6, 3);

void drawPadded(wxStaticText& label) {
    wxPaintDC dc(&label);
    const wxColour background = label.UseBackgroundColour()
                                    ? label.GetBackgroundColour()
                                    : label.GetParent()->GetBackgroundColour();
    dc.SetBackground(background);
    dc.Clear();
    dc.SetFont(label.GetFont());
    dc.SetTextForeground(label.IsEnabled() ? label.GetForegroundColour()
                                           : wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    const wxSize padding = label.FromDIP(paddingOfText);
    const wxRect place = wxRect(label.GetClientSize()).Deflate(padding.x, 0);
    const wxString text =
        wxControl::Ellipsize(label.GetLabelText(), dc, wxELLIPSIZE_END, place.width);
    dc.DrawLabel(text, place, wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
}

/// As wide as its longest name, and no wider than the screen.
void widenOpenList(const wxChoice& list) {
    wxClientDC dc(const_cast<wxChoice*>(&list));
    dc.SetFont(list.GetFont());
    int widest = 0;
    for (unsigned i = 0; i != list.GetCount(); ++i)
        widest = std::max(widest, dc.GetTextExtent(list.GetString(i)).x);
    const int besides = GetSystemMetrics(SM_CXVSCROLL) + list.FromDIP(paddingOfText.x * 2);
    const int width = std::min(widest + besides, wxDisplay(&list).GetClientArea().width);
    SendMessageW(handleOf(&list), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

LRESULT CALLBACK widenWhenOpened(HWND parent, UINT message, WPARAM what, LPARAM sender, UINT_PTR,
                                 DWORD_PTR which) {
    const auto& list = *reinterpret_cast<const wxChoice*>(which);
    if (message == WM_COMMAND && HIWORD(what) == CBN_DROPDOWN &&
        reinterpret_cast<HWND>(sender) == handleOf(&list)) {
        try {
            widenOpenList(list);
        } catch (...) {
            // It works as wide as it is, too.
        }
    }
    return DefSubclassProc(parent, message, what, sender);
}

}  // namespace

// Windows knows a window's frame before it is shown.
void placeByRealSize(wxTopLevelWindow&) {}

void setCancelButton(wxTopLevelWindow& window, wxButton& button) {
    window.Bind(wxEVT_CHAR_HOOK, [&button](wxKeyEvent& event) {
        if (event.GetKeyCode() != WXK_ESCAPE || event.HasAnyModifiers() || !button.IsEnabled() ||
            needsEscape(wxWindow::FindFocus())) {
            event.Skip();
            return;
        }
        wxCommandEvent click(wxEVT_BUTTON, button.GetId());
        click.SetEventObject(&button);
        button.GetEventHandler()->ProcessEvent(click);
    });
}

// The system looks within the innermost frame only.
void letMnemonicsReach(wxTopLevelWindow& window) {
    window.Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
        const bool withAlt = event.AltDown() && !event.ControlDown();
        if (!withAlt || !followMnemonic(window, event)) event.Skip();
    });
}

bool okStandsLast() { return false; }

// The desktop's own frames look like this already.
void styleCaption(wxStaticBox&) {}

// The font does.
void underlineCaption(wxCheckBox&) {}

void wrapText(wxStaticText& label, int) {
    label.SetWindowStyle(label.GetWindowStyle() & ~wxST_ELLIPSIZE_END);
    const HWND window = handleOf(&label);
    // Whole words and whole lines only.
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE) & ~(SS_TYPEMASK | SS_ELLIPSISMASK);
    SetWindowLongPtrW(window, GWL_STYLE, style | SS_LEFT | SS_EDITCONTROL);
}

wxSize padText(wxStaticText& label) {
    label.Bind(wxEVT_PAINT, [&label](wxPaintEvent&) { drawPadded(label); });
    label.Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    return label.FromDIP(paddingOfText * 2);
}

void paintGap(wxDC& dc, const wxWindow& window, const wxRect& gap) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(window.GetBackgroundColour());
    dc.DrawRectangle(gap);
}

// The list tells its parent that it opens.
void expectManyNames(wxChoice& list) {
    SetWindowSubclass(handleOf(list.GetParent()), widenWhenOpened,
                      reinterpret_cast<UINT_PTR>(&list), reinterpret_cast<DWORD_PTR>(&list));
}

}  // namespace tavisk
