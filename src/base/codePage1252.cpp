#include "base/codePage1252.h"

#include <array>

#include "base/error.h"
#include "base/text.h"

namespace tavisk {
namespace {

/// Bytes 0x80 to 0x9F; 0 where none is assigned.
constexpr std::array<char16_t, 32> middle{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

/// The byte of a character above 0x7F, or 0.
unsigned byteFor(char32_t c) noexcept {
    if (c >= 0xA0 && c <= 0xFF) return static_cast<unsigned>(c);
    for (unsigned i = 0; i < middle.size(); ++i) {
        if (middle[i] == c) return 0x80 + i;
    }
    return 0;
}

}  // namespace

void encodeCodePage1252(std::string& text) {
    std::size_t to = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = asciiEnd(text, at);
        std::char_traits<char>::move(text.data() + to, text.data() + at, end - at);
        to += end - at;
        at = end;
        if (at == text.size()) break;
        const unsigned byte = byteFor(nextCharacter(text, at));
        if (byte == 0) raise(ErrorNumber::invalidArgument);
        text[to++] = static_cast<char>(byte);
    }
    text.resize(to);
}

std::size_t findOutsideCodePage1252(std::string_view utf8) noexcept {
    std::size_t at = 0;
    while ((at = asciiEnd(utf8, at)) < utf8.size()) {
        const std::size_t character = at;
        if (byteFor(nextCharacter(utf8, at)) == 0) return character;
    }
    return std::string_view::npos;
}

}  // namespace tavisk
