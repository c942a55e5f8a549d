#include "page/pictureData.h"

#include <array>
#include <utility>

#include "base/base64.h"
#include "base/text.h"

namespace tavisk {
namespace {

using namespace std::literals;

struct Signature {
    std::size_t at;
    std::string_view bytes;
    std::string_view type;
};

constexpr std::array signatures{
    Signature{0, "\x89PNG\r\n\x1A\n"sv, "image/png"},
    Signature{0, "GIF8"sv, "image/gif"},
    Signature{0, "\xFF\xD8\xFF"sv, "image/jpeg"},
    Signature{8, "WEBP"sv, "image/webp"},
    Signature{4, "ftypavif"sv, "image/avif"},
    Signature{0, "II*\0"sv, "image/tiff"},
    Signature{0, "MM\0*"sv, "image/tiff"},
    Signature{0, "\0\0\1\0"sv, "image/vnd.microsoft.icon"},
};

using NamedType = std::pair<std::string_view, std::string_view>;

constexpr std::array extensions{
    NamedType{"png", "image/png"},     NamedType{"gif", "image/gif"},
    NamedType{"jpg", "image/jpeg"},    NamedType{"jpeg", "image/jpeg"},
    NamedType{"bmp", "image/bmp"},     NamedType{"webp", "image/webp"},
    NamedType{"avif", "image/avif"},   NamedType{"tif", "image/tiff"},
    NamedType{"tiff", "image/tiff"},   NamedType{"ico", "image/vnd.microsoft.icon"},
    NamedType{"svg", "image/svg+xml"},
};

/// Two letters alone could begin any text; behind the length there are four reserved bytes.
bool isBitmap(std::string_view bytes) noexcept {
    return bytes.starts_with("BM") && bytes.size() > 14 && bytes.substr(6, 4) == "\0\0\0\0"sv;
}

/// An XML text whose first element is `svg`.
bool isSvg(std::string_view bytes) noexcept {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    for (;;) {
        while (!bytes.empty() && isBlank(bytes.front()))
            bytes.remove_prefix(1);
        std::string_view end;
        if (bytes.starts_with("<?") || bytes.starts_with("<!DOCTYPE")) end = ">";
        if (bytes.starts_with("<!--")) end = "-->";
        if (end.empty()) return bytes.starts_with("<svg");
        const std::size_t found = bytes.find(end);
        if (found == std::string_view::npos) return false;
        bytes.remove_prefix(found + end.size());
    }
}

}  // namespace

std::optional<std::string_view> pictureType(std::string_view bytes) noexcept {
    for (const Signature& signature : signatures) {
        if (bytes.size() > signature.at &&
            bytes.substr(signature.at).starts_with(signature.bytes)) {
            return signature.type;
        }
    }
    if (isBitmap(bytes)) return "image/bmp"sv;
    return isSvg(bytes) ? std::optional("image/svg+xml"sv) : std::nullopt;
}

std::string_view pictureType(std::string_view bytes, std::string_view extension) {
    if (const auto type = pictureType(bytes)) return *type;
    const std::string lower = lowerAscii(extension);
    for (const auto& [name, type] : extensions) {
        if (name == lower) return type;
    }
    return "application/octet-stream";
}

std::string dataAddress(std::string_view type, std::string_view bytes) {
    return std::string("data:").append(type).append(";base64,").append(encodeBase64(bytes));
}

}  // namespace tavisk
