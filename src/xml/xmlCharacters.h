// Which characters and names XML can hold.
#pragma once

#include <string_view>

namespace tavisk {

/// Valid UTF-8 without control characters other than tab, line feed and carriage return.
bool isXmlText(std::string_view text) noexcept;

/// A qualified or plain name: at most one colon, neither at the start nor at the end.
bool isXmlName(std::string_view name) noexcept;

/// "xml" in any letter case, which no instruction may be called.
bool isReservedTarget(std::string_view name) noexcept;

}  // namespace tavisk
