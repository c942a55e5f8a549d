// Text helpers: UTF-8 and UTF-16, lenient and strict numbers, 16-bit counters.
//
// Text that is only carried (names, keys, attribute values, messages, pages) is UTF-8. Text whose
// positions matter is UTF-16, because every position, length and limit counts UTF-16 code units.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavisk {

/// The largest position or count: counters are signed 16-bit numbers.
inline constexpr std::size_t maxCount = 32767;

/// `count` itself; error 6 above `maxCount`.
std::size_t checkedCount(std::size_t count);

/// Throws error 6 when `utf8` is longer than `maxCount` UTF-16 code units.
void checkTextLength(std::string_view utf8);

/// Space, tab, line feed, carriage return.
constexpr bool isBlank(char c) noexcept { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// 0 to 9.
constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// A to Z and a to z.
constexpr bool isLetter(char c) noexcept {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The value of a hexadecimal digit of either case; -1 for anything else.
template <class Character>
constexpr int hexDigit(Character c) noexcept {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

bool isAscii(std::string_view text) noexcept;

/// End of the run of ASCII characters that begins at `at`.
std::size_t asciiEnd(std::string_view text, std::size_t at) noexcept;

/// The character of valid UTF-8 that begins at `at`, which moves behind it.
char32_t nextCharacter(std::string_view utf8, std::size_t& at) noexcept;

/// Byte offset of the first sequence that is not UTF-8 (overlong forms and surrogates included), or
/// npos when all of it is.
std::size_t findInvalidUtf8(std::string_view text) noexcept;

/// Length in UTF-16 code units of valid UTF-8.
std::size_t utf16Length(std::string_view utf8) noexcept;

/// `utf8` must be valid.
std::u16string toUtf16(std::string_view utf8);

/// Error 5 for a lone surrogate.
std::string toUtf8(std::u16string_view utf16);
/// The same into a string whose memory is used again; `out` is replaced.
void toUtf8(std::u16string_view utf16, std::string& out);

/// Appends one code point.
void appendUtf8(std::string& out, char32_t codePoint);

/// Every occurrence of `what`, from left to right and without overlap, becomes `with`. An empty
/// `what` occurs nowhere.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

/// "A" to "Z" for "a" to "z"; everything else as it is.
std::string upperAscii(std::string_view text);
std::string lowerAscii(std::string_view text);

/// Lenient reading: blanks, sign, digits with fraction, exponent; ends at the first character that
/// does not fit, and is 0 when nothing fits. Independent of the locale; may be infinite.
double leadingNumber(std::string_view text) noexcept;

/// `number` rounded towards minus infinity; error 6 outside -32,768..32,767.
int floor16(double number);

/// Strict reading: the whole text, outer blanks aside, must be one number; else error 13.
double strictNumber(std::string_view text);

/// Rounded half to even; error 6 outside the 16-bit or 32-bit range.
int round16(double number);
std::int32_t round32(double number);

}  // namespace tavisk
