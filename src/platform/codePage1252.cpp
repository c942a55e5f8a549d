#include "platform/codePage1252.h"

#include <array>
#include <cstdint>

#include "platform/error.h"

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

/// Reads one character above 0x7F of valid UTF-8; `length` is its bytes. Characters beyond the
/// basic plane all read as the first of them: no byte stands for any.
char32_t wideCharacter(std::string_view text, std::size_t at, std::size_t& length) noexcept {
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[at + i]));
    };
    const char32_t first = byte(0);
    if (first < 0xE0) {
        length = 2;
        return (first & 0x1F) << 6 | (byte(1) & 0x3F);
    }
    if (first < 0xF0) {
        length = 3;
        return (first & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    }
    length = 4;
    return 0x10000;
}

/// End of the ASCII run that begins at `at`.
std::size_t asciiEnd(std::string_view text, std::size_t at) noexcept {
    constexpr std::size_t block = 64;
    while (at + block <= text.size()) {
        unsigned char any = 0;
        for (std::size_t i = 0; i < block; ++i) {
            any = static_cast<unsigned char>(any | static_cast<unsigned char>(text[at + i]));
        }
        if (any >= 0x80) break;
        at += block;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
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
        std::size_t length = 0;
        const unsigned byte = byteFor(wideCharacter(text, at, length));
        if (byte == 0) raise(ErrorNumber::invalidArgument);
        text[to++] = static_cast<char>(byte);
        at += length;
    }
    text.resize(to);
}

std::size_t findOutsideCodePage1252(std::string_view utf8) noexcept {
    std::size_t at = 0;
    while ((at = asciiEnd(utf8, at)) < utf8.size()) {
        std::size_t length = 0;
        if (byteFor(wideCharacter(utf8, at, length)) == 0) return at;
        at += length;
    }
    return std::string_view::npos;
}

}  // namespace tavisk
