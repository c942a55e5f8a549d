#include "editor/formatting.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "base/text.h"

namespace tavisk {

namespace {

/// Two upper-case hexadecimal digits; what needs more is "FF".
void appendHex(std::string& out, std::int32_t component) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::size_t shown = component > 255 ? 255 : static_cast<std::size_t>(component);
    out += digits[shown / 16];
    out += digits[shown % 16];
}

/// What is no digit counts as 0. The accumulator is added again at every digit; each step is 16-bit
/// arithmetic of its own.
int hexValue(std::u16string_view digits, int accumulator) {
    int value = accumulator;
    bool first = true;
    for (const char16_t digit : digits) {
        const int base = first ? accumulator : floor16(floor16(value * 16.0) + accumulator);
        value = floor16(base + std::max(hexDigit(digit), 0));
        first = false;
    }
    return value;
}

std::u16string_view characters(std::u16string_view text, std::size_t from, std::size_t count) {
    return from < text.size() ? text.substr(from, count) : std::u16string_view();
}

}  // namespace

std::int32_t plainColour(std::int32_t colour) noexcept {
    return colour >= 0 && colour <= 0xFFFFFF ? colour : -1;
}

std::string colorToHex(std::int32_t colour, OleTranslateColor translate) {
    const std::int32_t plain = translate(colour);
    std::string text = "#";
    appendHex(text, plain & 0xFF);
    appendHex(text, (plain & 0xFF00) / 0x100);
    // Divided by 65280, not by 65536. The quotient is b + b/255 and so never ends in a half.
    constexpr std::int32_t divisor = 65280;
    appendHex(text, ((plain & 0xFF0000) + divisor / 2) / divisor);
    return text;
}

int hexToInteger(std::string_view digits, int accumulator) {
    return hexValue(toUtf16(digits), accumulator);
}

Colour colourOfText(std::string_view text) {
    const std::u16string wide = toUtf16(text);
    const auto component = [&](std::size_t from) {
        return static_cast<Colour>(hexValue(characters(wide, from, 2), 0));
    };
    return component(1) | component(3) << 8 | component(5) << 16;
}

std::string fontSizeCaption(double size) {
    const double whole = std::floor(size);
    std::string caption = whole < 0 ? "Font Size: -" : "Font Size: +";
    char digits[512];  // the largest double has 309 digits
    const auto end = std::to_chars(std::begin(digits), std::end(digits), std::fabs(whole),
                                   std::chars_format::fixed);
    return caption.append(digits, end.ptr);
}

std::string gapCaption(Gap gap, std::string_view text) {
    return std::string(gap == Gap::above ? "Gap above: " : "Gap below: ").append(text);
}

std::string colourCaption(std::string_view text) {
    return std::string("Text Color: ").append(text);
}

}  // namespace tavisk
