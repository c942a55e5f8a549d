#include "base/base64.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint32_t bad = 0xFF000000;  // outside the 24 bits of a group

/// One table per place in a group of four: the digit's bits, shifted to where they belong.
constexpr std::array<std::array<std::uint32_t, 256>, 4> digitTables = [] {
    std::array<std::array<std::uint32_t, 256>, 4> tables{};
    for (auto& table : tables)
        table.fill(bad);
    for (std::uint32_t digit = 0; digit < alphabet.size(); ++digit) {
        const auto c = static_cast<unsigned char>(alphabet[digit]);
        for (std::uint32_t place = 0; place < 4; ++place) {
            tables[place][c] = digit << (18 - 6 * place);
        }
    }
    return tables;
}();

char byteOf(std::uint32_t group, int shift) { return static_cast<char>(group >> shift & 0xFF); }

}  // namespace

std::string encodeBase64(std::string_view bytes) {
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t left = bytes.size() - at;
        const auto byte = [&](std::size_t i) {
            return i < left ? static_cast<unsigned char>(bytes[at + i]) : 0U;
        };
        const unsigned group = byte(0) << 16 | byte(1) << 8 | byte(2);
        out += alphabet[group >> 18];
        out += alphabet[group >> 12 & 0x3F];
        out += left > 1 ? alphabet[group >> 6 & 0x3F] : '=';
        out += left > 2 ? alphabet[group & 0x3F] : '=';
    }
    return out;
}

bool decodeBase64(std::string_view text, std::string& bytes) {
    bytes.resize(text.size() / 4 * 3 + 3);
    std::size_t to = 0;
    const auto digit = [&](std::size_t place, std::size_t at) {
        return digitTables[place][static_cast<unsigned char>(text[at])];
    };
    std::size_t at = 0;
    std::uint32_t group = 0;
    std::size_t count = 0;  // digits in `group`
    while (at < text.size()) {
        while (count == 0 && at + 4 <= text.size()) {
            const std::uint32_t four =
                digit(0, at) | digit(1, at + 1) | digit(2, at + 2) | digit(3, at + 3);
            if (four >= bad) break;  // white space, padding, or no base64
            bytes[to] = byteOf(four, 16);
            bytes[to + 1] = byteOf(four, 8);
            bytes[to + 2] = byteOf(four, 0);
            to += 3;
            at += 4;
        }
        if (at == text.size() || text[at] == '=') break;
        if (!isBlank(text[at])) {
            const std::uint32_t one = digit(count, at);
            if (one >= bad) return false;
            group |= one;
            if (++count == 4) {
                for (int shift = 16; shift >= 0; shift -= 8)
                    bytes[to++] = byteOf(group, shift);
                group = 0;
                count = 0;
            }
        }
        ++at;
    }
    std::size_t padding = 0;
    for (; at < text.size(); ++at) {
        if (text[at] == '=') {
            ++padding;
        } else if (!isBlank(text[at])) {
            return false;
        }
    }
    if (count == 1 || padding != (count == 0 ? 0 : 4 - count)) return false;
    if (count >= 2) bytes[to++] = byteOf(group, 16);
    if (count == 3) bytes[to++] = byteOf(group, 8);
    bytes.resize(to);
    return true;
}

}  // namespace tavisk
