// The formula list, its description, Add formula and the insertions.
#include <gtest/gtest.h>

#include "ui/support/answerWindow.h"
#include "ui/support/editorStep.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using Entries = std::vector<std::string>;

constexpr const char* noHelp = "Description: No help exists for the selected formula.";
constexpr const char* title = "Add Formula";
constexpr const char* namePrompt = "Please enter the formula";
constexpr const char* descriptionPrompt = "Please enter a description for this formula";
constexpr const char* inUse = "This name is already in use";
constexpr const char* added = "Formula added successfully";
constexpr long information = wxOK | wxICON_INFORMATION;
constexpr long plain = wxOK | wxICON_NONE;

constexpr const char* twoFormulas =
    R"(<formula name="Rate" description="The rate" standard="1"/>)"
    R"(<formula name="hidden" standard="0"/><formula name="Tax" standard="1"/>)";

Entries formulas(EditorWindow& editor) { return editor.entries(editor.controls().lstFormulas); }

std::string help(EditorWindow& editor) { return editor.label(editor.controls().lblFormulaHelp); }

/// Add formula, with the user's answers and the last box.
void add(EditorWindow& editor, const std::string& name, const std::string& description) {
    editor.dialogs.expectPrompt(namePrompt, title, "", name);
    if (!name.empty()) editor.dialogs.expectPrompt(descriptionPrompt, title, name, description);
}

void clickAdd(EditorWindow& editor) {
    editor.click(editor.controls().cmdFormulaAdd);
    EXPECT_TRUE(editor.dialogs.finished());
    expectInStep(editor);
}

TEST(FrmMainFormulas, TheListHasTheStandardFormulasAndTheFirstIsChosen) {
    EditorWindow editor("<a/>", twoFormulas);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
    EXPECT_EQ(editor.controls().lstFormulas->GetSelection(), 0);
    expectInStep(editor);
}

TEST(FrmMainFormulas, WithoutFormulasNothingIsChosen) {
    EditorWindow editor("<a/>");
    EXPECT_EQ(formulas(editor), Entries{});
    EXPECT_EQ(editor.controls().lstFormulas->GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(help(editor), noHelp);
    expectInStep(editor);
}

TEST(FrmMainFormulas, ChoosingShowsTheDescription) {
    EditorWindow editor("<a/>", twoFormulas);
    EXPECT_EQ(help(editor), "Description: The rate");
    editor.choose(editor.controls().lstFormulas, 1);
    EXPECT_EQ(help(editor), noHelp);
    editor.choose(editor.controls().lstFormulas, 0);
    EXPECT_EQ(help(editor), "Description: The rate");
    expectInStep(editor);
}

TEST(FrmMainFormulas, AnEmptyDescriptionIsNoHelp) {
    EditorWindow editor("<a/>", R"(<formula name="Rate" description="" standard="1"/>)");
    EXPECT_EQ(help(editor), noHelp);
}

TEST(FrmMainFormulas, TheFirstEntryOfANameDescribesIt) {
    EditorWindow editor("<a/>", R"(<formula name="x" description="first"/>)"
                                R"(<formula name="x" description="second" standard="1"/>)");
    EXPECT_EQ(help(editor), "Description: first");
    expectInStep(editor);
}

TEST(FrmMainFormulas, NamesAndDescriptionsAreShownLetterByLetter) {
    EditorWindow editor("<a/>", R"(<formula name="A&amp;B &lt;i>" description="P&amp;L &amp;&amp; )"
                                "\xC3\xA4 \xF0\x9F\x98\x80"
                                R"(" standard="1"/>)");
    EXPECT_EQ(formulas(editor), Entries{"A&B <i>"});
    EXPECT_EQ(help(editor), "Description: P&L && \xC3\xA4 \xF0\x9F\x98\x80");
    expectInStep(editor);
}

TEST(FrmMainFormulas, TheFirstFormulaIsAdded) {
    EditorWindow editor("<a/>");
    EXPECT_TRUE(editor.session().file.formulaCatalogue.firstformula());
    add(editor, "Rate", "The rate");
    editor.dialogs.expectBox(added, title, plain);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), Entries{"Rate"});
    ASSERT_EQ(editor.session().file.formulaCatalogue.entries().size(), 1U);
    const FormulaEntry& entry = editor.session().file.formulaCatalogue.entries()[0];
    EXPECT_TRUE(entry.standard);
    EXPECT_EQ(entry.value, "unknown formula");
    EXPECT_EQ(entry.description, "The rate");
}

TEST(FrmMainFormulas, AnAddedFormulaIsAtTheEndAndTheChoiceStays) {
    EditorWindow editor("<a/>", twoFormulas);
    editor.choose(editor.controls().lstFormulas, 1);
    add(editor, "New", "Newest");
    editor.dialogs.expectBox(added, title, plain);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax", "New"}));
    EXPECT_EQ(editor.controls().lstFormulas->GetSelection(), 1);
    editor.choose(editor.controls().lstFormulas, 2);
    EXPECT_EQ(help(editor), "Description: Newest");
    expectInStep(editor);
}

