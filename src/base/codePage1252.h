// Windows code page 1252, the single-byte encoding of the page file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavisk {

/// Turns valid UTF-8 into code page 1252 in place (it never grows). Error 5 for a character that
/// the code page lacks; `text` is unspecified then.
void encodeCodePage1252(std::string& text);

/// Byte offset in valid UTF-8 of the first character that code page 1252 lacks, or npos.
std::size_t findOutsideCodePage1252(std::string_view utf8) noexcept;

}  // namespace tavisk
