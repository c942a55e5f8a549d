// Attribute access with defaults, and the rule for names of help nodes.
#pragma once

#include <string_view>

#include "platform/dom.h"

namespace tavisk {

/// The text of the first attribute whose local name is `attributeName`, else `defaultValue`. `node`
/// may be null or of any type. The view holds until the attribute or the document changes. Error 6
/// when more than 32,767 attributes have to be walked.
std::string_view GetAttributeValue(const dom::Node* node, std::string_view attributeName,
                                   std::string_view defaultValue);

/// Changes the attribute in place, or adds it behind the others. Error 5 for a text that XML cannot
/// hold.
void SetAttributeValue(dom::Document& document, dom::Node& node, std::string_view attributeName,
                       std::string_view attributeValue);

/// Whether `name`, as the user typed it, may be used below `parentNode` (null: no siblings are
/// compared). Error 6 for names over 32,767 UTF-16 code units.
bool IsValidNodeName(std::string_view name, const dom::Node* parentNode);

}  // namespace tavisk
