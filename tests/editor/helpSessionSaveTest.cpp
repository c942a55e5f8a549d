#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "editor/formattingCommands.h"
#include "editor/nodeOperations.h"
#include "support/errors.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;
using test::fixedFormulas;

constexpr const char* generated = R"(<image name="generated_cabinet_picture"/>)";

std::string infoOf(std::string_view inner) {
    return "<cabinetinfo>" + std::string(inner) + "</cabinetinfo>";
}

/// Saving fails with this error and leaves everything as it was.
void expectSaveToFail(EditorSession& editor, int number) {
    const std::string document = editor.document();
    const std::string xmlText = editor.session.xmlText;
    const std::string lastsave = editor.session.lastsave;
    const dom::Node* const current = editor.session.currentnode;
    const std::size_t formulas = editor.session.file.formulaCatalogue.entries().size();

    EXPECT_EQ(errorOf([&] { editor.session.saveDocument(); }), number);
    EXPECT_EQ(editor.document(), document);
    EXPECT_EQ(errorOf([&] { editor.session.refresh(); }), number);
    EXPECT_EQ(editor.document(), document);

    EXPECT_EQ(editor.session.xmlText, xmlText);
    EXPECT_EQ(editor.session.lastsave, lastsave);
    EXPECT_EQ(editor.session.currentnode, current);
    EXPECT_EQ(editor.session.file.formulaCatalogue.entries().size(), formulas);
}

TEST(HelpSession, SavedDocumentHasTheFormulasAndNoGeneratedPicture) {
    EditorSession editor("<a/>");
    editor.session.saveDocument();
    const std::string expected = infoOf("<cabinet><a/></cabinet>" + std::string(fixedFormulas));
    EXPECT_EQ(editor.session.xmlText, expected);
    EXPECT_EQ(editor.session.lastsave, expected);
    EXPECT_EQ(editor.document(), expected);
}

TEST(HelpSession, SavedDocumentCountsAsUnchanged) {
    EditorSession editor("<a/>");
    editor.session.saveDocument();
    EXPECT_FALSE(editor.session.changed());
    changeFontSize(editor.session, 2);
    EXPECT_TRUE(editor.session.changed());
}

TEST(HelpSession, SaveWritesTheCatalogueAndTheUnknownTokens) {
    EditorSession editor;
    editor.load(infoOf(R"(<formula name="Rate" standard="1" value="5" description="d"/>)"
                       R"(<cabinet><a value="`Rate` `New` `~p`"/></cabinet>)"));
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText,
              infoOf(R"(<cabinet><a value="`Rate` `New` `~p`"/></cabinet>)"
                     R"(<formula name="Rate" description="d" standard="1"/>)" +
                     std::string(fixedFormulas) + R"(<formula name="New" standard="0"/>)"));
}

TEST(HelpSession, SaveRemovesEveryGeneratedPictureAndNoOther) {
    EditorSession editor;
    editor.load(infoOf(std::string(generated) + R"(<image name="x"/><cabinet><a/></cabinet><y>)" +
                       generated + "</y>"));
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText, infoOf(R"(<image name="x"/><cabinet><a/></cabinet><y/>)" +
                                             std::string(fixedFormulas)));
}

TEST(HelpSession, TokensInAGeneratedPictureInsideTheTreeDoNotCount) {
    EditorSession editor(R"(<a/><image name="generated_cabinet_picture" value="`New`"/>)");
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText,
              infoOf("<cabinet><a/></cabinet>" + std::string(fixedFormulas)));
}

TEST(HelpSession, GeneratedPictureInsideAFormulaGoesWithIt) {
    EditorSession editor;
    editor.load(infoOf("<cabinet><a/></cabinet><formula name=\"f\">" + std::string(generated) +
                       "</formula>"));
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText,
              infoOf(R"(<cabinet><a/></cabinet><formula name="f" description="" standard="0"/>)" +
                     std::string(fixedFormulas)));
    // Nothing was freed twice: what is added now is all there.
    dom::Document& document = *editor.session.file.articledoc;
    for (int i = 0; i < 8; ++i)
        document.append(*editor.session.file.baseXMLNode, document.createElement("n"));
    EXPECT_EQ(editor.tree(), "<cabinet><a/><n/><n/><n/><n/><n/><n/><n/><n/></cabinet>");
}

TEST(HelpSession, FormulaInsideAGeneratedPictureGoesWithIt) {
    EditorSession editor;
    editor.load(infoOf(R"(<cabinet><a/></cabinet><image name="generated_cabinet_picture">)"
                       R"(<formula name="f" standard="1"/></image>)"));
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText,
              infoOf(R"(<cabinet><a/></cabinet><formula name="f" description="" standard="1"/>)" +
                     std::string(fixedFormulas)));
}

TEST(HelpSession, SelectedFormulaRowThatSavingRemovesLeavesNoSelection) {
    EditorSession editor(R"(<formula name="f"/><a/>)");
    editor.session.saveDocument();
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.session.currentnode, nullptr);
    EXPECT_EQ(editor.session.selectedRow, nullptr);
    EXPECT_EQ(errorOf([&] { editor.session.refresh(); }), 91);
}

