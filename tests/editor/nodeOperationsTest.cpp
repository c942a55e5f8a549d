#include "editor/nodeOperations.h"

#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;

constexpr const char* addPrompt = "Enter the name for the new node:";
constexpr const char* renamePrompt = "Enter the new name for the node:";
constexpr const char* renameTitle = "Rename Node";
constexpr const char* badName = "Bad Name";
constexpr const char* retryPrompt =
    "Invalid name, please re-enter name:\r\n\r\nName must be unique to the branch it is in, start "
    "with a letter, and contain only letters, numbers, spaces and -'s.";

TEST(NodeOperations, CopyWithNameTakesAttributesAndChildrenAlong) {
    const auto document = test::parsed("<r><a x='1' y='2'>words<b z='3'/><!--c--><?p d?></a></r>");
    const dom::Node& element = test::element(*document, "a");
    const dom::OwnedNode copy = copyWithName(*document, element, "My node");
    EXPECT_EQ(writeXml(*copy), R"(<My_node x="1" y="2">words<b z="3"/><!--c--><?p d?></My_node>)");
    EXPECT_EQ(writeXml(element), R"(<a x="1" y="2">words<b z="3"/><!--c--><?p d?></a>)");
    EXPECT_EQ(copy->parent(), nullptr);
}

TEST(NodeOperations, CopyUnderANameThatIsNoXmlNameIsError5) {
    const auto document = test::parsed("<r/>");
    EXPECT_EQ(errorOf([&] { copyWithName(*document, *document->lastChild(), "-a"); }), 5);
    EXPECT_EQ(errorOf([&] { copyWithName(*document, *document->lastChild(), ""); }), 5);
}

TEST(NodeOperations, SiblingGoesToTheEndOfTheBranchAndIsSelected) {
    EditorSession editor("<a/><b/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "c");
    const TreeChange change = addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><c/></cabinet>");
    EXPECT_EQ(change.kind, TreeChange::Kind::added);
    EXPECT_EQ(change.node, &editor.row("cabinet=>c"));
    EXPECT_EQ(change.parent, editor.session.file.baseXMLNode);
    EXPECT_EQ(editor.session.currentnode, change.node);
    EXPECT_EQ(editor.session.selectedRow, change.node);
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>c");
}

TEST(NodeOperations, ChildGoesLastBelowTheCurrentNodeAndIsSelected) {
    EditorSession editor("<a><b/></a>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "c");
    const TreeChange change = addChild(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a><b/><c/></a></cabinet>");
    EXPECT_EQ(change.parent, &editor.row("cabinet=>a"));
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a=>c");
}

TEST(NodeOperations, ChildOfTheBaseNode) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "b");
    addChild(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/></cabinet>");
}

TEST(NodeOperations, NewNodeWithASpaceIsStoredWithAnUnderscore) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "My node");
    addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><My_node/></cabinet>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>My node");
}

TEST(NodeOperations, NewNodeFillsThePanelLikeAClick) {
    EditorSession editor(R"(<a value="text" titlehidden="1"/>)");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "b");
    addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<b value="" titlehidden="0"/>)");
}

TEST(NodeOperations, EmptyNameAddsNothing) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "");
    const TreeChange change = addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(change.kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, BadNameIsAskedForAgainUntilItPasses) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "1st")
        .expectPrompt(retryPrompt, badName, "1st", "a")
        .expectPrompt(retryPrompt, badName, "a", "my_node")
        .expectPrompt(retryPrompt, badName, "my_node", "first");
    addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><first/></cabinet>");
}

TEST(NodeOperations, GivingUpOnABadNameAddsNothing) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "a")
        .expectPrompt(retryPrompt, badName, "a", "");
    addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(NodeOperations, NameWithASpaceNeverClashesAndTheFirstBecomesCurrent) {
    EditorSession editor(R"(<My_node n="1"/>)");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "My node");
    const TreeChange change = addSibling(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><My_node n="1"/><My_node/></cabinet>)");
    EXPECT_EQ(editor.session.selectedRow, change.node);
    EXPECT_EQ(editor.session.currentnode, editor.session.file.baseXMLNode->firstChild());
}

TEST(NodeOperations, NewNameThatIsNoXmlNameIsError5AndNothingChanges) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "-abc");
    EXPECT_EQ(errorOf([&] { addSibling(editor.session, editor.dialogs); }), 5);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(NodeOperations, NoNodeBesideTheBaseNode) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    const std::string before = editor.document();
    editor.dialogs.expectBox("Cannot add a node beside the base-node", "Error",
                             BoxStyle::okCritical);
    EXPECT_EQ(addSibling(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.document(), before);
}

