// Moving, cutting, copying and pasting nodes, and the keys of the node menu.
#include <gtest/gtest.h>

#include "ui/support/editorInput.h"
#include "ui/support/editorStep.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using test::treeRows;

constexpr const char* renamePrompt = "Enter the new name for the node:";
constexpr const char* pasteBadName =
    "Invalid name, please rename:\n\nName must be unique to the branch it is in, start with a "
    "letter, and contain only letters, numbers, spaces and -'s.";
constexpr const char* atTop = "This node is already at the top";
constexpr const char* atBottom = "This node is already at the bottom.";
constexpr const char* cannotMove = "Cannot Move";
constexpr long information = wxOK | wxICON_INFORMATION;
constexpr long error = wxOK | wxICON_ERROR;
constexpr const char* childrenQuestion =
    "All child nodes will also be deleted. Are you sure you want to do this?";
constexpr long question = wxOK | wxCANCEL | wxICON_QUESTION;

std::string rows(EditorWindow& editor) { return treeRows(*editor.controls().TreeXML); }

using Command = void (*)(EditorWindow&);

constexpr Command ups[] = {[](EditorWindow& editor) { editor.menu("cmdMoveUp"); },
                           [](EditorWindow& editor) { editor.tool("Move Up"); }};
constexpr Command downs[] = {[](EditorWindow& editor) { editor.menu("cmdMoveDown"); },
                             [](EditorWindow& editor) { editor.tool("Move Down"); }};

TEST(FrmMainMoves, UpOnTheFirstChildIsRefused) {
    for (const Command up : ups) {
        EditorWindow editor("<a/><b/>");
        editor.dialogs.expectBox(atTop, cannotMove, information);
        up(editor);
        EXPECT_EQ(rows(editor), "cabinet\n a <\n b\n");
        expectInStep(editor);
    }
}

TEST(FrmMainMoves, DownOnTheLastChildIsRefused) {
    for (const Command down : downs) {
        EditorWindow editor("<a/><b/>");
        editor.select("cabinet=>b");
        editor.dialogs.expectBox(atBottom, cannotMove, information);
        down(editor);
        EXPECT_EQ(rows(editor), "cabinet\n a\n b <\n");
        expectInStep(editor);
    }
}

TEST(FrmMainMoves, UpAndDownMoveByOnePlaceAndKeepTheSelection) {
    for (std::size_t way = 0; way < std::size(ups); ++way) {
        EditorWindow editor("<a/><b><x/></b><c/>");
        editor.select("cabinet=>b");
        ups[way](editor);
        EXPECT_EQ(editor.tree(), "<cabinet><b><x/></b><a/><c/></cabinet>");
        EXPECT_EQ(rows(editor), "cabinet\n b <\n  x\n a\n c\n");
        expectInStep(editor);
        downs[way](editor);
        downs[way](editor);
        EXPECT_EQ(editor.tree(), "<cabinet><a/><c/><b><x/></b></cabinet>");
        EXPECT_EQ(rows(editor), "cabinet\n a\n c\n b <\n  x\n");
        expectInStep(editor);
    }
}

