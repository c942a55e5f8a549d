// Texts as hosts hand them over in UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// Half of a surrogate pair becomes bytes that are not UTF-8, which parsing refuses with their
/// line.
std::string utf8OfHost(std::u16string_view units);

}  // namespace tavisk
