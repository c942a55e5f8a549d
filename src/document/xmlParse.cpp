#include "document/xmlParse.h"

#include <algorithm>
#include <optional>

#include "base/error.h"
#include "base/text.h"

namespace tavisk {
namespace {

constexpr bool isAllowed(char c) { return isLetter(c) || isDigit(c) || c == ' ' || c == '-'; }

/// The index that matches is a 16-bit counter: 32,767 can still match, and going on from there
/// overflows.
std::optional<std::size_t> findAttribute(const dom::Node& node, std::string_view baseName) {
    const auto attributes = node.attributes();
    const std::size_t reachable = std::min(attributes.size(), maxCount + 1);
    for (std::size_t i = 0; i < reachable; ++i) {
        if (attributes[i].baseName() == baseName) return i;
    }
    checkedCount(attributes.size());
    return std::nullopt;
}

}  // namespace

std::string_view GetAttributeValue(const dom::Node* node, std::string_view attributeName,
                                   std::string_view defaultValue) {
    if (node == nullptr) return defaultValue;
    const auto found = findAttribute(*node, attributeName);
    return found ? node->attributes()[*found].text() : defaultValue;
}

void SetAttributeValue(dom::Document& document, dom::Node& node, std::string_view attributeName,
                       std::string_view attributeValue) {
    // Only elements have an attribute map to add to.
    if (!node.isElement()) raise(ErrorNumber::objectNotSet);
    if (const auto found = findAttribute(node, attributeName)) {
        document.setAttributeText(node, *found, attributeValue);
    } else {
        document.addAttribute(node, attributeName, attributeValue);
    }
}

bool IsValidNodeName(std::string_view name, const dom::Node* parentNode) {
    if (!name.empty() && (isDigit(name.front()) || name.front() == ' ')) return false;

    // The whole name is walked even behind a character that is not allowed, so the length counts.
    checkTextLength(name);
    if (!std::ranges::all_of(name, isAllowed)) return false;

    if (parentNode == nullptr) return true;
    for (const dom::Node* child = parentNode->firstChild(); child != nullptr;
         child = child->next()) {
        if (child->baseName() == name) return false;
    }
    return true;
}

}  // namespace tavisk
