#include <algorithm>
#include <wx/msw/wrapwin.h>

#include "ui/support/answerWindow.h"
// after windows.h
#include <richedit.h>
#include <richole.h>
#include <tom.h>
#include <wrl/client.h>

#include "ui/support/drawing.h"

namespace tavisk::test {
namespace {

using Microsoft::WRL::ComPtr;

HWND handleOf(const AnswerBox& box) { return static_cast<HWND>(box.GetHandle()); }

LRESULT send(const AnswerBox& box, UINT message, WPARAM first, LPARAM second) {
    return SendMessageW(handleOf(box), message, first, second);
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

std::string shownColours(const AnswerBox& box, std::size_t from, std::size_t to) {
    // By the text's own interface, which needs no selection for it.
    ComPtr<IRichEditOle> control;
    send(box, EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(control.GetAddressOf()));
    ComPtr<ITextDocument> document;
    constexpr GUID textDocument{
        0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};
    if (!control || FAILED(control->QueryInterface(
                        textDocument, reinterpret_cast<void**>(document.GetAddressOf()))))
        return "(no text)";
    std::string letters;
    const std::u16string text = box.text();
    const auto end = static_cast<long>(unitBehind(text, to));
    for (auto at = static_cast<long>(unitBehind(text, from)); at < end; ++at) {
        const char16_t unit = text[static_cast<std::size_t>(at)];
        if (unit >= 0xDC00 && unit <= 0xDFFF) continue;
        ComPtr<ITextRange> range;
        ComPtr<ITextFont> font;
        long colour = -1;
        if (SUCCEEDED(document->Range(at, at + 1, range.GetAddressOf())) &&
            SUCCEEDED(range->GetFont(font.GetAddressOf())))
            font->GetForeColor(&colour);
        letters += letterOf(colour == tomAutoColor ? GetSysColor(COLOR_WINDOWTEXT)
                                                   : static_cast<COLORREF>(colour));
    }
    return letters;
}

std::pair<std::size_t, std::size_t> seenCharacters(const AnswerBox& box) {
    RECT seen;
    GetClientRect(handleOf(box), &seen);
    const std::u16string text = box.text();
    const auto count = [&](std::size_t unit) {
        return characterCount(std::u16string_view(text).substr(0, unit));
    };
    return {count(characterAt(box, 0, 0)),
            count(characterAt(box, seen.right - 1, seen.bottom - 1))};
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
