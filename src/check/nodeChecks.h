// What is wrong with the help nodes.
#pragma once

#include <unordered_set>

#include "check/finding.h"
#include "check/tokenNames.h"
#include "xml/dom.h"

namespace tavisk {

/// Nodes by their number in document order; the cabinet is 0.
using NodeNumbers = std::unordered_set<std::size_t>;

/// Adds the findings of `cabinet` and of everything below it, in document order. Returns the nodes
/// that have an error.
NodeNumbers checkNodes(const dom::Node& cabinet, TokenNames& names, FindingList& findings);

/// Whether the page's heading is taken from this element.
bool givesHeading(const dom::Node& node);

}  // namespace tavisk
