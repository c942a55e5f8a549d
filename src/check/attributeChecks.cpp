#include "check/attributeChecks.h"

#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "base/text.h"

namespace tavisk {
namespace {

bool isDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, isDigit); }

bool isWholeNumber(std::string_view text) {
    const bool hasSign = text.starts_with('+') || text.starts_with('-');
    return isDigits(text.substr(hasSign ? 1 : 0));
}

std::string wholeText(double number) {
    constexpr double exact = 1e15;
    if (std::abs(number) >= exact) return "a number beyond all use";
    return std::to_string(static_cast<long long>(std::floor(number)));
}

/// The number of the error that the reading ends in, 0 for none.
template <class Reading>
int errorOf(Reading reading) {
    try {
        reading();
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

std::optional<Problem> checkWhole(std::string_view text) {
    if (isWholeNumber(text)) return std::nullopt;
    return Problem{Severity::warning, "bad-number",
                   inQuotes(text) + " is no whole number; it is read as " +
                       wholeText(leadingNumber(text)) + "."};
}

std::optional<Problem> check16Bits(std::string_view text) {
    if (errorOf([&] { floor16(leadingNumber(text)); }) == 0) return std::nullopt;
    return Problem{Severity::error, "number-out-of-range",
                   inQuotes(text) + " lies outside -32768 to 32767; the page cannot be made."};
}

}  // namespace

std::optional<Problem> checkFlag(std::string_view text) {
    if (text == "0" || text == "1") return std::nullopt;
    return Problem{Severity::warning, "bad-flag",
                   inQuotes(text) + R"( is neither "0" nor "1"; only "1" counts as set.)"};
}

std::optional<Problem> checkColour(std::string_view text) {
    if (text.size() == 7 && text.front() == '#' &&
        std::ranges::all_of(text.substr(1), [](char c) { return hexDigit(c) >= 0; })) {
        return std::nullopt;
    }
    return Problem{Severity::warning, "bad-colour",
                   inQuotes(text) + " is no colour; a colour is \"#\" and six hexadecimal digits."};
}

std::optional<Problem> checkFontSize(std::string_view text) {
    if (auto problem = check16Bits(text)) return problem;
    return checkWhole(text);
}

std::optional<Problem> checkGap(std::string_view text) { return checkWhole(text); }

std::optional<Problem> checkStyle(std::string_view text) {
    const int error = errorOf([&] { round32(strictNumber(text)); });
    if (error == static_cast<int>(ErrorNumber::typeMismatch)) {
        return Problem{Severity::error, "bad-number",
                       inQuotes(text) + " is no number; the editor cannot show the node."};
    }
    if (auto problem = check16Bits(text)) return problem;
    return checkWhole(text);
}

std::optional<Problem> checkPixels(std::string_view text) {
    if (text.empty() || isDigits(text)) return std::nullopt;
    return Problem{Severity::warning, "bad-number",
                   inQuotes(text) + " is no whole number of pixels."};
}

std::optional<Problem> checkOverlaySize(std::string_view text) {
    const int error = errorOf([&] { round16(strictNumber(text)); });
    if (error == static_cast<int>(ErrorNumber::typeMismatch)) {
        return Problem{Severity::error, "bad-number",
                       inQuotes(text) + " is no number; overlays cannot be measured by it."};
    }
    if (error != 0) {
        return Problem{Severity::error, "number-out-of-range",
                       inQuotes(text) + " lies outside -32768 to 32767; overlays cannot be made."};
    }
    return checkPixels(text);
}

std::optional<Problem> checkLength(std::string_view text) {
    // No text has more code units than bytes.
    if (text.size() <= maxCount) return std::nullopt;
    const std::size_t length = utf16Length(text);
    if (length <= maxCount) return std::nullopt;
    return Problem{Severity::error, "text-too-long",
                   "The text has " + std::to_string(length) + " characters; " +
                       std::to_string(maxCount) + " are the limit.",
                   maxCount};
}

}  // namespace tavisk