TEST(HelpSession, SelectedRowInsideAGeneratedPictureThatSavingRemovesLeavesNoSelection) {
    EditorSession editor(R"(<image name="generated_cabinet_picture"><b/></image><a/>)");
    editor.select("cabinet=>image=>b");
    editor.session.saveDocument();
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.session.currentnode, nullptr);
}

TEST(HelpSession, SelectionElsewhereOutlivesSaving) {
    EditorSession editor("<a/><b/>");
    editor.select("cabinet=>b");
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.currentnode, &editor.row("cabinet=>b"));
}

TEST(HelpSession, OverlongTextMakesSavingFailWithoutATrace) {
    EditorSession editor;
    editor.load(infoOf(R"(<formula name="f"/><cabinet><a/><b value=")" + std::string(32768, 'x') +
                       R"("/></cabinet>)" + generated + "<x/>"));
    expectSaveToFail(editor, 6);
}

TEST(HelpSession, GeneratedPicturesInEachOtherGoBackToTheirPlaces) {
    EditorSession editor;
    editor.load(infoOf(R"(<cabinet><a/><b value=")" + std::string(32768, 'x') +
                       R"("/></cabinet><image name="generated_cabinet_picture"><x/>)" + generated +
                       "<y/></image><z/>" + generated));
    expectSaveToFail(editor, 6);
}

TEST(HelpSession, GeneratedPictureAroundTheCabinetMakesSavingFail) {
    EditorSession editor;
    editor.load(
        infoOf(R"(<image name="generated_cabinet_picture"><cabinet><a/></cabinet></image>)"));
    expectSaveToFail(editor, 91);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(HelpSession, FormulaAroundTheCabinetMakesSavingFail) {
    EditorSession editor;
    editor.load(infoOf(R"(<formula name="f"><cabinet><a/></cabinet></formula>)"));
    expectSaveToFail(editor, 91);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(HelpSession, RenamedCabinetMakesSavingFailUntilItIsRenamedBack) {
    EditorSession editor("<a/>");
    editor.select("cabinet");
    editor.dialogs.expectPrompt("Enter the new name for the node:", "Rename Node", "cabinet",
                                "shelf");
    renameNode(editor.session, editor.dialogs);
    expectSaveToFail(editor, 91);
    editor.dialogs.expectPrompt("Enter the new name for the node:", "Rename Node", "shelf",
                                "cabinet");
    renameNode(editor.session, editor.dialogs);
    editor.session.saveDocument();
    EXPECT_EQ(editor.session.xmlText,
              infoOf("<cabinet><a/></cabinet>" + std::string(fixedFormulas)));
}

TEST(HelpSession, RefreshWritesTheKeyOfTheSelectedRow) {
    EditorSession editor("<a/><b><my_c/></b>");
    editor.select("cabinet=>b=>my c");
    editor.session.refresh();
    const std::string expected = infoOf(
        R"(<cabinet><a/><b><my_c/></b></cabinet><location value="cabinet=&gt;b=&gt;my c"/>)" +
        std::string(fixedFormulas));
    EXPECT_EQ(editor.session.xmlText, expected);
    EXPECT_EQ(editor.session.lastsave, expected);
    EXPECT_FALSE(editor.session.changed());
}

TEST(HelpSession, LoadAfterARefreshSelectsTheSameNode) {
    EditorSession editor("<a/><b><my_c/></b>");
    editor.select("cabinet=>b=>my c");
    editor.session.refresh();
    editor.load(std::string(editor.session.xmlText));
    EXPECT_EQ(editor.selectedKey(), "cabinet=>b=>my c");
}

TEST(HelpSession, RefreshOnTheCabinetLeadsToTheFirstNode) {
    EditorSession editor("<a/><b/>");
    editor.select("cabinet");
    editor.session.refresh();
    EXPECT_NE(editor.session.xmlText.find(R"(<location value="cabinet"/>)"), std::string::npos);
    editor.load(std::string(editor.session.xmlText));
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(HelpSession, RefreshesDoNotStackTheirMarkers) {
    EditorSession editor("<a/>");
    editor.session.refresh();
    const std::string once = editor.session.xmlText;
    editor.load(once);
    editor.session.refresh();
    EXPECT_EQ(editor.session.xmlText, once);
}

TEST(HelpSession, RefreshOnARowOutsideTheDocumentWritesItsShownKey) {
    EditorSession editor("<b><location value=\"cabinet=>b=>location\"/></b>");
    editor.session.refresh();
    EXPECT_NE(editor.session.xmlText.find(R"(<location value="cabinet=&gt;b=&gt;location"/>)"),
              std::string::npos);
}

TEST(HelpSession, SavingAnUnloadedSessionIsError91) {
    EditorSession editor;
    EXPECT_EQ(errorOf([&] { editor.session.saveDocument(); }), 91);
    EXPECT_EQ(errorOf([&] { editor.session.refresh(); }), 91);
}

}  // namespace
}  // namespace tavisk