TEST(FrmMainFormulas, TheListHasTheFormulaWhenTheSuccessIsTold) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "New", "x");
    editor.dialogs.expectBox(added, title, plain).during([&] {
        EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax", "New"}));
    });
    clickAdd(editor);
}

TEST(FrmMainFormulas, AnEmptyNameAddsNothing) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "", "");
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
}

TEST(FrmMainFormulas, AnEmptyDescriptionAddsNothing) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "New", "");
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
    EXPECT_FALSE(editor.session().file.formulaCatalogue.contains("New"));
}

TEST(FrmMainFormulas, ANameOfTheListIsRefused) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "Tax", "x");
    editor.dialogs.expectBox(inUse, title, information);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
}

TEST(FrmMainFormulas, ANameThatTheDocumentOnlyReferencesIsRefused) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "hidden", "x");
    editor.dialogs.expectBox(inUse, title, information);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
    EXPECT_EQ(editor.session().file.formulaCatalogue.entries().size(), 3U);
}

TEST(FrmMainFormulas, AnotherLetterCaseIsAnotherName) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "tax", "x");
    editor.dialogs.expectBox(added, title, plain);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax", "tax"}));
}

TEST(FrmMainFormulas, ANameWithABackquoteIsTakenAsItIs) {
    EditorWindow editor("<a/>");
    add(editor, "a`b", "x");
    editor.dialogs.expectBox(added, title, plain);
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), Entries{"a`b"});
}

TEST(FrmMainFormulas, ACharacterThatCannotBeSavedIsReportedAndAddsNothing) {
    EditorWindow editor("<a/>", twoFormulas);
    add(editor, "bad\x01", "x");
    editor.expectReport(5, "Invalid procedure call or argument");
    clickAdd(editor);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
}

TEST(FrmMainFormulas, RemoveFormulaDoesNothing) {
    EditorWindow editor("<a/>", twoFormulas);
    const std::string before = editor.core.document();
    editor.click(editor.controls().cmdFormulaDel);
    EXPECT_EQ(formulas(editor), (Entries{"Rate", "Tax"}));
    EXPECT_EQ(editor.core.document(), before);
    EXPECT_EQ(editor.session().file.formulaCatalogue.entries().size(), 3U);
    expectInStep(editor);
}

TEST(FrmMainFormulas, InsertAtCursorReplacesTheSelection) {
    EditorWindow editor("<a value='xaby'/>", twoFormulas);
    editor.controls().txtValue->SetSelection(1, 3);
    editor.click(editor.controls().cmdInsertFormulaAtCursor);
    EXPECT_EQ(editor.controls().txtValue->text(), u"x`Rate`y");
    EXPECT_EQ(editor.current(), R"(<a value="x`Rate`y"/>)");
    expectInStep(editor);
}

TEST(FrmMainFormulas, InsertAtCursorCountsCharactersOfAnyWidth) {
    EditorWindow editor("<a value='\xF0\x9F\x98\x80-\xC3\xA4'/>", twoFormulas);
    test::selectCharacters(*editor.controls().txtValue, 1, 2);
    editor.click(editor.controls().cmdInsertFormulaAtCursor);
    EXPECT_EQ(editor.controls().txtValue->text(), u"\U0001F600`Rate`\u00E4");
    expectInStep(editor);
}

TEST(FrmMainFormulas, InsertAtEndAppendsWhereverTheCursorIs) {
    EditorWindow editor("<a value='xaby'/>", twoFormulas);
    editor.choose(editor.controls().lstFormulas, 1);
    editor.controls().txtValue->SetSelection(1, 3);
    editor.click(editor.controls().cmdInsertFormulaAtEnd);
    EXPECT_EQ(editor.current(), R"(<a value="xaby`Tax`"/>)");
    expectInStep(editor);
}

TEST(FrmMainFormulas, WithoutAChosenFormulaTwoBackquotesAreInserted) {
    EditorWindow editor("<a value='xy'/>");
    editor.controls().txtValue->SetInsertionPoint(1);
    editor.click(editor.controls().cmdInsertFormulaAtCursor);
    EXPECT_EQ(editor.current(), R"(<a value="x``y"/>)");
    editor.click(editor.controls().cmdInsertFormulaAtEnd);
    EXPECT_EQ(editor.current(), R"(<a value="x``y``"/>)");
    expectInStep(editor);
}

TEST(FrmMainFormulas, AnAddedFormulaIsSaved) {
    EditorWindow editor("<a/>");
    add(editor, "Rate", "The rate");
    editor.dialogs.expectBox(added, title, plain);
    clickAdd(editor);
    editor.click(editor.controls().cmdOK);
    EXPECT_EQ(editor.session().xmlText,
              R"(<cabinetinfo><cabinet><a/></cabinet>)"
              R"(<formula name="Rate" description="The rate" standard="1"/>)" +
                  std::string(test::fixedFormulas) + "</cabinetinfo>");
}

}  // namespace
}  // namespace tavisk