TEST(NodeOperations, ChildOfATextRowIsError5AndNothingChanges) {
    EditorSession editor("<a/>words");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild());
    editor.dialogs.expectPrompt(addPrompt, renameTitle, "", "b");
    EXPECT_EQ(errorOf([&] { addChild(editor.session, editor.dialogs); }), 5);
    EXPECT_EQ(editor.tree(), "<cabinet><a/>words</cabinet>");
}

TEST(NodeOperations, RenamedNodeKeepsPlaceAttributesAndSubtree) {
    EditorSession editor(R"(<x/><a value="v" style="3"><b/><c/></a><y/>)");
    editor.select("cabinet=>a");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "My node");
    const TreeChange change = renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><x/><My_node value="v" style="3"><b/><c/></My_node><y/>)"
                             "</cabinet>");
    EXPECT_EQ(change.kind, TreeChange::Kind::renamed);
    EXPECT_EQ(change.node, &editor.row("cabinet=>My node"));
    EXPECT_EQ(change.parent, editor.session.file.baseXMLNode);
    EXPECT_EQ(editor.session.currentnode, change.node);
    EXPECT_EQ(editor.selectedKey(), "cabinet=>My node");
}

TEST(NodeOperations, RenamePromptOffersTheShownName) {
    EditorSession editor("<My_node/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "My node", "");
    EXPECT_EQ(renameNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><My_node/></cabinet>");
}

TEST(NodeOperations, RenamingToTheSameTextChangesNothing) {
    EditorSession editor("<My_node/>");
    const dom::Node* const node = editor.session.currentnode;
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "My node", "My node");
    renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.session.currentnode, node);
    EXPECT_EQ(editor.tree(), "<cabinet><My_node/></cabinet>");
}

TEST(NodeOperations, RenamingComparesWithTheOwnElementToo) {
    EditorSession editor("<a/><b/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "b")
        .expectPrompt(retryPrompt, badName, "b", "a")
        .expectPrompt(retryPrompt, badName, "a", "");
    renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/></cabinet>");
}

TEST(NodeOperations, RenamingInAnotherLetterCasePasses) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "A");
    renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><A/></cabinet>");
}

TEST(NodeOperations, RenamingToNoXmlNameIsError5AndNothingChanges) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "-");
    EXPECT_EQ(errorOf([&] { renameNode(editor.session, editor.dialogs); }), 5);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(NodeOperations, RenamingATextRowIsError91AndTheTextStays) {
    EditorSession editor("<a/>words");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild());
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "", "b");
    EXPECT_EQ(errorOf([&] { renameNode(editor.session, editor.dialogs); }), 91);
    EXPECT_EQ(editor.tree(), "<cabinet><a/>words</cabinet>");
}

TEST(NodeOperations, BaseNodeFollowsItsRenaming) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "cabinet", "shelf");
    const TreeChange change = renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.session.file.baseXMLNode, change.node);
    EXPECT_EQ(editor.session.currentnode, change.node);
    EXPECT_EQ(editor.tree(), "<shelf><a/></shelf>");
    editor.select("shelf=>a");
    EXPECT_EQ(editor.session.panel.currentField, "shelf=>a");
}

TEST(NodeOperations, RenamingKeepsThePanelAsItIs) {
    EditorSession editor(R"(<a value="text"/>)");
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "b");
    renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.session.panel.text, u"text");
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>a");
}

TEST(NodeOperations, RenamingTheCurrentOneOfTwoEqualNamesSelectsIt) {
    EditorSession editor(R"(<a n="1"/><a n="2"/>)");
    EXPECT_NE(editor.session.selectedRow, editor.session.currentnode);
    editor.dialogs.expectPrompt(renamePrompt, renameTitle, "a", "b");
    renameNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><b n="1"/><a n="2"/></cabinet>)");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>b");
}

TEST(NodeOperations, WithoutANodeNothingIsAskedOrDone) {
    EditorSession editor("<a/><b/>");
    editor.session.currentnode = nullptr;
    EXPECT_EQ(addSibling(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(addChild(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(renameNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(deleteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(moveNode(editor.session, 1, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(pasteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(errorOf([&] { copyNode(editor.session); }), 91);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/></cabinet>");
}

}  // namespace
}  // namespace tavisk
