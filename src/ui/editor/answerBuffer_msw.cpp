#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <wx/textctrl.h>

#include "ui/editor/answerBuffer.h"
#include "ui/editor/carriageReturn_msw.h"
// after those of wxWidgets
#include <wx/msw/wrapwin.h>
// after windows.h
#include <commctrl.h>
#include <richedit.h>
#include <richole.h>
#include <tom.h>
#include <wrl/client.h>

namespace tavisk {
namespace {

using Microsoft::WRL::ComPtr;

constexpr Colour paper = 0xFFFFFF;
constexpr Colour disabledPaper = 0xEBEBEB;
/// The user's own letters, a little larger.
constexpr float fontScale = 1.1F;
constexpr int sideMargin = 8;

constexpr UINT utf16 = 1200;

/// Of ITextDocument, which the libraries have no number for.
constexpr GUID textDocument{
    0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};

struct Selection {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// After these, the selection does not tell what was changed.
bool changesAnywhere(UINT message, WPARAM parameter) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    switch (message) {
        case WM_UNDO:
        case EM_UNDO:
        case EM_REDO:
        case WM_SETTEXT:
        case EM_SETTEXTEX:
        case WM_SYSKEYDOWN: return true;
        case EM_STREAMIN: return !(parameter & SFF_SELECTION);
        case WM_KEYDOWN: return control && (parameter == 'Z' || parameter == 'Y');
        default: return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    }
}

/// These leave the text behind as one that was never modified.
bool setsText(UINT message) {
    return message == WM_SETTEXT || message == EM_SETTEXTEX || message == EM_STREAMIN;
}

}  // namespace

struct AnswerBuffer::Native {
    Native(wxTextCtrl& textBox, std::function<void()> whenDrawing)
        : box(textBox),
          window(static_cast<HWND>(textBox.GetHandle())),
          drawing(std::move(whenDrawing)) {
        ComPtr<IRichEditOle> control;
        send(EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(control.GetAddressOf()));
        if (control)
            control->QueryInterface(textDocument,
                                    reinterpret_cast<void**>(document.GetAddressOf()));
        // What is pasted would bring its look along, and what is dropped also pictures and files.
        box.Bind(wxEVT_TEXT_PASTE, &Native::onPaste, this);
        RevokeDragDrop(window);
        // How long a text may be is not for the control to say.
        send(EM_EXLIMITTEXT, 0, std::numeric_limits<int>::max());
        dress();
        SetWindowSubclass(window, onMessage, 0, reinterpret_cast<DWORD_PTR>(this));
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() {
        RemoveWindowSubclass(window, onMessage, 0);
        box.Unbind(wxEVT_TEXT_PASTE, &Native::onPaste, this);
    }

    /// The text is black and the token colours are made for paper, whatever the desktop's colours.
    void dress() {
        box.SetFont(box.GetFont().Scaled(fontScale));
        box.SetForegroundColour(wxColour(plainTextColour));
        box.SetBackgroundColour(wxColour(paper));
        box.SetMargins(box.FromDIP(sideMargin));
    }

    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        const bool within = std::exchange(own, true);
        const LRESULT result = SendMessageW(window, message, first, second);
        own = within;
        drawAgain();
        return result;
    }
    /// Nobody was told of what was drawn within another message.
    void drawAgain() const {
        if (!drawnUntold || own || isHandling) return;
        drawnUntold = false;
        InvalidateRect(window, nullptr, FALSE);
    }

