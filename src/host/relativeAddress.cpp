#include "host/relativeAddress.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/paths.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

bool isUnreserved(char c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return letter || (c >= '0' && c <= '9') ||
           std::string_view("-._~").find(c) != std::string::npos;
}

std::string encoded(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : path) {
        if (isUnreserved(c) || c == '/') {
            text += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            text += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return text;
}

/// What is below the current folder, seen from there.
fs::path shortened(const fs::path& path) {
    std::error_code error;
    const fs::path here = fs::current_path(error);
    if (error) return path;
    fs::path inside = path.lexically_relative(here);
    return inside.empty() || *inside.begin() == ".." ? path : inside;
}

}  // namespace

std::string relativeAddress(const std::string& file) {
    fs::path path = pathOf(file).lexically_normal();
    if (path.is_absolute()) path = shortened(path);
    if (!path.is_absolute()) return encoded(textOf(path));
    const std::string text = textOf(path);
    if (text.starts_with("//")) return "file:" + encoded(text);
    // A drive stands behind a slash of its own, and its colon as it is.
    const std::string drive = textOf(path.root_name());
    return "file://" + (drive.empty() ? "" : '/' + drive) + encoded(text.substr(drive.size()));
}

}  // namespace tavisk
