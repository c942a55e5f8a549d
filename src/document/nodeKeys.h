// Node keys: the path of shown names from the `cabinet` element down to a help node.
//
// The tree view shows one row per DOM node below `cabinet`, whatever its type, with the shown name
// as its text; a row is known here by its DOM node.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xml/dom.h"

namespace tavisk {

inline constexpr std::string_view keySeparator = "=>";

/// Climbs to the node whose parent's local name is `cabinetinfo`, or to the document element. Only
/// the last step honours `separator` and `useShownNames`; everything above it is joined with "=>"
/// and shown names.
std::string KeyOfElement(const dom::Node& element, std::string_view separator, bool useShownNames);

/// Shown names from `base`, the tree's top row, down to `row`.
std::string KeyOfTreeNode(const dom::Node& base, const dom::Node& row, std::string_view separator);

/// The element that a click on a row finds: on every level the first child with the row's shown
/// name. Null when there is none. Error 6 when more than 32,767 children have to be walked.
dom::Node* ElementOfTreeNode(dom::Node& base, const dom::Node& row);

/// The row that building the tree leaves selected: the last one below `base` whose key is
/// `startKey`, in the order of building, which ends a node after everything below it. Null when
/// none matches and for an empty key. Error 6 when a node has more than 32,767 children.
dom::Node* findStartNode(dom::Node& base, std::string_view startKey);

/// The row that the names of `key` lead to from `base`, first match on every level; null if none.
dom::Node* findTreeNode(dom::Node& base, std::string_view key);

/// Keys of `base` and of every node below it, in document order, in time linear in their length.
std::vector<std::string> allKeys(const dom::Node& base);

}  // namespace tavisk