    std::size_t length() const {
        GETTEXTLENGTHEX wanted{GTL_NUMCHARS | GTL_PRECISE, utf16};
        return static_cast<std::size_t>(
            send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&wanted)));
    }
    std::u16string text() const {
        std::u16string units(length() + 1, u'\0');
        GETTEXTEX wanted{};
        wanted.cb = static_cast<DWORD>(units.size() * sizeof(char16_t));
        wanted.codepage = utf16;
        const LRESULT read = send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted),
                                  reinterpret_cast<LPARAM>(units.data()));
        units.resize(static_cast<std::size_t>(read));
        // The ends of paragraphs, and the lines of one that Shift+Enter makes.
        std::replace_if(
            units.begin(), units.end(), [](char16_t c) { return c == u'\r' || c == u'\v'; }, u'\n');
        std::replace(units.begin(), units.end(), carriageReturnInBox, u'\r');
        return units;
    }
    Selection selection() const {
        CHARRANGE range{};
        send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        return {static_cast<std::size_t>(std::max<LONG>(range.cpMin, 0)),
                static_cast<std::size_t>(std::max<LONG>(range.cpMax, 0))};
    }

    /// Notes what has changed since the message began, or since this was called in it.
    void look() {
        const std::size_t now = length();
        // Cutting does not always count as a modification.
        if (!std::exchange(isSetting, false) && send(EM_GETMODIFY) == 0 && now == lengthBefore)
            return;
        send(EM_SETMODIFY, FALSE);
        const Selection after = selection();
        if (!isHandling || anywhere) {
            untouched = {0, 0};
        } else {
            const std::size_t behind = std::min(lengthBefore - std::min(lengthBefore, before.to),
                                                now - std::min(now, after.to));
            untouched.start = std::min({untouched.start, before.from, after.from});
            untouched.end = std::min(untouched.end, behind);
        }
        changed = true;
        begin(now, after);
    }
    void begin(std::size_t now, Selection selected) {
        lengthBefore = now;
        before = selected;
    }

    LRESULT handle(UINT message, WPARAM first, LPARAM second) {
        if (message == WM_PAINT && !isDrawing && (own || isHandling)) drawnUntold = true;
        if (own || isHandling || message == WM_DESTROY || message == WM_NCDESTROY)
            return DefSubclassProc(window, message, first, second);
        if (message == WM_PAINT) draw();
        look();
        isHandling = true;
        anywhere = changesAnywhere(message, first);
        isSetting = setsText(message);
        begin(length(), selection());
        const LRESULT result = DefSubclassProc(window, message, first, second);
        look();
        isHandling = false;
        drawAgain();
        if (message == WM_PAINT) draw();
        if (message == WM_ENABLE)
            send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(first ? paper : disabledPaper));
        return result;
    }
    void draw() noexcept {
        const bool within = std::exchange(isDrawing, true);
        try {
            drawing();
        } catch (...) {
            // Without memory for the colours the text is still there.
        }
        isDrawing = within;
    }
    static LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR, DWORD_PTR self) {
        if (message == WM_NCDESTROY) RemoveWindowSubclass(window, onMessage, 0);
        return reinterpret_cast<Native*>(self)->handle(message, first, second);
    }

    void onPaste(wxClipboardTextEvent&) { send(EM_PASTESPECIAL, CF_UNICODETEXT); }

    /// Runs `action`, which changes colours only, as if nothing had been done to the text: the
    /// control itself counts colours among the changes, and would take them back with them.
    template <class Action>
    void quietly(Action action) {
        if (!document) return;
        look();
        const LRESULT told = send(EM_SETEVENTMASK, 0, 0);
        const bool within = std::exchange(own, true);
        long count = 0;
        document->Undo(tomSuspend, &count);
        document->Freeze(&count);
        action();
        document->Unfreeze(&count);
        document->Undo(tomResume, &count);
        own = within;
        drawAgain();
        send(EM_SETEVENTMASK, 0, told);
        send(EM_SETMODIFY, FALSE);
    }
    void colour(std::size_t from, std::size_t to, Colour colour) const {
        ComPtr<ITextRange> range;
        ComPtr<ITextFont> font;
        if (FAILED(document->Range(static_cast<long>(from), static_cast<long>(to),
                                   range.GetAddressOf())) ||
            FAILED(range->GetFont(font.GetAddressOf())))
            return;
        font->SetForeColor(static_cast<long>(colour));
    }

    std::size_t characterAt(int x, int y) const {
        POINTL point{x, y};
        return static_cast<std::size_t>(
            std::max<LRESULT>(send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)), 0));
    }

    static constexpr UntouchedEnds everything{std::numeric_limits<std::size_t>::max(),
                                              std::numeric_limits<std::size_t>::max()};

    wxTextCtrl& box;
    HWND window;
    std::function<void()> drawing;
    ComPtr<ITextDocument> document;
    UntouchedEnds untouched = everything;
    bool changed = false;  ///< since `untouched` was everything

    mutable bool own = false;  ///< what the control is told comes from here
    bool isDrawing = false;
    mutable bool drawnUntold = false;

    // The message that the control is handling.
    bool isHandling = false;
    bool anywhere = false;
    bool isSetting = false;
    std::size_t lengthBefore = 0;
    Selection before;
};

AnswerBuffer::AnswerBuffer(wxTextCtrl& box, std::function<void()> drawing)
    : native_(std::make_unique<Native>(box, std::move(drawing))) {}

AnswerBuffer::~AnswerBuffer() = default;

std::u16string AnswerBuffer::text() const { return native_->text(); }

std::size_t AnswerBuffer::length() const { return native_->length(); }

UntouchedEnds AnswerBuffer::takeUntouchedEnds() {
    native_->look();
    native_->changed = false;
    return std::exchange(native_->untouched, Native::everything);
}

bool AnswerBuffer::isUntouched() const {
    native_->look();
    return !native_->changed;
}

void AnswerBuffer::colour(const std::vector<ColourRun>& runs) {
    if (runs.empty()) return;
    native_->quietly([&] {
        for (const ColourRun& run : runs)
            native_->colour(run.start, run.start + run.length, run.colour);
    });
}

void AnswerBuffer::clearColours() {
    native_->quietly([&] { native_->colour(0, native_->length(), plainTextColour); });
}

void AnswerBuffer::scrollToTop() {
    POINT top{0, 0};
    native_->send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&top));
}

TextRange AnswerBuffer::visible() const {
    RECT seen;
    GetClientRect(native_->window, &seen);
    return {native_->characterAt(0, 0), native_->characterAt(seen.right - 1, seen.bottom - 1)};
}

}  // namespace tavisk
