// File names, which are UTF-8 here and what the system takes them for there.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace tavisk {

inline std::filesystem::path pathOf(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

/// With "/" between folders.
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string native = path.u8string();
    std::string text(native.begin(), native.end());
    constexpr auto separator = static_cast<char>(std::filesystem::path::preferred_separator);
    if (separator != '/') std::ranges::replace(text, separator, '/');
    return text;
}

}  // namespace tavisk