TEST(FrmMainMoves, ToTheBottomMovesTheThirdOfFiveByTwoPlaces) {
    EditorWindow editor("<a/><b/><c/><d/><e/>");
    editor.select("cabinet=>c");
    editor.tool("Move To Bottom");
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><d/><e/><c/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n a\n b\n d\n e\n c <\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, ToTheTopMovesTheThirdOfFiveByTwoPlaces) {
    EditorWindow editor("<a/><b/><c/><d/><e/>");
    editor.select("cabinet=>c");
    editor.tool("Move To Top");
    EXPECT_EQ(editor.tree(), "<cabinet><c/><a/><b/><d/><e/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n c <\n a\n b\n d\n e\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, ToTheTopAndBottomAreRefusedThereToo) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectBox(atTop, cannotMove, information);
    editor.tool("Move To Top");
    editor.dialogs.expectBox(atBottom, cannotMove, information);
    editor.tool("Move To Bottom");
    expectInStep(editor);
}

TEST(FrmMainMoves, ATextBetweenNodesIsAPlaceOfItsOwn) {
    EditorWindow editor("<a/>words<b/>");
    editor.tool("Move Down");
    EXPECT_EQ(editor.tree(), "<cabinet>words<a/><b/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n \n a <\n b\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, RowsThatWereOpenStayOpen) {
    EditorWindow editor("<a><x><y/></x></a><b/>");
    editor.select("cabinet=>a=>x=>y");
    editor.select("cabinet=>a");
    editor.tool("Move Down");
    EXPECT_EQ(test::shownRows(*editor.controls().TreeXML), "cabinet -\n b\n a -\n  x -\n   y\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, TheBaseNodeMovesAmongWhatStandsBesideIt) {
    EditorWindow editor("<a/>", "<x/>");
    editor.select("cabinet");
    editor.tool("Move To Bottom");
    EXPECT_EQ(editor.core.document(), "<cabinetinfo><x/>" + std::string(test::generatedPicture) +
                                          "<cabinet><a/></cabinet></cabinetinfo>");
    EXPECT_EQ(rows(editor), "cabinet <\n a\n");
    expectInStep(editor);
    editor.dialogs.expectBox(atBottom, cannotMove, information);
    editor.tool("Move Down");
    expectInStep(editor);
}

TEST(FrmMainMoves, PasteWithAnEmptyClipboardDoesNothing) {
    EditorWindow editor("<a/>");
    editor.tool("Paste");
    EXPECT_EQ(rows(editor), "cabinet\n a <\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, ACopyIsPastedBelowTheNodeAndTheSelectionStays) {
    EditorWindow editor("<a value='text'><x/>words</a><b/>");
    editor.tool("Copy");
    expectInStep(editor);
    editor.select("cabinet=>b");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="text"><x/>words</a>)"
                             R"(<b value=""><a value="text"><x/>words</a></b></cabinet>)");
    EXPECT_EQ(rows(editor), "cabinet\n a\n  x\n  \n b <\n  a\n   x\n   \n");
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>b");
    expectInStep(editor);
}

TEST(FrmMainMoves, OneCopyIsPastedManyTimes) {
    EditorWindow editor("<a/><b/><c/>");
    editor.tool("Copy");
    for (const char* key : {"cabinet=>b", "cabinet=>c", "cabinet=>c=>a", "cabinet=>a"}) {
        editor.select(key);
        editor.tool("Paste");
        expectInStep(editor);
    }
    EXPECT_EQ(editor.tree(), "<cabinet><a><a/></a><b><a/></b><c><a><a/></a></c></cabinet>");
}

TEST(FrmMainMoves, LaterEditsDoNotChangeTheCopy) {
    EditorWindow editor("<a value='old'/><b/>");
    editor.tool("Copy");
    editor.type(u"new");
    editor.dialogs.expectPrompt(renamePrompt, "Rename Node", "a", "z");
    editor.menu("cmdRename");
    editor.select("cabinet=>b");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(),
              R"(<cabinet><z value="new"/><b value=""><a value="old"/></b></cabinet>)");
    expectInStep(editor);
}

TEST(FrmMainMoves, ACopyUnderItsOwnParentAsksForAnotherName) {
    EditorWindow editor("<Alpha/>");
    editor.tool("Copy");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(pasteBadName, "Bad Name", "Alpha", "1")
        .expectPrompt(pasteBadName, "Bad Name", "1", "My Alpha");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><Alpha/><My_Alpha/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet <\n Alpha\n My Alpha\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, ClearingThatPromptPastesNothing) {
    EditorWindow editor("<Alpha/>");
    editor.tool("Copy");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(pasteBadName, "Bad Name", "Alpha", "");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><Alpha/></cabinet>");
    expectInStep(editor);
}

TEST(FrmMainMoves, ACopyNamedWithASpaceIsPastedBesideItWithoutAQuestion) {
    EditorWindow editor("<my_node/>");
    editor.tool("Copy");
    editor.select("cabinet");
    editor.tool("Paste");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><my_node/><my_node/><my_node/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet <\n my node\n my node\n my node\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, TheSecondOfTwoEqualNamesLeadsToTheFirst) {
    EditorWindow editor("<my_node value='first'/><my_node value='second'/>");
    editor.controls().TreeXML->choose(*editor.session().file.baseXMLNode->lastChild());
    EXPECT_EQ(rows(editor), "cabinet\n my node\n my node <\n");
    EXPECT_EQ(editor.controls().txtValue->text(), u"first");
    expectInStep(editor);
    editor.dialogs.expectPrompt(renamePrompt, "Rename Node", "my node", "b");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), R"(<cabinet><b value="first"/><my_node value="second"/></cabinet>)");
    expectInStep(editor);
}

