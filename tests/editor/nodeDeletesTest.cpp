#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "editor/formattingCommands.h"
#include "editor/nodeOperations.h"
#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;

const Message noBase{"Cannot delete base-node", "Error", BoxStyle::okCritical};
const Message noLast{"Cannot delete last node", "Error", BoxStyle::okCritical};
const Message withChildren{
    "All child nodes will also be deleted. Are you sure you want to do this?", "Warning...",
    BoxStyle::okCancelQuestion};

constexpr const char* pasteTitle = "Bad Name";
constexpr const char* pastePrompt =
    "Invalid name, please rename:\r\n\r\nName must be unique to the branch it is in, start with a "
    "letter, and contain only letters, numbers, spaces and -'s.";

TEST(NodeOperations, DeletedNodeLeavesItsParentSelected) {
    EditorSession editor("<a><b/></a>");
    editor.select("cabinet=>a=>b");
    const TreeChange change = deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(change.kind, TreeChange::Kind::removed);
    EXPECT_EQ(change.node, nullptr);
    EXPECT_EQ(change.parent, &editor.row("cabinet=>a"));
    EXPECT_EQ(editor.session.currentnode, change.parent);
    EXPECT_EQ(editor.session.selectedRow, change.parent);
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>a");
}

TEST(NodeOperations, DeletedNodeBelowTheBaseNodeLeavesTheBaseNodeSelected) {
    EditorSession editor("<a/><b/>");
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><b/></cabinet>");
    EXPECT_EQ(editor.session.currentnode, editor.session.file.baseXMLNode);
    EXPECT_FALSE(editor.session.panel.textUsable);
}

TEST(NodeOperations, BaseNodeIsNotDeleted) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectBox(noBase);
    EXPECT_EQ(deleteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, BaseNodeIsNotDeletedBelowADocumentElementInCapitals) {
    EditorSession editor;
    editor.load("<CABINETINFO><cabinet><a/></cabinet></CABINETINFO>");
    editor.select("cabinet");
    editor.dialogs.expectBox(noBase);
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, BaseNodeIsNotDeletedDeeperInTheDocument) {
    EditorSession editor;
    editor.load("<cabinetinfo><x><cabinet><a/></cabinet></x></cabinetinfo>");
    editor.select("cabinet");
    editor.dialogs.expectBox(noBase);
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, ChildOfAHelpNodeNamedCabinetinfoIsNotDeleted) {
    EditorSession editor("<cabinetinfo><a/><b/></cabinetinfo>");
    editor.select("cabinet=>cabinetinfo=>a");
    editor.dialogs.expectBox(noBase);
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><cabinetinfo><a/><b/></cabinetinfo></cabinet>");
}

TEST(NodeOperations, LastNodeBelowTheBaseNodeIsNotDeleted) {
    EditorSession editor("<a><b/></a>");
    editor.dialogs.expectBox(noLast);
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a><b/></a></cabinet>");
}

TEST(NodeOperations, NodesOfEveryTypeCountForTheLastNode) {
    EditorSession editor("<a/><!--c-->");
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><!--c--></cabinet>");
}

TEST(NodeOperations, LastNodeIsKnownByTheDocumentElementInSmallLettersOnly) {
    EditorSession editor;
    editor.load("<CABINETINFO><cabinet><a/></cabinet></CABINETINFO>");
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet/>");
}

TEST(NodeOperations, OnlyChildDeeperInTheTreeIsDeleted) {
    EditorSession editor("<a><b><c/></b></a>");
    editor.select("cabinet=>a=>b=>c");
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a><b/></a></cabinet>");
}

TEST(NodeOperations, NodeWithChildrenIsDeletedAfterAQuestion) {
    EditorSession editor("<a>words</a><b/>");
    editor.dialogs.expectBox(withChildren, Answer::ok);
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><b/></cabinet>");
}

TEST(NodeOperations, CancelInTheQuestionKeepsEverything) {
    EditorSession editor("<a><c/></a><b/>");
    const std::string before = editor.document();
    editor.dialogs.expectBox(withChildren, Answer::cancel);
    EXPECT_EQ(deleteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.document(), before);
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(NodeOperations, DeletingTheCurrentOneOfTwoEqualNamesKeepsTheOther) {
    EditorSession editor(R"(<a n="1"/><a n="2"/>)");
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a n="2"/></cabinet>)");
    EXPECT_EQ(editor.session.currentnode, editor.session.file.baseXMLNode);
}

