// Adding, renaming, deleting, moving, copying and pasting help nodes in the document.
#pragma once

#include <string_view>

#include "base/dialogs.h"
#include "xml/dom.h"

namespace tavisk {

class HelpSession;

/// What an operation did to the tree, for the view to follow. Elements are replaced by copies, so
/// no handle from before the operation may be used after it.
struct TreeChange {
    enum class Kind { none, added, renamed, removed, moved, pasted };

    Kind kind = Kind::none;
    dom::Node* node = nullptr;    ///< the new, renamed, moved or pasted element
    dom::Node* parent = nullptr;  ///< the element above it
};

/// The commands act on the session's current node; they ask and refuse through `dialogs`, and every
/// check comes before the first change. Adding selects the new node, deleting the parent; renaming,
/// moving and pasting keep the selection.
TreeChange addSibling(HelpSession& session, Dialogs& dialogs);
TreeChange addChild(HelpSession& session, Dialogs& dialogs);
TreeChange renameNode(HelpSession& session, Dialogs& dialogs);
TreeChange deleteNode(HelpSession& session, Dialogs& dialogs);
/// Upwards for positive steps.
TreeChange moveNode(HelpSession& session, int steps, Dialogs& dialogs);
TreeChange cutNode(HelpSession& session, Dialogs& dialogs);
void copyNode(HelpSession& session);
TreeChange pasteNode(HelpSession& session, Dialogs& dialogs);

inline constexpr int moveToTop = 10000;
inline constexpr int moveToBottom = -10000;

/// A new element, outside the tree, under the element name of `name`, with copies of all attributes
/// and children of `element`. Error 5 when that is no XML name, 91 when `element` is none.
dom::OwnedNode copyWithName(dom::Document& document, const dom::Node& element,
                            std::string_view name);

}  // namespace tavisk
