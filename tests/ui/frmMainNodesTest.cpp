// The commands of the node menu and the toolbar: adding, renaming and deleting.
#include <gtest/gtest.h>

#include "ui/support/editorStep.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using test::HelpXml;
using test::treeRows;

constexpr const char* addPrompt = "Enter the name for the new node:";
constexpr const char* renamePrompt = "Enter the new name for the node:";
constexpr const char* renameTitle = "Rename Node";
constexpr const char* badName =
    "Invalid name, please re-enter name:\n\nName must be unique to the branch it is in, start with "
    "a letter, and contain only letters, numbers, spaces and -'s.";
constexpr const char* childrenQuestion =
    "All child nodes will also be deleted. Are you sure you want to do this?";
constexpr long error = wxOK | wxICON_ERROR;
constexpr long question = wxOK | wxCANCEL | wxICON_QUESTION;

std::string rows(EditorWindow& editor) { return treeRows(*editor.controls().TreeXML); }

using Command = void (*)(EditorWindow&);

constexpr Command addChildByMenu = [](EditorWindow& editor) { editor.menu("cmdNewChild"); };
constexpr Command addChildByTool = [](EditorWindow& editor) { editor.tool("New Child Node"); };
constexpr Command deleteByMenu = [](EditorWindow& editor) { editor.menu("cmdDel"); };
constexpr Command deleteByTool = [](EditorWindow& editor) { editor.tool("Delete"); };
constexpr Command addingChildren[] = {addChildByMenu, addChildByTool};
constexpr Command deletions[] = {deleteByMenu, deleteByTool};

TEST(FrmMainNodes, AddNodeLandsAtTheEndOfTheSiblings) {
    EditorWindow editor("<a/><b/><c/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "d");
    editor.menu("cmdNew");
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><c/><d/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n a\n b\n c\n d <\n");
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>d");
    expectInStep(editor);
}

TEST(FrmMainNodes, AddChildNodeLandsBelowTheNode) {
    for (const Command addChild : addingChildren) {
        EditorWindow editor("<a><x/></a><b/>");
        editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "y");
        addChild(editor);
        EXPECT_EQ(editor.tree(), "<cabinet><a><x/><y/></a><b/></cabinet>");
        EXPECT_EQ(rows(editor), "cabinet\n a\n  x\n  y <\n b\n");
        expectInStep(editor);
    }
}

TEST(FrmMainNodes, TheFirstChildOfANodeIsShown) {
    EditorWindow editor("<a/><b/>");
    editor.select("cabinet=>b");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "y");
    editor.tool("New Child Node");
    EXPECT_EQ(rows(editor), "cabinet\n a\n b\n  y <\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, TheBaseNodeCanHaveANewChild) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "b");
    editor.tool("New Child Node");
    EXPECT_EQ(rows(editor), "cabinet\n a\n b <\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, AnEmptyNameAddsNothing) {
    EditorWindow editor("<a/>");
    for (const char* name : {"cmdNew", "cmdNewChild"}) {
        editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "");
        editor.menu(name);
    }
    EXPECT_EQ(rows(editor), "cabinet\n a <\n");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    expectInStep(editor);
}

TEST(FrmMainNodes, ABadNameIsAskedForAgainWithWhatWasTyped) {
    EditorWindow editor("<a/><b/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "1st")
        .expectPrompt(badName, "Bad Name", "1st", "b")
        .expectPrompt(badName, "Bad Name", "b", "b_c")
        .expectPrompt(badName, "Bad Name", "b_c", "\xC3\xA4")
        .expectPrompt(badName, "Bad Name", "\xC3\xA4", " x")
        .expectPrompt(badName, "Bad Name", " x", "b c");
    editor.menu("cmdNew");
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><b_c/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n a\n b\n b c <\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, ClearingTheBadNameAddsNothing) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "a")
        .expectPrompt(badName, "Bad Name", "a", "");
    editor.menu("cmdNew");
    EXPECT_EQ(rows(editor), "cabinet\n a <\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, ANameThatXmlCannotHoldIsReportedAndNothingChanges) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "-abc");
    editor.expectReport(5, "Invalid procedure call or argument");
    editor.menu("cmdNew");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "-abc");
    editor.expectReport(5, "Invalid procedure call or argument");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n a <\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, NothingIsAddedBesideTheBaseNode) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectBox("Cannot add a node beside the base-node", "Error", error);
    editor.menu("cmdNew");
    EXPECT_EQ(rows(editor), "cabinet <\n a\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, ANewNodeIsThereBehindTheNextPrompt) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "b");
    editor.menu("cmdNew");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "b", "").during([&] {
        EXPECT_EQ(rows(editor), "cabinet\n a\n b <\n");
    });
    editor.menu("cmdRename");
}

TEST(FrmMainNodes, ALockedNodeCanHaveANewChild) {
    EditorWindow editor("<cabinetdata><locked/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>locked");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "free");
    editor.menu("cmdNewChild");
    EXPECT_EQ(rows(editor), "cabinet\n cabinetdata\n  locked\n   free <\n");
    EXPECT_TRUE(editor.controls().fraEditor->IsEnabled());
    expectInStep(editor);
}

