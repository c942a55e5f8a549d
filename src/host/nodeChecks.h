// What is wrong with the help nodes.
#pragma once

#include <unordered_set>

#include "host/finding.h"
#include "host/tokenNames.h"
#include "platform/dom.h"

namespace tavisk {

/// Adds the findings of `cabinet` and of everything below it, in document order. Returns the nodes
/// that have an error.
std::unordered_set<const dom::Node*> checkNodes(const dom::Node& cabinet, TokenNames& names,
                                                Findings& findings);

/// Whether the page's heading is taken from this element.
bool givesHeading(const dom::Node& node);

}  // namespace tavisk