TEST(NodeOperations, AfterADeletionTheRowAboveTheSelectedOneIsSelected) {
    EditorSession editor(R"(<p n="1"><a/></p><p n="2"><a/></p>)");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild()->firstChild());
    deleteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><p n="1"/><p n="2"><a/></p></cabinet>)");
    EXPECT_EQ(editor.session.selectedRow, editor.session.file.baseXMLNode->lastChild());
    EXPECT_EQ(editor.current(), R"(<p n="1"/>)");
}

TEST(NodeOperations, ErrorInThePanelComesAfterTheDeletion) {
    EditorSession editor(R"(<a/><b style="x"><c/></b>)");
    editor.session.currentnode = editor.session.selectedRow = &editor.row("cabinet=>b=>c");
    EXPECT_EQ(errorOf([&] { deleteNode(editor.session, editor.dialogs); }), 13);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a/><b style="x"/></cabinet>)");
    EXPECT_EQ(editor.session.currentnode, &editor.row("cabinet=>b"));
}

TEST(NodeOperations, PastedNodeIsADeepCopyBehindTheOthers) {
    EditorSession editor(R"(<a value="v"><x/></a><b><c/></b>)");
    copyNode(editor.session);
    editor.select("cabinet=>b");
    const TreeChange change = pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="v"><x/></a><b value=""><c/>)"
                             R"(<a value="v"><x/></a></b></cabinet>)");
    EXPECT_EQ(change.kind, TreeChange::Kind::pasted);
    EXPECT_EQ(change.node, &editor.row("cabinet=>b=>a"));
    EXPECT_EQ(change.parent, &editor.row("cabinet=>b"));
}

TEST(NodeOperations, PasteKeepsSelectionAndPanel) {
    EditorSession editor(R"(<a/><b value="text"/>)");
    copyNode(editor.session);
    editor.select("cabinet=>b");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.selectedKey(), "cabinet=>b");
    EXPECT_EQ(editor.session.currentnode, &editor.row("cabinet=>b"));
    EXPECT_EQ(editor.session.panel.text, u"text");
}

TEST(NodeOperations, CopyIsNotChangedByLaterEdits) {
    EditorSession editor("<a/><b/>");
    copyNode(editor.session);
    changeFontSize(editor.session, 2);
    editor.select("cabinet=>b");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(writeXml(editor.row("cabinet=>b")), "<b><a/></b>");
}

TEST(NodeOperations, OneCopyCanBePastedManyTimes) {
    EditorSession editor("<a/><b/><c/>");
    copyNode(editor.session);
    editor.select("cabinet=>b");
    pasteNode(editor.session, editor.dialogs);
    editor.select("cabinet=>c");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b><a/></b><c><a/></c></cabinet>");
}

TEST(NodeOperations, PasteIntoItselfCopiesTheCopy) {
    EditorSession editor("<a><x/></a>");
    copyNode(editor.session);
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a><x/><a><x/></a></a></cabinet>");
}

