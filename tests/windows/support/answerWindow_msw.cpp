#include <algorithm>
#include <wx/msw/wrapwin.h>

#include "windows/support/answerWindow.h"
// after windows.h
#include <richedit.h>

#include "windows/support/drawing.h"

namespace tavisk::test {
namespace {

HWND handleOf(const AnswerBox& box) { return static_cast<HWND>(box.GetHandle()); }

LRESULT send(const AnswerBox& box, UINT message, WPARAM first, LPARAM second) {
    return SendMessageW(handleOf(box), message, first, second);
}

CHARRANGE selected(const AnswerBox& box) {
    CHARRANGE range{};
    send(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

void select(const AnswerBox& box, CHARRANGE range) {
    send(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

char letterOf(COLORREF colour) {
    switch (colour) {
        case RGB(0, 0, 0): return '.';
        case RGB(0, 0, 255): return 'b';
        case RGB(0, 128, 0): return 'g';
        case RGB(128, 128, 0): return 'o';
        default: return '?';
    }
}

std::size_t characterAt(const AnswerBox& box, long x, long y) {
    POINTL point{x, y};
    return static_cast<std::size_t>(send(box, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
}

}  // namespace

std::string shownColours(const AnswerBox& box) {
    // Reading a colour needs a selection, which is put back before anybody sees it.
    send(box, WM_SETREDRAW, FALSE, 0);
    const LRESULT told = send(box, EM_SETEVENTMASK, 0, 0);
    const CHARRANGE before = selected(box);
    POINT view{};
    send(box, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&view));
    std::string letters;
    for (long at = 0; at < static_cast<long>(box.text().size()); ++at) {
        select(box, {at, at + 1});
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        send(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        const bool automatic = (format.dwEffects & CFE_AUTOCOLOR) != 0;
        letters += letterOf(automatic ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor);
    }
    select(box, before);
    send(box, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&view));
    send(box, EM_SETEVENTMASK, 0, told);
    send(box, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handleOf(box), nullptr, FALSE);
    return letters;
}

std::pair<std::size_t, std::size_t> seenCharacters(const AnswerBox& box) {
    RECT seen;
    GetClientRect(handleOf(box), &seen);
    return {characterAt(box, 0, 0), characterAt(box, seen.right - 1, seen.bottom - 1)};
}

double scrolledBy(const AnswerBox& box) {
    POINT view{};
    send(box, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&view));
    return view.y;
}

Drawing drawingOf(const AnswerBox& box) {
    const wxImage image = imageOf(box);
    Drawing counts;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x)
            ++counts[RGB(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y))];
    }
    return counts;
}

// A keyboard's own keys are enough here: nothing needs to be chosen.
void usePlainInputMethod(const AnswerBox&) {}

void useDarkTheme(bool dark) {
    constexpr INT elements[] = {COLOR_WINDOW, COLOR_WINDOWTEXT};
    static const COLORREF usual[] = {GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)};
    const COLORREF colours[] = {RGB(30, 30, 30), RGB(240, 240, 240)};
    SetSysColors(2, elements, dark ? colours : usual);
}

}  // namespace tavisk::test
