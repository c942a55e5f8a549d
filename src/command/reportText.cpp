#include "command/reportText.h"

#include <algorithm>

#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

void appendEscaped(std::string& json, unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (byte) {
        case '"': json += "\\\""; break;
        case '\\': json += "\\\\"; break;
        case '\n': json += "\\n"; break;
        case '\r': json += "\\r"; break;
        case '\t': json += "\\t"; break;
        default:
            if (byte >= 0x20) {
                json += static_cast<char>(byte);
            } else {
                json += "\\u00";
                json += digits[byte >> 4];
                json += digits[byte & 15];
            }
    }
}

}  // namespace

void appendPlain(std::string& line, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 || byte == 0x7F) {
            line += ' ';
        } else if (byte == 0xC2 && i + 1 < text.size() &&
                   static_cast<unsigned char>(text[i + 1]) < 0xA0) {
            line += ' ';
            ++i;
        } else {
            line += text[i];
        }
    }
}

void appendJson(std::string& json, std::string_view text) {
    json += '"';
    while (!text.empty()) {
        const std::size_t valid = std::min(findInvalidUtf8(text), text.size());
        for (const char c : text.substr(0, valid))
            appendEscaped(json, static_cast<unsigned char>(c));
        text.remove_prefix(valid);
        if (text.empty()) break;
        json += replacementCharacter;
        text.remove_prefix(1);
    }
    json += '"';
}

}  // namespace tavisk
