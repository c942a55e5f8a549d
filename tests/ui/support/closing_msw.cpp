#include <wx/window.h>

#include "ui/support/closing.h"
// after those of wxWidgets
#include <wx/msw/wrapwin.h>

namespace tavisk::test {

void closeFromOutside(const wxWindow& window) {
    PostMessageW(static_cast<HWND>(window.GetHandle()), WM_SYSCOMMAND, SC_CLOSE, 0);
}

}  // namespace tavisk::test
