#include "editor/formattingCommands.h"

#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;

std::int32_t noTranslation(std::int32_t) { return -1; }

constexpr int titleSmaller = 0;
constexpr int titleLarger = 2;
constexpr int answerSmaller = 3;
constexpr int answerLarger = 5;
constexpr int aboveSmaller = 0;
constexpr int aboveLarger = 2;
constexpr int belowLarger = 5;

constexpr int titleBold = 0;
constexpr int answerItalic = 4;

/// A state that no command may act in.
struct NoNode : EditorSession {
    NoNode() : EditorSession("<a/>") { session.currentnode = nullptr; }
};

TEST(FormattingCommands, SmallerTitleFromZero) {
    EditorSession editor("<a/>");
    changeFontSize(editor.session, titleSmaller);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="-1"/>)");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[0], "Font Size: -1");
}

TEST(FormattingCommands, LargerTitleTwiceFromZero) {
    EditorSession editor(R"(<a titlefontsize="0"/>)");
    changeFontSize(editor.session, titleLarger);
    changeFontSize(editor.session, titleLarger);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="2"/>)");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[0], "Font Size: +2");
}

TEST(FormattingCommands, AnswerSizeHasItsOwnAttributeAndLabel) {
    EditorSession editor("<a/>");
    changeFontSize(editor.session, answerLarger);
    EXPECT_EQ(editor.current(), R"(<a answerfontsize="1"/>)");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[1], "Font Size: +1");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[0], "Font Size: +0");
    changeFontSize(editor.session, answerSmaller);
    EXPECT_EQ(editor.current(), R"(<a answerfontsize="0"/>)");
}

TEST(FormattingCommands, SizeIsRoundedDownBeforeTheStep) {
    EditorSession editor(R"(<a titlefontsize="-0.5"/>)");
    changeFontSize(editor.session, titleLarger);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="0"/>)");
}

TEST(FormattingCommands, SizeBeyond16BitsIsError6AndWritesNothing) {
    EditorSession editor(R"(<a titlefontsize="32767" answerfontsize="40000"/>)");
    EXPECT_EQ(errorOf([&] { changeFontSize(editor.session, titleLarger); }), 6);
    EXPECT_EQ(errorOf([&] { changeFontSize(editor.session, answerSmaller); }), 6);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="32767" answerfontsize="40000"/>)");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[0], "Font Size: +32767");
}

TEST(FormattingCommands, SizeReachesTheEndsOf16Bits) {
    EditorSession editor(R"(<a titlefontsize="32766" answerfontsize="-32767"/>)");
    changeFontSize(editor.session, titleLarger);
    changeFontSize(editor.session, answerSmaller);
    EXPECT_EQ(editor.current(), R"(<a titlefontsize="32767" answerfontsize="-32768"/>)");
    EXPECT_EQ(errorOf([&] { changeFontSize(editor.session, answerSmaller); }), 6);
}

TEST(FormattingCommands, GapStaysAtZero) {
    EditorSession editor("<a/>");
    moveGap(editor.session, aboveSmaller);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="0"/>)");
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: 0");
}

TEST(FormattingCommands, GapThatIsNoNumberCountsFromZero) {
    EditorSession editor(R"(<a spacebefore="abc"/>)");
    moveGap(editor.session, aboveLarger);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="1"/>)");
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: 1");
}

TEST(FormattingCommands, NegativeGapBecomesZero) {
    EditorSession editor(R"(<a spacebefore="-9"/>)");
    moveGap(editor.session, aboveLarger);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="0"/>)");
}

TEST(FormattingCommands, GapBelowHasItsOwnAttributeAndLabel) {
    EditorSession editor(R"(<a spaceafter="1"/>)");
    moveGap(editor.session, belowLarger);
    EXPECT_EQ(editor.current(), R"(<a spaceafter="2"/>)");
    EXPECT_EQ(editor.session.panel.gapCaptions[1], "Gap below: 2");
}

TEST(FormattingCommands, GapBeyond16BitsIsError6AndWritesNothing) {
    EditorSession editor(R"(<a spacebefore="32767" spaceafter="-32768"/>)");
    EXPECT_EQ(errorOf([&] { moveGap(editor.session, aboveLarger); }), 6);
    EXPECT_EQ(errorOf([&] { moveGap(editor.session, 3); }), 6);
    EXPECT_EQ(editor.current(), R"(<a spacebefore="32767" spaceafter="-32768"/>)");
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: 32767");
}

