// Serialises the tree; reading the result gives the same tree again.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "xml/dom.h"

namespace tavisk {

/// The XML declaration and CR LF come first only if the document came with a declaration. No white
/// space is added between nodes.
std::string writeXml(const dom::Document& document);
/// The same, handed over piece by piece.
void writeXml(const dom::Document& document, const std::function<void(std::string_view)>& write);
std::string writeXml(const dom::Node& node);

}  // namespace tavisk
