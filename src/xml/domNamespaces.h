// Namespace prefixes: what they stand for, and those that a part of the tree has from above.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xml/dom.h"

namespace tavisk::dom {

struct Namespace {
    std::string prefix;
    std::string address;
};

/// The address that a prefix stands for on this element; empty when it is not declared.
std::string_view namespaceOf(const Node& element, std::string_view prefix);

/// What the attributes of `top` and everything below it take from declarations above `top`.
/// Elsewhere these prefixes have to be declared again, or the document cannot be read back.
std::vector<Namespace> namespacesFromAbove(const Node& top);

}  // namespace tavisk::dom
