// One help node as a table row of the page.
#pragma once

#include <string>
#include <string_view>

#include "platform/dom.h"

namespace tavisk {

/// Title and answer in their tags; empty when both are hidden. Error 6 for sizes or a style outside
/// 16 bits.
std::string renderNodeRow(const dom::Node& node);
void appendNodeRow(std::string& html, const dom::Node& node);

/// An element name as words: each part between "_" with its first letter in upper case, joined by
/// spaces.
std::string capitalizeWords(std::string_view name);

}  // namespace tavisk
