#include <filesystem>

#include "render/wx/fileAddress.h"

namespace tavisk {
namespace {

bool standsForItself(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

// As the browser writes it, too.
std::string fileAddress(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::filesystem::path full = std::filesystem::absolute(path).lexically_normal();
    std::string address = "file://";
    for (const char c : full.native()) {
        if (standsForItself(c)) {
            address += c;
        } else {
            const auto unit = static_cast<unsigned char>(c);
            address += {'%', digits[unit >> 4U], digits[unit & 15U]};
        }
    }
    return address;
}

std::string spelledLike(const std::string&, std::string_view said) { return std::string(said); }

}  // namespace tavisk
