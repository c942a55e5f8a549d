#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/msw/wrapwin.h>

#include "ui/support/drawing.h"
#include "ui/support/pump.h"

namespace tavisk::test {

wxImage imageOf(const wxWindow& window) {
    pumpPending();
    const wxSize size = window.GetClientSize();
    wxBitmap bitmap(size, 24);
    {
        wxMemoryDC memory(bitmap);
        memory.SetBackground(*wxWHITE);
        memory.Clear();
        const HWND handle = static_cast<HWND>(window.GetHandle());
        UpdateWindow(handle);
        const HDC screen = GetDC(handle);
        BitBlt(static_cast<HDC>(memory.GetHDC()), 0, 0, size.x, size.y, screen, 0, 0, SRCCOPY);
        ReleaseDC(handle, screen);
    }
    return bitmap.ConvertToImage();
}

}  // namespace tavisk::test
