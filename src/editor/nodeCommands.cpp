#include "editor/nodeCommands.h"

#include <array>

namespace tavisk {
namespace {

template <int steps>
TreeChange move(HelpSession& session, Dialogs& dialogs) {
    return moveNode(session, steps, dialogs);
}

TreeChange copy(HelpSession& session, Dialogs&) {
    copyNode(session);
    return {};
}

constexpr std::array commands{
    NodeCommand{"cmdNew", "&Add Node", "", 0, "", "", 0, addSibling},
    NodeCommand{"cmdNewChild", "Add &Child Node", "", 1, "New Child Node", "new-child", 0,
                addChild},
    NodeCommand{"cmdRename", "&Rename Node", "F2", 0, "", "", 0, renameNode},
    NodeCommand{"cmdDel", "&Delete Node", "Del", 2, "Delete", "delete", 1, deleteNode},
    NodeCommand{"cmdMoveUp", "Move &Up", "", 8, "Move Up", "move-up", 1, move<1>},
    NodeCommand{"cmdMoveDown", "Move D&own", "", 9, "Move Down", "move-down", 1, move<-1>},
    NodeCommand{nullptr, "", "", 3, "Cut", "cut", 1, cutNode},
    NodeCommand{nullptr, "", "", 4, "Copy", "copy", 1, copy},
    NodeCommand{nullptr, "", "", 5, "Paste", "paste", 0, pasteNode},
    NodeCommand{nullptr, "", "", 6, "Move To Top", "move-top", 1, move<moveToTop>},
    NodeCommand{nullptr, "", "", 7, "Move To Bottom", "move-bottom", 1, move<moveToBottom>},
};

}  // namespace

bool NodeCommand::alwaysInMenu() const { return run == addChild; }

std::span<const NodeCommand> nodeCommands() { return commands; }

}  // namespace tavisk
