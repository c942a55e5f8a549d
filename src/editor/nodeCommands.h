// The commands of the node menu and the toolbar, in one table.
#pragma once

#include <span>

#include "editor/nodeOperations.h"

namespace tavisk {

struct NodeCommand {
    const char* name;      ///< of the menu entry; null: not in the menu
    const char* caption;   ///< of the menu entry, with its mnemonic
    const char* shortcut;  ///< empty: none
    int toolIndex;         ///< of the toolbar button, from 1; 0: not in the toolbar
    const char* toolTip;   ///< of the toolbar button
    const char* icon;      ///< base name of the button's picture
    int tag;               ///< of the toolbar button: 0 stays usable on a locked node
    TreeChange (*run)(HelpSession& session, Dialogs& dialogs);

    /// "New Child Node" can be chosen for every node.
    bool alwaysInMenu() const;
};

/// Those with a menu entry come first, in the menu's order.
std::span<const NodeCommand> nodeCommands();

}  // namespace tavisk
