// File names, which are UTF-8 here and what the system takes them for there.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavisk {

inline std::filesystem::path pathOf(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

/// With "/" between folders.
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

}  // namespace tavisk
