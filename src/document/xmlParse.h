// Attribute access with defaults, and the rule for names of help nodes.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string_view>

#include "base/text.h"
#include "xml/dom.h"

namespace tavisk {

/// The text of the first attribute whose local name is `attributeName`, else `defaultValue`. `node`
/// may be null or of any type. The view holds until the attribute or the document changes. Error 6
/// when more than 32,767 attributes have to be walked.
std::string_view GetAttributeValue(const dom::Node* node, std::string_view attributeName,
                                   std::string_view defaultValue);

struct AttributeDefault {
    std::string_view name;
    std::string_view defaultValue;
};

/// `GetAttributeValue` for several attributes in one walk, in the order asked. `attributes` are a
/// node's, or others that answer to `baseName` and `text`.
template <class Attributes, std::size_t n>
std::array<std::string_view, n> GetAttributeValues(const Attributes& attributes,
                                                   const std::array<AttributeDefault, n>& wanted) {
    std::array<std::string_view, n> values;
    std::array<bool, n> found{};
    for (std::size_t i = 0; i < n; ++i)
        values[i] = wanted[i].defaultValue;
    // Backwards, so that the first of several attributes with one local name stays.
    for (std::size_t at = std::min(attributes.size(), maxCount + 1); at-- > 0;) {
        const std::string_view name = attributes[at].baseName();
        for (std::size_t i = 0; i < n; ++i) {
            if (name != wanted[i].name) continue;
            values[i] = attributes[at].text();
            found[i] = true;
        }
    }
    // Looking further for one that is missing takes the walk out of its range.
    if (!std::ranges::all_of(found, std::identity())) checkedCount(attributes.size());
    return values;
}

/// Changes the attribute in place, or adds it behind the others. Error 5 for a text that XML cannot
/// hold.
void SetAttributeValue(dom::Document& document, dom::Node& node, std::string_view attributeName,
                       std::string_view attributeValue);

/// Whether `name`, as the user typed it, may be used below `parentNode` (null: no siblings are
/// compared). Error 6 for names over 32,767 UTF-16 code units.
bool IsValidNodeName(std::string_view name, const dom::Node* parentNode);

}  // namespace tavisk
