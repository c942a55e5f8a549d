#include "base/wideText_windows.h"

#include <algorithm>
#include <windows.h>

#include "base/error.h"
#include "base/text.h"

namespace tavisk {
namespace {

/// From here on some functions refuse a path; creating a folder is the first.
constexpr std::size_t longPath = MAX_PATH - 12;

/// No file system has longer ones.
constexpr std::size_t longestName = 255;

bool hasTooLongName(std::wstring_view path) {
    while (path.size() > longestName) {
        const std::size_t end = path.find_first_of(L"/\\");
        if (std::min(end, path.size()) > longestName) return true;
        if (end == std::wstring_view::npos) return false;
        path.remove_prefix(end + 1);
    }
    return false;
}

}  // namespace

std::wstring wide(std::string_view utf8) {
    if (findInvalidUtf8(utf8) != std::string_view::npos) raise(ErrorNumber::badFileName);
    const std::u16string units = toUtf16(utf8);
    return {units.begin(), units.end()};
}

std::string narrow(std::wstring_view utf16) {
    if (utf16.empty()) return {};
    const int length = static_cast<int>(utf16.size());
    const int size =
        ::WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, text.data(), size, nullptr, nullptr);
    return text;
}

std::wstring fullPath(const std::wstring& path) {
    std::wstring full;
    DWORD size = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    while (size > full.size()) {
        full.resize(size);
        size = ::GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    }
    full.resize(size);
    return full;
}

std::wstring widePath(std::string_view utf8) {
    std::wstring path = wide(utf8);
    if (hasTooLongName(path)) raise(ErrorNumber::badFileName);
    if (path.size() < longPath || path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)")) {
        return path;
    }
    const std::wstring full = fullPath(path);
    if (full.empty()) return path;
    if (full.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + full.substr(1);
    return LR"(\\?\)" + full;
}

}  // namespace tavisk
