#include "editor/nodeCommands.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "editor/editorSession.h"

namespace tavisk {
namespace {

using Lines = std::vector<std::string>;

TEST(NodeCommands, MenuHasItsEntriesInOrder) {
    Lines menu;
    for (const NodeCommand& command : nodeCommands()) {
        if (command.name)
            menu.push_back(std::string(command.name) + " " + command.caption + " " +
                           command.shortcut);
    }
    EXPECT_EQ(menu, (Lines{"cmdNew &Add Node ", "cmdNewChild Add &Child Node ",
                           "cmdRename &Rename Node F2", "cmdDel &Delete Node Del",
                           "cmdMoveUp Move &Up ", "cmdMoveDown Move D&own "}));
}

TEST(NodeCommands, ToolbarHasItsButtonsByIndexWithTipAndTag) {
    Lines tools(9);
    for (const NodeCommand& command : nodeCommands()) {
        if (command.toolIndex > 0)
            tools.at(static_cast<std::size_t>(command.toolIndex - 1)) =
                std::string(command.toolTip) + " " + std::to_string(command.tag);
    }
    EXPECT_EQ(tools, (Lines{"New Child Node 0", "Delete 1", "Cut 1", "Copy 1", "Paste 0",
                            "Move To Top 1", "Move To Bottom 1", "Move Up 1", "Move Down 1"}));
}

TEST(NodeCommands, OnlyANewChildCanAlwaysBeChosenInTheMenu) {
    for (const NodeCommand& command : nodeCommands())
        EXPECT_EQ(command.alwaysInMenu(), std::string_view(command.toolTip) == "New Child Node");
}

const NodeCommand& tool(std::string_view toolTip) {
    return *std::ranges::find(nodeCommands(), toolTip,
                              [](const NodeCommand& c) { return std::string_view(c.toolTip); });
}

TEST(NodeCommands, EachMovesAsItsTipSays) {
    test::EditorSession editor("<a/><b/><c/><d/>");
    editor.select("cabinet=>b");
    const auto after = [&](std::string_view toolTip) {
        tool(toolTip).run(editor.session, editor.dialogs);
        return editor.tree();
    };
    EXPECT_EQ(after("Move To Bottom"), "<cabinet><a/><c/><d/><b/></cabinet>");
    EXPECT_EQ(after("Move Up"), "<cabinet><a/><c/><b/><d/></cabinet>");
    EXPECT_EQ(after("Move To Top"), "<cabinet><b/><a/><c/><d/></cabinet>");
    EXPECT_EQ(after("Move Down"), "<cabinet><a/><b/><c/><d/></cabinet>");
}

TEST(NodeCommands, PasteWithAnEmptyClipboardDoesNothing) {
    test::EditorSession editor("<a/>");
    EXPECT_EQ(tool("Paste").run(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeCommands, CopyAndPastePutACopyBelow) {
    test::EditorSession editor("<a_b/><c/>");
    editor.select("cabinet=>a b");
    tool("Copy").run(editor.session, editor.dialogs);
    editor.select("cabinet=>c");
    EXPECT_EQ(tool("Paste").run(editor.session, editor.dialogs).kind, TreeChange::Kind::pasted);
    EXPECT_EQ(editor.tree(), "<cabinet><a_b/><c><a_b/></c></cabinet>");
}

}  // namespace
}  // namespace tavisk
