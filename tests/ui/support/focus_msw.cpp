#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/msw/wrapwin.h>

#include "ui/support/focus.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {

std::string focusedControl(const wxWindow& window) {
    if (GetActiveWindow() != static_cast<HWND>(window.GetHandle())) return "";
    const wxWindow* focus = wxWindow::FindFocus();
    if (!focus) return "";
    // A tree gives it to the part of it that has the rows.
    if (dynamic_cast<const wxDataViewCtrl*>(focus->GetParent())) focus = focus->GetParent();
    return utf8Of(focus->GetName());
}

bool dialogTakesKeys(const wxWindow& window) {
    const HWND active = GetActiveWindow();
    return active && active != static_cast<HWND>(window.GetHandle()) && IsWindowVisible(active);
}

bool isOpen(const wxChoice& list) {
    return SendMessageW(static_cast<HWND>(list.GetHandle()), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

}  // namespace tavisk::test