TEST(FormattingCommands, ChosenColourIsWrittenAndShown) {
    EditorSession editor("<a/>");
    editor.dialogs.expectColour(0x004080FF);
    changeColour(editor.session, Side::title, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#FF8040"/>)");
    EXPECT_EQ(editor.session.panel.colourCaptions[0], "Text Color: #FF8040");
    EXPECT_EQ(editor.session.panel.colours[0], 0x004080FFu);
}

TEST(FormattingCommands, AnswerColourIsTheDialogsOwnWhileTheTextHasItsBlue) {
    EditorSession editor("<a/>");
    editor.dialogs.expectColour(0x00C80000);
    changeColour(editor.session, Side::answer, editor.dialogs);
    EXPECT_EQ(editor.current(), R"(<a answercolor="#0000C9"/>)");
    EXPECT_EQ(editor.session.panel.colours[1], 0x00C80000u);
    EXPECT_EQ(editor.session.panel.colourCaptions[1], "Text Color: #0000C9");
}

TEST(FormattingCommands, FailedColourTranslationIsWrittenAsWhite) {
    EditorSession editor("<a/>");
    editor.dialogs.expectColour(0x80000005);
    changeColour(editor.session, Side::title, editor.dialogs, noTranslation);
    EXPECT_EQ(editor.current(), R"(<a titlecolor="#FFFFFF"/>)");
}

TEST(FormattingCommands, StyleBitsAreAddedAndSubtracted) {
    EditorSession editor(R"(<a style="1"/>)");
    clickStyle(editor.session, answerItalic, true);
    EXPECT_EQ(editor.current(), R"(<a style="17"/>)");
    clickStyle(editor.session, answerItalic, false);
    EXPECT_EQ(editor.current(), R"(<a style="1"/>)");
}

TEST(FormattingCommands, EveryStyleBoxHasItsBit) {
    for (int bit = 0; bit < 6; ++bit) {
        EditorSession editor("<a/>");
        clickStyle(editor.session, bit, true);
        EXPECT_EQ(editor.current(), "<a style=\"" + std::to_string(1 << bit) + "\"/>");
        EXPECT_TRUE(editor.session.panel.style[static_cast<std::size_t>(bit)]);
    }
}

TEST(FormattingCommands, StyleThatDisagreesWithTheBoxesCarries) {
    EditorSession editor("<a/>");
    SetAttributeValue(*editor.session.file.articledoc, *editor.session.currentnode, "style", "1");
    clickStyle(editor.session, titleBold, true);
    EXPECT_EQ(editor.current(), R"(<a style="2"/>)");
}

TEST(FormattingCommands, StyleGoesBelowZero) {
    EditorSession editor("<a/>");
    clickStyle(editor.session, titleBold, false);
    EXPECT_EQ(editor.current(), R"(<a style="-1"/>)");
}

TEST(FormattingCommands, StyleBeyond16BitsIsError6AndWritesNothing) {
    EditorSession editor(R"(<a style="32760"/>)");
    EXPECT_EQ(errorOf([&] { clickStyle(editor.session, answerItalic, true); }), 6);
    EXPECT_EQ(editor.current(), R"(<a style="32760"/>)");
}

TEST(FormattingCommands, StyleClickIsIgnoredWhileLoading) {
    EditorSession editor("<a/>");
    editor.session.panel.loading = true;
    clickStyle(editor.session, titleBold, true);
    EXPECT_EQ(editor.current(), "<a/>");
}

TEST(FormattingCommands, StyleBoxStaysClearWithoutANode) {
    NoNode editor;
    clickStyle(editor.session, titleBold, true);
    EXPECT_FALSE(editor.session.panel.style[0]);
    EXPECT_FALSE(editor.session.panel.loading);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(FormattingCommands, HiddenBoxesWriteOneAndZero) {
    EditorSession editor("<a/>");
    clickHidden(editor.session, Side::title, true);
    clickHidden(editor.session, Side::answer, true);
    EXPECT_EQ(editor.current(), R"(<a titlehidden="1" answerhidden="1"/>)");
    clickHidden(editor.session, Side::title, false);
    clickHidden(editor.session, Side::answer, false);
    EXPECT_EQ(editor.current(), R"(<a titlehidden="0" answerhidden="0"/>)");
}

TEST(FormattingCommands, BreakBoxesWriteOneAndZero) {
    EditorSession editor("<a/>");
    clickColumnBreak(editor.session, true);
    clickPageBreak(editor.session, true);
    EXPECT_EQ(editor.current(), R"(<a columnbreak="1" pagebreak="1"/>)");
    clickColumnBreak(editor.session, false);
    clickPageBreak(editor.session, false);
    EXPECT_EQ(editor.current(), R"(<a columnbreak="0" pagebreak="0"/>)");
}

TEST(FormattingCommands, HiddenAndBreakBoxesWriteEvenWhileLoading) {
    EditorSession editor("<a/>");
    editor.session.panel.loading = true;
    clickHidden(editor.session, Side::title, true);
    clickColumnBreak(editor.session, true);
    EXPECT_EQ(editor.current(), R"(<a titlehidden="1" columnbreak="1"/>)");
}

TEST(FormattingCommands, WithoutANodeNoCommandWritesOrAsks) {
    NoNode editor;
    changeFontSize(editor.session, titleLarger);
    moveGap(editor.session, aboveLarger);
    changeColour(editor.session, Side::title, editor.dialogs);
    clickHidden(editor.session, Side::title, true);
    clickColumnBreak(editor.session, true);
    clickPageBreak(editor.session, true);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.session.panel.fontSizeCaptions[0], "Font Size: +0");
}

TEST(FormattingCommands, CommandsActOnALockedNodeToo) {
    EditorSession editor("<cabinetdata><b/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b");
    changeFontSize(editor.session, titleLarger);
    EXPECT_EQ(editor.current(), R"(<b titlefontsize="1"/>)");
}

}  // namespace
}  // namespace tavisk
