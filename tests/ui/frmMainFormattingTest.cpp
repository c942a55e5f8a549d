// The formatting commands of the panel: what they write, and what the controls show afterwards.
#include <gtest/gtest.h>

#include "ui/support/editorWindow.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::EditorWindow;

constexpr int titleSmaller = 0;
constexpr int titleLarger = 2;
constexpr int answerSmaller = 3;
constexpr int answerLarger = 5;
constexpr int aboveSmaller = 0;
constexpr int aboveLarger = 2;
constexpr int belowSmaller = 3;
constexpr int belowLarger = 5;

constexpr int title = 0;
constexpr int answer = 1;
constexpr int above = 0;
constexpr int below = 1;

struct FrmMainFormatting : testing::Test {
    test::ToolkitComplaints complaints;
};

void changeFont(EditorWindow& editor, int index) {
    editor.click(editor.controls().cmdChangeFont.at(index));
}

void moveGaps(EditorWindow& editor, int index) {
    editor.click(editor.controls().cmdMoveGaps.at(index));
}

std::string fontSize(EditorWindow& editor, int side) {
    return editor.label(editor.controls().lblFontSize.at(side));
}

std::string gap(EditorWindow& editor, int side) {
    return editor.label(editor.controls().lblGap.at(side));
}

void expectOverflow(EditorWindow& editor) { editor.expectReport(6, "Overflow"); }

TEST_F(FrmMainFormatting, TitleFontSizeOneSmallerThanZero) {
    EditorWindow editor(R"(<a titlefontsize="0"/>)");
    changeFont(editor, titleSmaller);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="-1"/>)");
    EXPECT_EQ(fontSize(editor, title), "Font Size: -1");
}

TEST_F(FrmMainFormatting, TitleFontSizeTwiceLargerThanZero) {
    EditorWindow editor(R"(<a titlefontsize="0"/>)");
    changeFont(editor, titleLarger);
    changeFont(editor, titleLarger);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="2"/>)");
    EXPECT_EQ(fontSize(editor, title), "Font Size: +2");
}

TEST_F(FrmMainFormatting, AnswerFontSizeHasItsOwnButtonsAndLabel) {
    EditorWindow editor("<a/>");
    changeFont(editor, answerLarger);
    changeFont(editor, answerLarger);
    changeFont(editor, answerSmaller);
    EXPECT_EQ(editor.current(), R"(<a answerfontsize="1"/>)");
    EXPECT_EQ(fontSize(editor, answer), "Font Size: +1");
    EXPECT_EQ(fontSize(editor, title), "Font Size: +0");
}

TEST_F(FrmMainFormatting, FontSizeIsRoundedDownBeforeTheStep) {
    EditorWindow editor(R"(<a titlefontsize="2.7" answerfontsize="-0.5"/>)");
    changeFont(editor, titleLarger);
    changeFont(editor, answerSmaller);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="3" answerfontsize="-2"/>)");
    EXPECT_EQ(fontSize(editor, answer), "Font Size: -2");
}

TEST_F(FrmMainFormatting, FontSizeBeyond16BitsIsReportedAndStays) {
    EditorWindow editor(R"(<a titlefontsize="32767" answerfontsize="-32768"/>)");
    expectOverflow(editor);
    changeFont(editor, titleLarger);
    expectOverflow(editor);
    changeFont(editor, answerSmaller);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="32767" answerfontsize="-32768"/>)");
    EXPECT_EQ(fontSize(editor, title), "Font Size: +32767");
    EXPECT_EQ(fontSize(editor, answer), "Font Size: -32768");
    changeFont(editor, titleSmaller);
    EXPECT_EQ(fontSize(editor, title), "Font Size: +32766");
}

TEST_F(FrmMainFormatting, GapStaysAtZero) {
    EditorWindow editor(R"(<a spacebefore="0"/>)");
    moveGaps(editor, aboveSmaller);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="0"/>)");
    EXPECT_EQ(gap(editor, above), "Gap above: 0");
}

