#include "base/addressText.h"

#include "base/text.h"

namespace tavisk {
namespace {

bool standsForItself(char c) {
    return isLetter(c) || isDigit(c) || std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

std::string escaped(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address;
    for (const char c : path) {
        if (standsForItself(c)) {
            address += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            address += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return address;
}

std::string unescaped(std::string_view address) {
    std::string path;
    for (std::size_t i = 0; i < address.size(); ++i) {
        const bool escape = address[i] == '%' && i + 2 < address.size() &&
                            hexDigit(address[i + 1]) >= 0 && hexDigit(address[i + 2]) >= 0;
        if (escape) {
            path += static_cast<char>(hexDigit(address[i + 1]) * 16 + hexDigit(address[i + 2]));
            i += 2;
        } else {
            path += address[i];
        }
    }
    return path;
}

}  // namespace tavisk
