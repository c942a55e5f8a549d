// What the hosts in C++ share: the calls of host.vbs, and its answers.
#pragma once

#include <fstream>
#include <functional>
#include <iostream>
#include <ole2.h>
#include <string>

/// A text of the system that is given back at the end.
class Text {
public:
    Text() = default;
    explicit Text(const std::wstring& text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }

    BSTR* operator&() { return &text_; }
    BSTR get() const { return text_; }
    std::wstring str() const { return text_ ? std::wstring(text_, SysStringLen(text_)) : L""; }

private:
    BSTR text_ = nullptr;
};

inline std::wstring readText(const std::wstring& name) {
    std::ifstream in(name.c_str(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::copy_n(bytes.data(), text.size() * sizeof(wchar_t), reinterpret_cast<char*>(text.data()));
    return text.substr(text.starts_with(L'\xFEFF') ? 1 : 0);
}

inline void writeText(const std::wstring& name, const std::wstring& text) {
    const std::wstring marked = L'\xFEFF' + text;
    std::ofstream(name.c_str(), std::ios::binary)
        .write(reinterpret_cast<const char*>(marked.data()),
               static_cast<std::streamsize>(marked.size() * sizeof(wchar_t)));
}

/// "Number Source: Text", of what a call left behind.
inline std::wstring described(HRESULT failure, const std::wstring& source,
                              const std::wstring& text) {
    return std::to_wstring(failure & 0xFFFF) + L" " + source + L": " + text;
}

inline std::wstring typeName(const VARIANT& value) {
    if (V_VT(&value) == VT_BSTR) return L"String";
    return V_VT(&value) == VT_EMPTY ? L"Empty" : L"other";
}

/// Answers one call; its words.
using Perform = std::function<std::wstring(const std::wstring& command, const std::wstring& name,
                                           const std::wstring& argument)>;

inline void performAll(int count, wchar_t** words, const Perform& perform) {
    for (int i = 1; i + 2 < count; i += 3)
        std::wcout << perform(words[i], words[i + 1], words[i + 2]) << std::endl;
}
