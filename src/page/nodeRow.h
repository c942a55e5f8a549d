// One help node as a table row of the page.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/dom.h"

namespace tavisk {

/// An attribute with the text that goes into the page.
class ShownAttribute {
public:
    ShownAttribute(std::string_view baseName, std::string_view text)
        : baseName_(baseName), text_(text) {}

    std::string_view baseName() const noexcept { return baseName_; }
    std::string_view text() const noexcept { return text_; }

private:
    std::string_view baseName_;
    std::string_view text_;
};

/// The node's attributes as they stand, in `memory`.
std::span<const ShownAttribute> shownAttributes(const dom::Node& node,
                                                std::vector<ShownAttribute>& memory);

/// Title and answer in their tags; empty when both are hidden. Error 6 for sizes or a style outside
/// 16 bits.
std::string renderNodeRow(const dom::Node& node);
/// The same for a node of this local name whose attributes are shown as given.
void appendNodeRow(std::string& html, std::string_view baseName,
                   std::span<const ShownAttribute> attributes);

/// An element name as words: each part between "_" with its first letter in upper case, joined by
/// spaces.
std::string capitalizeWords(std::string_view name);

}  // namespace tavisk
