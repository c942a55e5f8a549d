// The system's own texts: UTF-16 in wchar_t.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// Error 52 for what is no UTF-8.
std::wstring wide(std::string_view utf8);

/// A lone surrogate becomes U+FFFD.
std::string narrow(std::wstring_view utf16);

/// Absolute, with "\\" between folders and without "." and "..". Empty for what is no path.
std::wstring fullPath(const std::wstring& path);

/// What the system takes for the path: one too long for its older rules says that it goes by the
/// newer ones. Error 52 for what can be no name on any disk.
std::wstring widePath(std::string_view utf8);

}  // namespace tavisk