TEST(FrmMainNodes, RenamingStoresSpacesAsUnderscores) {
    EditorWindow editor("<a/><b/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "My node");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<cabinet><My_node/><b/></cabinet>");
    EXPECT_EQ(rows(editor), "cabinet\n My node <\n b\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, TheRenamePromptShowsTheNameWithSpaces) {
    EditorWindow editor("<my_long_node/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "my long node", "");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<cabinet><my_long_node/></cabinet>");
}

TEST(FrmMainNodes, RenamingToTheSameTextChangesNothing) {
    EditorWindow editor("<a/>");
    const dom::Node* const before = editor.session().currentnode;
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "a");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.session().currentnode, before);
    expectInStep(editor);
}

TEST(FrmMainNodes, RenamingKeepsPlaceAttributesAndSubtree) {
    EditorWindow editor("<a/><b value='text' style='3'><c><d/></c>words</b><e/>");
    editor.select("cabinet=>b");
    editor.controls().TreeXML->Expand(wxDataViewItem(&editor.core.row("cabinet=>b=>c")));
    editor.select("cabinet=>b");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "b", "z");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(),
              R"(<cabinet><a/><z value="text" style="3"><c><d/></c>words</z><e/></cabinet>)");
    EXPECT_EQ(rows(editor), "cabinet\n a\n z <\n  c\n   d\n  \n e\n");
    EXPECT_EQ(test::shownRows(*editor.controls().TreeXML),
              "cabinet -\n a\n z -\n  c -\n   d\n  \n e\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, RenamingToASiblingsNameIsRefused) {
    EditorWindow editor("<a/><b/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "b")
        .expectPrompt(badName, "Bad Name", "b", "");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/></cabinet>");
    expectInStep(editor);
}

TEST(FrmMainNodes, AfterABadNameTheOldOneIsTakenByTheNodeItself) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "a_b")
        .expectPrompt(badName, "Bad Name", "a_b", "a")
        .expectPrompt(badName, "Bad Name", "a", "c");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<cabinet><c/></cabinet>");
    expectInStep(editor);
}

TEST(FrmMainNodes, TheRenamedBaseNodeIsTheTopRow) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "cabinet", "other");
    editor.menu("cmdRename");
    EXPECT_EQ(editor.tree(), "<other><a/></other>");
    EXPECT_EQ(rows(editor), "other <\n a\n");
    expectInStep(editor);
    editor.select("other=>a");
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "other=>a");
    expectInStep(editor);
}

TEST(FrmMainNodes, DeletingSelectsTheParent) {
    for (const Command deleteNode : deletions) {
        EditorWindow editor("<a><x/><y/></a><b/>");
        editor.select("cabinet=>a=>x");
        deleteNode(editor);
        EXPECT_EQ(editor.tree(), "<cabinet><a><y/></a><b/></cabinet>");
        EXPECT_EQ(rows(editor), "cabinet\n a <\n  y\n b\n");
        EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>a");
        expectInStep(editor);
    }
}

TEST(FrmMainNodes, ANodeThatLosesItsOnlyChildIsALeafAgain) {
    EditorWindow editor("<a><x/></a><b/>");
    editor.select("cabinet=>a=>x");
    editor.tool("Delete");
    EXPECT_EQ(test::shownRows(*editor.controls().TreeXML), "cabinet -\n a\n b\n");
    expectInStep(editor);
}

TEST(FrmMainNodes, DeletingTheBaseNodeIsRefused) {
    for (const Command deleteNode : deletions) {
        EditorWindow editor("<a/><b/>");
        editor.select("cabinet");
        editor.dialogs.expectBox("Cannot delete base-node", "Error", error);
        deleteNode(editor);
        EXPECT_EQ(rows(editor), "cabinet <\n a\n b\n");
        expectInStep(editor);
    }
}

TEST(FrmMainNodes, DeletingTheOnlyChildOfTheBaseNodeIsRefused) {
    for (const Command deleteNode : deletions) {
        EditorWindow editor("<a><x/></a>");
        editor.dialogs.expectBox("Cannot delete last node", "Error", error);
        deleteNode(editor);
        EXPECT_EQ(rows(editor), "cabinet\n a <\n  x\n");
        expectInStep(editor);
    }
}

TEST(FrmMainNodes, ATextBesideTheLastNodeCountsAsANode) {
    EditorWindow editor("<a/>words");
    editor.tool("Delete");
    EXPECT_EQ(editor.tree(), "<cabinet>words</cabinet>");
    EXPECT_EQ(rows(editor), "cabinet <\n \n");
    expectInStep(editor);
}

TEST(FrmMainNodes, DeletingANodeWithChildrenAsksFirst) {
    for (const Command deleteNode : deletions) {
        EditorWindow editor("<a><x><y/></x></a><b/>");
        editor.dialogs.expectBox(childrenQuestion, "Warning...", question, wxID_CANCEL);
        deleteNode(editor);
        EXPECT_EQ(rows(editor), "cabinet\n a <\n  x\n   y\n b\n");
        expectInStep(editor);
        editor.dialogs.expectBox(childrenQuestion, "Warning...", question, wxID_OK);
        deleteNode(editor);
        EXPECT_EQ(editor.tree(), "<cabinet><b/></cabinet>");
        EXPECT_EQ(rows(editor), "cabinet <\n b\n");
        expectInStep(editor);
    }
}

TEST(FrmMainNodes, WhatIsWrittenIntoTheParentAfterADeleteIsTheParents) {
    EditorWindow editor("<a value='A'><x value='X'/></a><b/>");
    editor.select("cabinet=>a=>x");
    editor.tool("Delete");
    EXPECT_EQ(editor.controls().txtValue->text(), u"A");
    editor.type(u"changed");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="changed"/><b/></cabinet>)");
    expectInStep(editor);
}

}  // namespace
}  // namespace tavisk
