// A limit on attributes that the XML library does not have.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavisk {

/// The parser compares every attribute of an element with every other one, so their number decides
/// whether a document takes seconds or hours.
inline constexpr std::size_t maxAttributes = 65535;

/// Byte offset of the first start tag with more than `maxAttributes` attributes, or npos. Looks
/// closely only at stretches without "<" that are long enough for such a tag.
std::size_t findOvergrownTag(std::string_view xml) noexcept;

}  // namespace tavisk
