#include <windows.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include "platform/wx/nativeExtras.h"

namespace tavisk {
namespace {

HWND handleOf(const wxWindow* window) { return static_cast<HWND>(window->GetHandle()); }

/// An open list closes by this key.
bool needsEscape(const wxWindow* focus) {
    return dynamic_cast<const wxChoice*>(focus) &&
           SendMessageW(handleOf(focus), CB_GETDROPPEDSTATE, 0, 0) != 0;
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

void expectManyNames(wxChoice&) {}

}  // namespace tavisk