TEST(NodeOperations, PasteWithoutACopyDoesNothing) {
    EditorSession editor("<a/>");
    EXPECT_EQ(pasteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, PasteBesideItsOriginalAsksForAName) {
    EditorSession editor("<Alpha><x/></Alpha>");
    copyNode(editor.session);
    editor.select("cabinet");
    editor.dialogs.expectPrompt(pastePrompt, pasteTitle, "Alpha", "9")
        .expectPrompt(pastePrompt, pasteTitle, "9", "My copy");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><Alpha><x/></Alpha><My_copy><x/></My_copy></cabinet>");
}

TEST(NodeOperations, ClearingThePastePromptPastesNothing) {
    EditorSession editor("<Alpha/>");
    copyNode(editor.session);
    editor.select("cabinet");
    editor.dialogs.expectPrompt(pastePrompt, pasteTitle, "Alpha", "");
    EXPECT_EQ(pasteNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><Alpha/></cabinet>");
}

TEST(NodeOperations, NameWithASpaceIsPastedBesideItsOriginalWithoutAQuestion) {
    EditorSession editor("<My_node/>");
    copyNode(editor.session);
    editor.select("cabinet");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><My_node/><My_node/></cabinet>");
}

TEST(NodeOperations, NameThatTheRuleForbidsIsAskedForOnPaste) {
    EditorSession editor("<a.b/><c/>");
    copyNode(editor.session);
    editor.select("cabinet=>c");
    editor.dialogs.expectPrompt(pastePrompt, pasteTitle, "a.b", "ab");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a.b/><c><ab/></c></cabinet>");
}

TEST(NodeOperations, PasteUnderANameThatIsNoXmlNameIsError5AndNothingChanges) {
    EditorSession editor("<a.b/><c/>");
    copyNode(editor.session);
    editor.select("cabinet=>c");
    editor.dialogs.expectPrompt(pastePrompt, pasteTitle, "a.b", "-");
    EXPECT_EQ(errorOf([&] { pasteNode(editor.session, editor.dialogs); }), 5);
    EXPECT_EQ(editor.tree(), "<cabinet><a.b/><c/></cabinet>");
}

TEST(NodeOperations, PastedNodeDeclaresThePrefixesThatItHadFromAbove) {
    EditorSession editor(R"(<a xmlns:p="u"><x p:y="1"><p:z/></x></a><b/><c xmlns:p="other"/>)");
    editor.select("cabinet=>a=>x");
    copyNode(editor.session);
    editor.select("cabinet=>b");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<b><x p:y="1" xmlns:p="u"><p:z/></x></b>)");
    editor.select("cabinet=>c");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<c xmlns:p="other"><x p:y="1" xmlns:p="u"><p:z/></x></c>)");
    test::parsed(editor.document());
}

TEST(NodeOperations, PastedNodeDeclaresNoPrefixThatIsDeclaredAlike) {
    EditorSession editor(R"(<a xmlns:p="u"><x p:y="1"/><b/></a>)");
    editor.select("cabinet=>a=>x");
    copyNode(editor.session);
    editor.select("cabinet=>a=>b");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<b><x p:y="1"/></b>)");
}

TEST(NodeOperations, CopiedTextRowCannotBePasted) {
    EditorSession editor("<a/>words");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild());
    copyNode(editor.session);
    editor.select("cabinet=>a");
    EXPECT_EQ(errorOf([&] { pasteNode(editor.session, editor.dialogs); }), 5);
    EXPECT_EQ(editor.tree(), "<cabinet><a/>words</cabinet>");
}

TEST(NodeOperations, CopiedTextRowCannotBePastedUnderAnotherNameEither) {
    EditorSession editor("<a/>words");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild());
    copyNode(editor.session);
    editor.select("cabinet");
    editor.dialogs.expectPrompt(pastePrompt, pasteTitle, "", "b");
    EXPECT_EQ(errorOf([&] { pasteNode(editor.session, editor.dialogs); }), 91);
    EXPECT_EQ(editor.tree(), "<cabinet><a/>words</cabinet>");
}

TEST(NodeOperations, CutCopiesAndDeletes) {
    EditorSession editor("<a><x/></a><b/>");
    editor.dialogs.expectBox(withChildren, Answer::ok);
    EXPECT_EQ(cutNode(editor.session, editor.dialogs).kind, TreeChange::Kind::removed);
    EXPECT_EQ(editor.tree(), "<cabinet><b/></cabinet>");
    editor.select("cabinet=>b");
    pasteNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><b><a><x/></a></b></cabinet>");
}

TEST(NodeOperations, CutOfTheBaseNodeCopiesItAndIsRefused) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectBox(noBase);
    EXPECT_EQ(cutNode(editor.session, editor.dialogs).kind, TreeChange::Kind::none);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(writeXml(*editor.session.clipboardnode), "<cabinet><a/></cabinet>");
}

TEST(NodeOperations, CancelledCutKeepsTheCopy) {
    EditorSession editor("<a><x/></a><b/>");
    editor.dialogs.expectBox(withChildren, Answer::cancel);
    cutNode(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a><x/></a><b/></cabinet>");
    EXPECT_EQ(writeXml(*editor.session.clipboardnode), "<a><x/></a>");
}

TEST(NodeOperations, LoadingEmptiesTheClipboard) {
    EditorSession editor("<a/>");
    copyNode(editor.session);
    editor.loadNodes("<b/>");
    EXPECT_FALSE(editor.session.clipboardnode);
}

}  // namespace
}  // namespace tavisk