TEST_F(FrmMainFormatting, GapThatWasMissingIsWrittenAsZero) {
    EditorWindow editor("<a/>");
    moveGaps(editor, aboveSmaller);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="0"/>)");
}

TEST_F(FrmMainFormatting, GapThatIsNoNumberCountsFromZero) {
    EditorWindow editor(R"(<a spacebefore="abc"/>)");
    moveGaps(editor, aboveLarger);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="1"/>)");
    EXPECT_EQ(gap(editor, above), "Gap above: 1");
}

TEST_F(FrmMainFormatting, NegativeGapBecomesZero) {
    EditorWindow editor(R"(<a spaceafter="-5"/>)");
    EXPECT_EQ(gap(editor, below), "Gap below: -5");
    moveGaps(editor, belowLarger);
    EXPECT_EQ(editor.current(), R"(<a spaceafter="0"/>)");
    EXPECT_EQ(gap(editor, below), "Gap below: 0");
}

TEST_F(FrmMainFormatting, GapBelowHasItsOwnButtonsAndLabel) {
    EditorWindow editor("<a/>");
    moveGaps(editor, belowLarger);
    moveGaps(editor, belowLarger);
    moveGaps(editor, belowSmaller);
    EXPECT_EQ(editor.current(), R"(<a spaceafter="1"/>)");
    EXPECT_EQ(gap(editor, below), "Gap below: 1");
    EXPECT_EQ(gap(editor, above), "Gap above: 0");
}

TEST_F(FrmMainFormatting, GapBeyond16BitsIsReportedAndStays) {
    EditorWindow editor(R"(<a spacebefore="32767" spaceafter="-32768"/>)");
    expectOverflow(editor);
    moveGaps(editor, aboveLarger);
    expectOverflow(editor);
    moveGaps(editor, belowSmaller);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="32767" spaceafter="-32768"/>)");
    EXPECT_EQ(gap(editor, above), "Gap above: 32767");
    EXPECT_EQ(gap(editor, below), "Gap below: -32768");
}

void chooseColour(EditorWindow& editor, int side, const wxColour& colour, int button = wxID_OK) {
    editor.dialogs.expectColour(colour, button);
    editor.click(editor.controls().ChangeColor.at(side));
}

void expectColour(EditorWindow& editor, int side, const wxColour& colour, const char* text) {
    const wxStaticText* const label = editor.controls().lblColor.at(side);
    EXPECT_EQ(label->GetForegroundColour(), colour);
    EXPECT_EQ(editor.label(label), "Text Color: " + std::string(text));
}

const wxColour orange(255, 128, 64);
const wxColour blue200(0, 0, 200);

TEST_F(FrmMainFormatting, ChosenColourIsWrittenAndShown) {
    EditorWindow editor("<a/>");
    chooseColour(editor, title, orange);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#FF8040"/>)");
    expectColour(editor, title, orange, "#FF8040");
    expectColour(editor, answer, *wxBLACK, "#000000");
}

