#include "reference/plainText.h"

#include <cmath>
#include <cstdlib>

namespace tavisk::reference {
namespace {

constexpr std::size_t longestText = std::size_t{1} << 22;

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

struct NumberRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool found = false;
};

NumberRange findNumber(const std::u16string& text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    NumberRange range{i, i, false};
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) ++i;
    std::size_t digits = 0;
    for (; i < text.size() && isDigit(text[i]); ++i)
        ++digits;
    if (i < text.size() && text[i] == u'.') {
        ++i;
        for (; i < text.size() && isDigit(text[i]); ++i)
            ++digits;
    }
    if (digits == 0) return range;
    range.found = true;
    range.end = i;
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) ++i;
        if (i < text.size() && isDigit(text[i])) {
            while (i < text.size() && isDigit(text[i]))
                ++i;
            range.end = i;
        }
    }
    return range;
}

double valueOf(const std::u16string& text, const NumberRange& range) {
    std::string ascii;
    for (std::size_t i = range.begin; i < range.end; ++i)
        ascii += static_cast<char>(text[i]);
    return std::strtod(ascii.c_str(), nullptr);
}

}  // namespace

std::u16string replaceEvery(const std::u16string& text, const std::u16string& what,
                            const std::u16string& with) {
    std::u16string result;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text.compare(i, what.size(), what) == 0) {
            result += with;
            i += what.size();
            if (result.size() > longestText) throw TooLong{};
        } else {
            result += text[i];
            ++i;
        }
    }
    return result;
}

int count16(const std::u16string& text) {
    if (text.size() > 32767) throw Failure{ErrorNumber::overflow};
    return static_cast<int>(text.size());
}

char16_t charAt(const std::u16string& text, int position) {
    const auto index = static_cast<std::size_t>(position - 1);
    return index < text.size() ? text[index] : u'\0';
}

double leadingNumberOf(const std::u16string& text) {
    const NumberRange range = findNumber(text);
    return range.found ? valueOf(text, range) : 0.0;
}

double strictNumberOf(const std::u16string& text) {
    const NumberRange range = findNumber(text);
    if (!range.found) throw Failure{ErrorNumber::typeMismatch};
    for (std::size_t i = range.end; i < text.size(); ++i) {
        if (!isBlank(text[i])) throw Failure{ErrorNumber::typeMismatch};
    }
    return valueOf(text, range);
}

int floorTo16(double number) {
    const double whole = std::floor(number);
    if (whole < -32768.0 || whole > 32767.0) throw Failure{ErrorNumber::overflow};
    return static_cast<int>(whole);
}

int roundTo16(double number) {
    if (std::isinf(number)) throw Failure{ErrorNumber::overflow};
    double whole = std::floor(number);
    const double rest = number - whole;
    const bool odd = std::fmod(whole, 2.0) != 0.0;
    if (rest > 0.5 || (rest == 0.5 && odd)) whole += 1.0;
    if (whole < -32768.0 || whole > 32767.0) throw Failure{ErrorNumber::overflow};
    return static_cast<int>(whole);
}

std::u16string decimal(int number) {
    std::u16string result;
    for (const char c : std::to_string(number))
        result += static_cast<char16_t>(c);
    return result;
}

std::string utf8Of(const std::u16string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned long c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size()) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00UL);
            ++i;
        }
        if (c < 0x80) {
            result += static_cast<char>(c);
        } else if (c < 0x800) {
            result += static_cast<char>(0xC0 | (c >> 6));
            result += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            result += static_cast<char>(0xE0 | (c >> 12));
            result += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            result += static_cast<char>(0xF0 | (c >> 18));
            result += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            result += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return result;
}

std::u16string utf16Of(const std::string& text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i]);
        const std::size_t size = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        unsigned long c = size == 1 ? first : first & (0xFFU >> (size + 1));
        for (std::size_t k = 1; k < size; ++k) {
            c = (c << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
        }
        if (c < 0x10000) {
            result += static_cast<char16_t>(c);
        } else {
            result += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
        i += size;
    }
    return result;
}

std::vector<std::size_t> byteOffsetsOf(const std::u16string& text) {
    std::vector<std::size_t> offsets{0};
    for (const char16_t c : text) {
        const bool high = c >= 0xD800 && c < 0xDC00;
        const bool low = c >= 0xDC00 && c < 0xE000;
        const std::size_t size = low ? 0 : high ? 4 : c < 0x80 ? 1 : c < 0x800 ? 2 : 3;
        offsets.push_back(offsets.back() + size);
    }
    return offsets;
}

std::string codePage1252Of(const std::u16string& text) {
    // Bytes 80 to 9F; 0 where the code page has no character.
    static constexpr char16_t high[32] = {
        0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    std::string result;
    for (const char16_t c : text) {
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            result += static_cast<char>(c);
            continue;
        }
        int byte = -1;
        for (int i = 0; i < 32; ++i) {
            if (high[i] != 0 && high[i] == c) byte = 0x80 + i;
        }
        if (byte < 0) throw Failure{ErrorNumber::invalidArgument};
        result += static_cast<char>(byte);
    }
    return result;
}

}  // namespace tavisk::reference
