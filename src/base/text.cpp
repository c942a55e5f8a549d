#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/error.h"

namespace tavisk {
namespace {

constexpr bool isContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

/// Length of the sequence that begins at `at`, or 0 when it is not valid.
std::size_t sequenceLength(std::string_view text, std::size_t at) noexcept {
    const auto byte = [&](std::size_t i) -> unsigned {
        return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0U;
    };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    const auto continued = [&](std::size_t i) {
        return isContinuation(static_cast<unsigned char>(byte(i)));
    };
    if (first >= 0xC2 && first <= 0xDF) return continued(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        if (!continued(1) || !continued(2)) return 0;
        if (first == 0xE0 && byte(1) < 0xA0) return 0;   // overlong
        if (first == 0xED && byte(1) >= 0xA0) return 0;  // surrogate
        return 3;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        if (!continued(1) || !continued(2) || !continued(3)) return 0;
        if (first == 0xF0 && byte(1) < 0x90) return 0;
        if (first == 0xF4 && byte(1) >= 0x90) return 0;
        return 4;
    }
    return 0;
}

/// The extent of a number at the start of `text`: sign, digits with fraction, exponent. 0 if none.
std::size_t numberLength(std::string_view text) noexcept {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t digits = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    std::size_t count = at - digits;
    if (at < text.size() && text[at] == '.') {
        const std::size_t fraction = at + 1;
        std::size_t end = fraction;
        while (end < text.size() && isDigit(text[end]))
            ++end;
        if (count + (end - fraction) > 0) {
            count += end - fraction;
            at = end;
        }
    }
    if (count == 0) return 0;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t end = at + 1;
        if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
        const std::size_t exponent = end;
        while (end < text.size() && isDigit(text[end]))
            ++end;
        if (end > exponent) at = end;
    }
    return at;
}

/// `text` is a number without sign, and not 0.
bool isBelowOne(std::string_view text) noexcept {
    const std::size_t e = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t digit = mantissa.find_first_of("123456789");
    // The power of ten of the first digit that counts.
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(digit) -
                       (digit < point ? 1 : 0);

    std::string_view exponent = text.substr(std::min(e + 1, text.size()));
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::int32_t shift = 0;
    const auto [end, error] =
        std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
    if (error == std::errc::result_out_of_range) return exponent.starts_with('-');
    return place + shift < 0;
}

/// `text` is exactly one number as `numberLength` finds it.
double valueOf(std::string_view text) noexcept {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too far from 1 for a double, one way or the other.
        value = isBelowOne(text) ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

std::string_view trimLeft(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

std::string_view trim(std::string_view text) {
    text = trimLeft(text);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

double roundHalfEven(double number) {
    // nearbyint depends on the thread's rounding mode, which belongs to the host.
    const double below = std::floor(number);
    const double rest = number - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1;
}

double inRange(double number, double lowest, double highest) {
    if (!(number >= lowest && number <= highest)) raise(ErrorNumber::overflow);
    return number;
}

/// Writes one code point and returns the end of its bytes.
char* encode(char* to, char32_t codePoint) {
    const auto put = [&](char32_t byte) { *to++ = static_cast<char>(byte); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | codePoint >> 6);
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | codePoint >> 12);
        put(0x80 | (codePoint >> 6 & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | codePoint >> 18);
        put(0x80 | (codePoint >> 12 & 0x3F));
        put(0x80 | (codePoint >> 6 & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
    return to;
}

}  // namespace

std::size_t checkedCount(std::size_t count) {
    if (count > maxCount) raise(ErrorNumber::overflow);
    return count;
}

void checkTextLength(std::string_view utf8) {
    if (utf8.size() > maxCount) checkedCount(utf16Length(utf8));
}

std::size_t asciiEnd(std::string_view text, std::size_t at) noexcept {
    // Whole blocks first: a compiler makes vectors of the inner loop.
    constexpr std::size_t block = 64;
    while (at + block <= text.size()) {
        unsigned char any = 0;
        for (std::size_t i = 0; i < block; ++i) {
            any = static_cast<unsigned char>(any | static_cast<unsigned char>(text[at + i]));
        }
        if (any >= 0x80) break;
        at += block;
    }
    // Texts with many accents have short runs: eight bytes at once there.
    for (std::uint64_t eight = 0; at + sizeof eight <= text.size(); at += sizeof eight) {
        std::memcpy(&eight, text.data() + at, sizeof eight);
        if ((eight & 0x8080808080808080U) != 0) break;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
}

char32_t nextCharacter(std::string_view utf8, std::size_t& at) noexcept {
    const auto byte = [&] { return static_cast<char32_t>(static_cast<unsigned char>(utf8[at++])); };
    const char32_t first = byte();
    if (first < 0x80) return first;
    const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t c = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i)
        c = c << 6 | (byte() & 0x3F);
    return c;
}

bool isAscii(std::string_view text) noexcept { return asciiEnd(text, 0) == text.size(); }

std::size_t findInvalidUtf8(std::string_view text) noexcept {
    std::size_t at = 0;
    while ((at = asciiEnd(text, at)) < text.size()) {
        const std::size_t length = sequenceLength(text, at);
        if (length == 0) return at;
        at += length;
    }
    return std::string_view::npos;
}

std::size_t utf16Length(std::string_view utf8) noexcept {
    std::size_t length = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        length += static_cast<std::size_t>(!isContinuation(byte)) +
                  static_cast<std::size_t>(byte >= 0xF0);
    }
    return length;
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string out(utf8.size(), u'\0');
    std::size_t to = 0;
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::size_t end = asciiEnd(utf8, at);
        for (; at < end; ++at)
            out[to++] = static_cast<unsigned char>(utf8[at]);
        if (at == utf8.size()) break;
        const char32_t c = nextCharacter(utf8, at);
        if (c < 0x10000) {
            out[to++] = static_cast<char16_t>(c);
        } else {
            out[to++] = static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            out[to++] = static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        }
    }
    out.resize(to);
    return out;
}

void appendUtf8(std::string& out, char32_t codePoint) {
    char bytes[4];
    out.append(bytes, encode(bytes, codePoint));
}

void toUtf8(std::u16string_view utf16, std::string& out) {
    constexpr std::size_t block = 32;
    constexpr std::size_t mostBytes = 3;  // per code unit; a pair takes four
    out.resize(utf16.size() * mostBytes);
    char* to = out.data();
    std::size_t at = 0;
    while (at < utf16.size()) {
        const std::size_t blockEnd = std::min(at + block, utf16.size());
        if (blockEnd - at == block) {
            char16_t any = 0;
            for (std::size_t i = 0; i < block; ++i) {
                any = static_cast<char16_t>(any | utf16[at + i]);
                to[i] = static_cast<char>(utf16[at + i]);
            }
            if (any < 0x80) {
                at = blockEnd;
                to += block;
                continue;
            }
        }
        while (at < blockEnd) {
            const char32_t unit = utf16[at++];
            if (unit < 0x80) {
                *to++ = static_cast<char>(unit);
                continue;
            }
            if (unit < 0xD800 || unit > 0xDFFF) {
                to = encode(to, unit);
                continue;
            }
            const char32_t low = at < utf16.size() ? utf16[at] : 0U;
            if (unit > 0xDBFF || low < 0xDC00 || low > 0xDFFF) raise(ErrorNumber::invalidArgument);
            to = encode(to, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
            ++at;
        }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
}

std::string toUtf8(std::u16string_view utf16) {
    std::string out;
    toUtf8(utf16, out);
    return out;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string out;
    std::size_t from = 0;
    if (!what.empty()) {
        for (std::size_t at; (at = text.find(what, from)) != std::string_view::npos;
             from = at + what.size()) {
            out.append(text, from, at - from).append(with);
        }
    }
    return out.append(text, from);
}

std::string upperAscii(std::string_view text) {
    std::string out(text);
    std::ranges::transform(out, out.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return out;
}

std::string lowerAscii(std::string_view text) {
    std::string out(text);
    std::ranges::transform(out, out.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return out;
}

double leadingNumber(std::string_view text) noexcept {
    // Nearly all numbers of documents are one digit.
    if (text.size() == 1 && isDigit(text.front())) return text.front() - '0';
    text = trimLeft(text);
    const std::size_t length = numberLength(text);
    return length == 0 ? 0.0 : valueOf(text.substr(0, length));
}

int floor16(double number) { return static_cast<int>(inRange(std::floor(number), -32768, 32767)); }

double strictNumber(std::string_view text) {
    text = trim(text);
    const std::size_t length = numberLength(text);
    if (length == 0 || length != text.size()) raise(ErrorNumber::typeMismatch);
    return valueOf(text);
}

int round16(double number) {
    return static_cast<int>(inRange(roundHalfEven(number), -32768, 32767));
}

std::int32_t round32(double number) {
    return static_cast<std::int32_t>(inRange(roundHalfEven(number), -2147483648.0, 2147483647.0));
}

}  // namespace tavisk