TEST(FrmMainMoves, DeletingAmongEqualNamesKeepsTreeAndDocumentInStep) {
    EditorWindow editor("<a/><my_node><x/></my_node><my_node><y/></my_node><my_node/>");
    for (int left = 3; left > 0; --left) {
        editor.controls().TreeXML->choose(*editor.session().file.baseXMLNode->lastChild());
        if (editor.session().currentnode->hasChildren())
            editor.dialogs.expectBox(childrenQuestion, "Warning...", question, wxID_OK);
        editor.tool("Delete");
        expectInStep(editor);
    }
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(FrmMainMoves, MovingAmongEqualNamesKeepsTreeAndDocumentInStep) {
    EditorWindow editor("<a/><my_node value='1'/><my_node value='2'/><b/>");
    editor.controls().TreeXML->choose(editor.core.row("cabinet=>b"));
    editor.controls().TreeXML->choose(*editor.session().file.baseXMLNode->lastChild()->previous());
    for (const char* way : {"Move Down", "Move To Bottom", "Move Up", "Move To Top"}) {
        editor.tool(way);
        expectInStep(editor);
    }
    EXPECT_EQ(editor.tree(),
              R"(<cabinet><my_node value="1"/><a/><my_node value="2"/><b/></cabinet>)");
}

TEST(FrmMainMoves, CutTakesTheNodeOutAndKeepsACopy) {
    EditorWindow editor("<a/><b style='9'/>");
    editor.select("cabinet=>b");
    editor.tool("Cut");
    EXPECT_EQ(rows(editor), "cabinet <\n a\n");
    expectInStep(editor);
    editor.select("cabinet=>a");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a><b style="9"/></a></cabinet>)");
    expectInStep(editor);
}

TEST(FrmMainMoves, CutOfTheBaseNodeKeepsACopyAndIsRefused) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectBox("Cannot delete base-node", "Error", error);
    editor.tool("Cut");
    EXPECT_EQ(rows(editor), "cabinet <\n a\n");
    expectInStep(editor);
    editor.select("cabinet=>a");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><a><cabinet><a/></cabinet></a></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n a <\n  cabinet\n   a\n");
    expectInStep(editor);
}

TEST(FrmMainMoves, ACancelledCutKeepsNodeAndCopy) {
    EditorWindow editor("<a><x/></a><b/>");
    editor.dialogs.expectBox(childrenQuestion, "Warning...", question, wxID_CANCEL);
    editor.tool("Cut");
    EXPECT_EQ(rows(editor), "cabinet\n a <\n  x\n b\n");
    expectInStep(editor);
    editor.select("cabinet=>b");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><a><x/></a><b><a><x/></a></b></cabinet>");
    expectInStep(editor);
}

TEST(FrmMainMoves, ATextRowCanBeCopiedButNotPasted) {
    EditorWindow editor("<a>words</a><b/>");
    editor.controls().TreeXML->choose(*editor.core.row("cabinet=>a").firstChild());
    expectInStep(editor);
    editor.tool("Copy");
    editor.select("cabinet=>b");
    editor.expectReport(5, "Invalid procedure call or argument");
    editor.tool("Paste");
    EXPECT_EQ(editor.tree(), "<cabinet><a>words</a><b/></cabinet>");
    expectInStep(editor);
}

/// By a real key, with the tree in focus.
struct FrmMainKeys : testing::Test {
    FrmMainKeys() { editor.focus(editor.controls().TreeXML); }

    test::EditorInput editor{"<a/><b/>"};
};

TEST_F(FrmMainKeys, F2RenamesTheNode) {
    editor.dialogs.expectPrompt(renamePrompt, "Rename Node", "a", "z");
    editor.press(WXK_F2);
    EXPECT_TRUE(test::pumpUntil([&] { return rows(editor) == "cabinet\n z <\n b\n"; }));
    expectInStep(editor);
}

TEST_F(FrmMainKeys, DeleteDeletesTheNode) {
    editor.press(WXK_DELETE);
    EXPECT_TRUE(test::pumpUntil([&] { return rows(editor) == "cabinet <\n b\n"; }));
    expectInStep(editor);
}

}  // namespace
}  // namespace tavisk