TEST_F(FrmMainFormatting, AnswerColourHasItsOwnButtonAndLabel) {
    EditorWindow editor("<a/>");
    chooseColour(editor, answer, wxColour(1, 2, 3));
    EXPECT_EQ(editor.current(), R"(<a answercolor="#010203"/>)");
    expectColour(editor, answer, wxColour(1, 2, 3), "#010203");
    expectColour(editor, title, *wxBLACK, "#000000");
}

TEST_F(FrmMainFormatting, Blue200IsWrittenAsC9) {
    EditorWindow editor("<a/><b/>");
    chooseColour(editor, title, blue200);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#0000C9"/>)");
    expectColour(editor, title, blue200, "#0000C9");
    editor.select("cabinet=>b");
    editor.select("cabinet=>a");
    expectColour(editor, title, wxColour(0, 0, 201), "#0000C9");
}

TEST_F(FrmMainFormatting, PureBlueStaysFF) {
    EditorWindow editor("<a/>");
    chooseColour(editor, title, *wxBLUE);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#0000FF"/>)");
}

TEST_F(FrmMainFormatting, FirstCancelInTheColourDialogAppliesBlack) {
    EditorWindow editor(R"(<a titlecolor="#FF8040"/>)");
    chooseColour(editor, title, *wxRED, wxID_CANCEL);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#000000"/>)");
    expectColour(editor, title, *wxBLACK, "#000000");
}

TEST_F(FrmMainFormatting, LaterCancelAppliesTheColourChosenLast) {
    EditorWindow editor(R"(<a/><b answercolor="#112233"/>)");
    chooseColour(editor, title, orange);
    editor.select("cabinet=>b");
    chooseColour(editor, answer, *wxRED, wxID_CANCEL);
    EXPECT_EQ(editor.current(), R"(<b answercolor="#FF8040"/>)");
    expectColour(editor, answer, orange, "#FF8040");
}

TEST_F(FrmMainFormatting, ColourOfAnotherWindowIsForgotten) {
    {
        EditorWindow editor("<a/>");
        chooseColour(editor, title, orange);
    }
    EditorWindow editor("<a/>");
    chooseColour(editor, title, *wxRED, wxID_CANCEL);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#000000"/>)");
}

TEST_F(FrmMainFormatting, ColourOfTheNextNodeIsItsOwn) {
    EditorWindow editor("<a/><b/>");
    chooseColour(editor, title, orange);
    editor.select("cabinet=>b");
    expectColour(editor, title, *wxBLACK, "#000000");
    EXPECT_EQ(editor.current(), "<b/>");
}

void tickStyle(EditorWindow& editor, int bit, bool ticked) {
    editor.tick(editor.controls().chkStyle.at(bit), ticked);
}

TEST_F(FrmMainFormatting, AnswerItalicOnStyle1Writes17AndUntickedAgain1) {
    EditorWindow editor(R"(<a style="1"/>)");
    tickStyle(editor, 16, true);
    EXPECT_EQ(editor.current(), R"(<a style="17"/>)");
    EXPECT_TRUE(editor.controls().chkStyle.at(16)->GetValue());
    tickStyle(editor, 16, false);
    EXPECT_EQ(editor.current(), R"(<a style="1"/>)");
    EXPECT_FALSE(editor.controls().chkStyle.at(16)->GetValue());
    EXPECT_TRUE(editor.controls().chkStyle.at(1)->GetValue());
}

TEST_F(FrmMainFormatting, EachStyleBoxHasItsBit) {
    EditorWindow editor("<a/>");
    int sum = 0;
    for (const int bit : {1, 2, 4, 8, 16, 32}) {
        tickStyle(editor, bit, true);
        sum += bit;
        EXPECT_EQ(editor.current(), "<a style=\"" + std::to_string(sum) + "\"/>");
    }
}

// Shown by rounding to even, computed from the number rounded down: the text says 2 and 1 at once.
TEST_F(FrmMainFormatting, TickOnATextThatDisagreesCarriesIntoTheNextBit) {
    EditorWindow editor(R"(<a style="1.5"/><b/>)");
    EXPECT_FALSE(editor.controls().chkStyle.at(1)->GetValue());
    EXPECT_TRUE(editor.controls().chkStyle.at(2)->GetValue());
    tickStyle(editor, 1, true);
    EXPECT_EQ(editor.current(), R"(<a style="2"/>)");
    EXPECT_TRUE(editor.controls().chkStyle.at(1)->GetValue());
    editor.select("cabinet=>b");
    editor.select("cabinet=>a");
    EXPECT_FALSE(editor.controls().chkStyle.at(1)->GetValue());
    EXPECT_TRUE(editor.controls().chkStyle.at(2)->GetValue());
}

TEST_F(FrmMainFormatting, UntickOnATextThatDisagreesGoesBelowZero) {
    EditorWindow editor(R"(<a style="1.5"/>)");
    tickStyle(editor, 2, false);
    EXPECT_EQ(editor.current(), R"(<a style="-1"/>)");
}

TEST_F(FrmMainFormatting, StyleBeyond16BitsIsReportedAndStays) {
    EditorWindow editor(R"(<a style="40000"/>)");
    expectOverflow(editor);
    tickStyle(editor, 1, true);
    EXPECT_EQ(editor.current(), R"(<a style="40000"/>)");
    EXPECT_TRUE(editor.controls().chkStyle.at(1)->GetValue());
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainFormatting, HideTitleAndHideValueWriteOneAndZero) {
    EditorWindow editor("<a/>");
    editor.tick(editor.controls().chkHidden.at(title), true);
    EXPECT_EQ(editor.current(), R"(<a titlehidden="1"/>)");
    editor.tick(editor.controls().chkHidden.at(answer), true);
    editor.tick(editor.controls().chkHidden.at(title), false);
    EXPECT_EQ(editor.current(), R"(<a titlehidden="0" answerhidden="1"/>)");
}

TEST_F(FrmMainFormatting, ColumnAndPageBreakWriteOneAndZero) {
    EditorWindow editor("<a/>");
    editor.tick(editor.controls().chkColumnBreak, true);
    EXPECT_EQ(editor.current(), R"(<a columnbreak="1"/>)");
    editor.tick(editor.controls().chkPageBreak, true);
    editor.tick(editor.controls().chkColumnBreak, false);
    EXPECT_EQ(editor.current(), R"(<a columnbreak="0" pagebreak="1"/>)");
}

TEST_F(FrmMainFormatting, CommandsActOnTheSelectedNodeOnly) {
    EditorWindow editor("<a/><b/>");
    editor.select("cabinet=>b");
    tickStyle(editor, 8, true);
    moveGaps(editor, aboveLarger);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a/><b style="8" spacebefore="1"/></cabinet>)");
}

TEST_F(FrmMainFormatting, TopRowTakesFormatting) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    tickStyle(editor, 1, true);
    EXPECT_EQ(editor.tree(), R"(<cabinet style="1"><a/></cabinet>)");
}

TEST_F(FrmMainFormatting, WithoutANodeAStyleBoxStaysClear) {
    EditorWindow editor("<a/>");
    editor.session().currentnode = nullptr;
    tickStyle(editor, 4, true);
    EXPECT_FALSE(editor.controls().chkStyle.at(4)->GetValue());
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST_F(FrmMainFormatting, WithoutANodeAStyleBoxThatWasTickedIsCleared) {
    EditorWindow editor(R"(<a style="4"/>)");
    editor.session().currentnode = nullptr;
    tickStyle(editor, 4, false);
    EXPECT_FALSE(editor.controls().chkStyle.at(4)->GetValue());
    EXPECT_EQ(editor.tree(), R"(<cabinet><a style="4"/></cabinet>)");
}

TEST_F(FrmMainFormatting, WithoutANodeTheOtherCommandsDoNothing) {
    EditorWindow editor("<a/>");
    editor.session().currentnode = nullptr;
    changeFont(editor, titleLarger);
    moveGaps(editor, belowLarger);
    editor.click(editor.controls().ChangeColor.at(title));  // asks nothing
    editor.tick(editor.controls().chkHidden.at(answer), true);
    editor.tick(editor.controls().chkColumnBreak, true);
    editor.tick(editor.controls().chkPageBreak, true);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(fontSize(editor, title), "Font Size: +0");
    EXPECT_EQ(gap(editor, below), "Gap below: 0");
}

TEST_F(FrmMainFormatting, TextRowTakesNoFormattingAndTheWindowStaysIntact) {
    EditorWindow editor("<a/>words");
    editor.controls().TreeXML->choose(*editor.session().file.baseXMLNode->lastChild());
    test::pumpPending();
    const std::string before = editor.core.document();
    editor.expectReport(91, "Object variable or With block variable not set");
    changeFont(editor, titleLarger);
    EXPECT_EQ(fontSize(editor, title), "Font Size: +0");
    EXPECT_EQ(editor.core.document(), before);
    editor.select("cabinet=>a");
    changeFont(editor, titleLarger);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="1"/>)");
}

}  // namespace
}  // namespace tavisk
