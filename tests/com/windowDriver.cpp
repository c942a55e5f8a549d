// Finds windows and their controls from outside and uses them. A line of standard input is a
// command with its words between tabs, and each is answered by a line of standard output that
// begins with "ok" or "failed". TITLE is that of a window on the screen; a box may also be called
// by its text. Whatever a command needs is waited for.
//
//     window TITLE
//     gone TITLE
//     remember TITLE
//     another TITLE                   one that is not the remembered one
//     press TITLE CAPTION             a button or check box
//     checked TITLE CAPTION 0|1
//     text TITLE TEXT                 the text that can be written in, once it is TEXT
//     type TITLE TEXT                 at the end of that text
//     key TITLE NUMBER                a key of the control that has the focus
//     close TITLE                     as by the button in its corner
//     enabled TITLE 0|1
//     windows                         everything that is on the screen
#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <io.h>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>
#include <windows.h>

namespace {

using Words = std::vector<std::wstring>;

constexpr UINT patience = 5000;
constexpr ULONGLONG deadline = 60000;

std::wstring textOf(HWND window) {
    std::wstring text(1 << 16, L'\0');
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_ABORTIFHUNG, patience, &length);
    text.resize(std::min<std::size_t>(length, text.size()));
    return text;
}

LRESULT ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, w, l, SMTO_ABORTIFHUNG, patience, &result);
    return static_cast<LRESULT>(result);
}

std::wstring classOf(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, 256);
    return name;
}

BOOL CALLBACK collect(HWND window, LPARAM list) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> topWindows() {
    std::vector<HWND> found;
    EnumWindows(collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<HWND> controls(HWND window) {
    std::vector<HWND> found;
    EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::wstring plain(std::wstring caption) {
    std::erase(caption, L'&');
    std::erase(caption, L'\r');
    return caption;
}

HWND findWindow(const std::wstring& title) {
    for (const HWND window : topWindows()) {
        if (textOf(window) == title) return window;
        if (classOf(window) != L"#32770") continue;
        for (const HWND control : controls(window)) {
            if (plain(textOf(control)) == title) return window;
        }
    }
    return nullptr;
}

HWND findControl(HWND window, const std::function<bool(HWND)>& fits) {
    const std::vector<HWND> all = controls(window);
    const auto found = std::find_if(all.begin(), all.end(), fits);
    return found == all.end() ? nullptr : *found;
}

bool isButton(HWND control, const std::wstring& caption) {
    return lstrcmpiW(classOf(control).c_str(), L"Button") == 0 &&
           plain(textOf(control)) == caption && IsWindowEnabled(control);
}

bool isTextBox(HWND control) {
    return classOf(control).starts_with(L"RichEdit") || classOf(control).starts_with(L"RICHEDIT");
}

/// Tries until it holds; false when it never does.
bool waitFor(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + deadline;
    while (!condition()) {
        if (GetTickCount64() > end) return false;
        Sleep(10);
    }
    return true;
}

/// Waits for a control in a window that takes input.
HWND control(const std::wstring& title, const std::function<bool(HWND)>& fits) {
    HWND found = nullptr;
    waitFor([&] {
        const HWND window = findWindow(title);
        if (window && IsWindowEnabled(window)) found = findControl(window, fits);
        return found != nullptr;
    });
    return found;
}

HWND button(const Words& words) {
    return control(words[1], [&](HWND window) { return isButton(window, words[2]); });
}

bool press(const Words& words) {
    const HWND found = button(words);
    return found && PostMessageW(found, BM_CLICK, 0, 0);
}

bool checked(const Words& words) {
    const HWND found = button(words);
    return found && waitFor([&] { return ask(found, BM_GETCHECK) == std::stoi(words[3]); });
}

bool text(const Words& words) {
    const HWND found = control(words[1], isTextBox);
    return found && waitFor([&] { return textOf(found) == words[2]; });
}

bool type(const Words& words) {
    const HWND found = control(words[1], isTextBox);
    if (!found) return false;
    const LRESULT length = ask(found, WM_GETTEXTLENGTH);
    ask(found, EM_SETSEL, static_cast<WPARAM>(length), length);
    for (const wchar_t unit : words[2])
        PostMessageW(found, WM_CHAR, unit, 1);
    return true;
}

HWND waitForWindow(const std::wstring& title) {
    HWND window = nullptr;
    waitFor([&] { return (window = findWindow(title)) != nullptr; });
    return window;
}

HWND remembered = nullptr;

bool remember(const Words& words) { return (remembered = waitForWindow(words[1])) != nullptr; }

bool another(const Words& words) {
    return waitFor([&] {
        const HWND window = findWindow(words[1]);
        return window && window != remembered;
    });
}

bool key(const Words& words) {
    const HWND window = waitForWindow(words[1]);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const auto hasFocus = [&] {
        return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) && info.hwndFocus;
    };
    if (!window || !waitFor(hasFocus)) return false;
    const auto number = static_cast<WPARAM>(std::stoi(words[2]));
    return PostMessageW(info.hwndFocus, WM_KEYDOWN, number, 1) &&
           PostMessageW(info.hwndFocus, WM_KEYUP, number, static_cast<LPARAM>(0xC0000001));
}

bool enabled(const Words& words) {
    const HWND window = waitForWindow(words[1]);
    const bool wanted = words[2] == L"1";
    return window && waitFor([&] { return (IsWindowEnabled(window) != 0) == wanted; });
}

void describe(std::wostream& out, HWND window) {
    out << L" [" << classOf(window) << L"|" << plain(textOf(window)).substr(0, 80) << L"]";
}

bool perform(const Words& words, std::wostream& out) {
    if (words[0] == L"window") return waitForWindow(words[1]) != nullptr;
    if (words[0] == L"gone") return waitFor([&] { return !findWindow(words[1]); });
    if (words[0] == L"remember") return remember(words);
    if (words[0] == L"another") return another(words);
    if (words[0] == L"press") return press(words);
    if (words[0] == L"checked") return checked(words);
    if (words[0] == L"text") return text(words);
    if (words[0] == L"type") return type(words);
    if (words[0] == L"key") return key(words);
    if (words[0] == L"enabled") return enabled(words);
    if (words[0] == L"close") return PostMessageW(waitForWindow(words[1]), WM_CLOSE, 0, 0) != 0;
    if (words[0] != L"windows") return false;
    for (const HWND window : topWindows()) {
        describe(out, window);
        for (const HWND inside : controls(window))
            describe(out, inside);
    }
    return true;
}

std::wstring wide(const std::string& utf8) {
    std::wstring text(utf8.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), text.data(),
                            static_cast<int>(text.size()))));
    return text;
}

std::string narrow(const std::wstring& text) {
    std::string utf8(3 * text.size(), '\0');
    utf8.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(),
                            static_cast<int>(utf8.size()), nullptr, nullptr)));
    std::replace(utf8.begin(), utf8.end(), '\n', ' ');
    return utf8;
}

/// "\n" in a word is a line break.
Words split(const std::string& line) {
    Words words;
    std::istringstream in(line);
    for (std::string word; std::getline(in, word, '\t');) {
        for (auto at = word.find("\\n"); at != std::string::npos; at = word.find("\\n"))
            word.replace(at, 2, "\n");
        words.push_back(wide(word));
    }
    words.resize(4);
    return words;
}

}  // namespace

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    for (std::string line; std::getline(std::cin, line);) {
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        std::wostringstream out;
        const bool done = perform(split(line), out);
        if (!done) perform({L"windows"}, out);
        std::cout << (done ? "ok" : "failed") << narrow(out.str()) << std::endl;
    }
}
