#include "ui/editor/answerBox.h"

#include <gtest/gtest.h>

#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::ruledColours;
using test::scrolledBy;
using test::shownColours;

struct AnswerBoxTest : testing::Test {
    HelpSession& session() { return window.editor.session; }
    long caret() { return window.box->GetInsertionPoint(); }
    /// What a user's single change is for the control.
    void put(const std::u16string& text) { box.WriteText(toWx(std::u16string_view(text))); }

    test::AnswerWindow window;
    AnswerBox& box = *window.box;
};

std::u16string lines(int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += u"A line with `token` in it.\n";
    return text;
}

TEST_F(AnswerBoxTest, MarkersAreColouredByTheirKindAndTheRestIsBlack) {
    window.showNode(u"see `~pic` and `x` or `!ov` now");
    EXPECT_EQ(shownColours(box), "....bbbbbb.....ooo....ggggg....");
}

TEST_F(AnswerBoxTest, ExternalPictureIsBlueAndALoneLastBackquoteBlack) {
    window.showNode(u"`@C:\\p.jpg` `");
    EXPECT_EQ(shownColours(box), "bbbbbbbbbbb..");
}

TEST_F(AnswerBoxTest, TwoAdjacentBackquotesAreOlive) {
    window.showNode(u"a``b");
    EXPECT_EQ(shownColours(box), ".oo.");
}

TEST_F(AnswerBoxTest, CarriageReturnsOfTheDocumentStay) {
    window.showNode(u"a\r\n`x`\rb");
    EXPECT_EQ(box.text(), u"a\r\n`x`\rb");
    EXPECT_EQ(shownColours(box), "...ooo..");
    box.SetInsertionPointEnd();
    put(u"c");
    EXPECT_EQ(window.panelText().text, u"a\r\n`x`\rbc");
}

TEST_F(AnswerBoxTest, AMarkerMayGoOverSeveralLines) {
    window.showNode(u"a `x\ny` b");
    EXPECT_EQ(shownColours(box), "..ooooo..");
}

TEST_F(AnswerBoxTest, CaretStaysWhereItWasWhenTheTextIsColoured) {
    window.showNode(u"see ~pic` and `x` or `!ov` now");
    box.SetInsertionPoint(4);
    put(u"`");
    EXPECT_EQ(shownColours(box), "....bbbbbb.....ooo....ggggg....");
    EXPECT_EQ(box.selection().start, 5u);
    EXPECT_EQ(box.selection().length, 0u);
}

TEST_F(AnswerBoxTest, SelectionStaysWhenTheTextIsColoured) {
    window.change = nullptr;
    put(u"a `x` b `!o` c");
    box.SetSelection(1, 10);
    changeAnswerText(session(), box.text());
    box.colour(window.panelText().text, window.panelText().tokens);
    EXPECT_EQ(shownColours(box), "..ooo...gggg..");
    EXPECT_EQ(box.GetStringSelection(), " `x` b `!");
}

TEST_F(AnswerBoxTest, ViewStaysWhereItWasWhenTheTextIsColoured) {
    window.showNode(lines(100));
    window.open();
    box.SetInsertionPoint(0);
    box.ShowPosition(box.GetLastPosition());
    ASSERT_TRUE(test::pumpUntil([&] { return scrolledBy(box) > 100; }));
    test::pumpPending();
    const double before = scrolledBy(box);
    // All tokens turn round, far above what is seen and in what is seen.
    box.colour(box.text(), {});
    test::pumpPending();
    EXPECT_EQ(scrolledBy(box), before);
    EXPECT_EQ(caret(), 0);
}

TEST_F(AnswerBoxTest, ColouringIsNoChangeOfTheText) {
    window.change = nullptr;
    put(u"a `x` b");
    EXPECT_EQ(window.changes, 1);
    box.colour(u"a `x` b", {{2, 3, TokenKind::formula}});
    test::pumpPending();
    EXPECT_EQ(window.changes, 1);
}

TEST_F(AnswerBoxTest, EachChangeIsWrittenToTheNode) {
    window.showNode(u"ab");
    box.SetInsertionPoint(1);
    put(u"`x`");
    EXPECT_EQ(window.value(), "a`x`b");
    EXPECT_EQ(window.changes, 1);
}

TEST_F(AnswerBoxTest, WithoutANodeTheTextIsColouredAndNothingWritten) {
    session().currentnode = nullptr;
    put(u"`x` y");
    EXPECT_EQ(shownColours(box), "ooo..");
    EXPECT_EQ(window.editor.tree(), "<cabinet><a/><b/></cabinet>");
}

TEST_F(AnswerBoxTest, ABackquoteAtTheStartTurnsAllMarkersRound) {
    window.showNode(u"a `x` b `!y`");
    box.SetInsertionPoint(0);
    put(u"`");
    EXPECT_EQ(shownColours(box), "oooo.ooooo...");
    box.Remove(0, 1);
    EXPECT_EQ(shownColours(box), "..ooo...gggg");
}

TEST_F(AnswerBoxTest, AnotherFirstCharacterIsAnotherKind) {
    window.showNode(u"`x`");
    box.SetInsertionPoint(1);
    put(u"~");
    EXPECT_EQ(shownColours(box), "bbbb");
    box.SetInsertionPoint(1);
    put(u"!");
    EXPECT_EQ(shownColours(box), "ggggg");
    box.Remove(1, 3);
    EXPECT_EQ(shownColours(box), "ooo");
}

TEST_F(AnswerBoxTest, ACharacterBehindAMarkerIsBlack) {
    window.showNode(u"`x`");
    box.SetInsertionPointEnd();
    put(u"y");
    EXPECT_EQ(shownColours(box), "ooo.");
}

TEST_F(AnswerBoxTest, ABackquoteBeforeALikeOneIsColouredToo) {
    window.showNode(u"`x`");
    box.SetInsertionPoint(0);
    put(u"`");
    EXPECT_EQ(shownColours(box), "oo..");
}

TEST_F(AnswerBoxTest, ReplacedTextIsColouredThoughItsEndsAreTheSame) {
    window.showNode(u"`ab` c");
    box.SetSelection(0, 6);
    put(u"`a` bc");
    EXPECT_EQ(shownColours(box), "ooo...");
}

TEST_F(AnswerBoxTest, ImageAtTheCursorReplacesTheSelection) {
    window.showNode(u"hello");
    box.SetSelection(3, 5);
    insertImageAtCursor(session(), "~pic", box.selection());
    window.showCommand();
    EXPECT_EQ(box.text(), u"hel`~pic`");
    EXPECT_EQ(shownColours(box), "...bbbbbb");
    EXPECT_EQ(window.value(), "hel`~pic`");
}

TEST_F(AnswerBoxTest, FormulaAtTheCursorReplacesTheSelection) {
    window.showNode(u"xaby");
    box.SetSelection(1, 3);
    insertFormulaAtCursor(session(), "Rate", box.selection());
    window.showCommand();
    EXPECT_EQ(box.text(), u"x`Rate`y");
    EXPECT_EQ(shownColours(box), ".oooooo.");
}

TEST_F(AnswerBoxTest, AfterAnInsertionTheCaretStandsBehindTheMarker) {
    window.showNode(u"`a``b`");
    box.SetInsertionPoint(3);
    insertFormulaAtCursor(session(), "a", box.selection());
    window.showCommand();
    EXPECT_EQ(box.text(), u"`a``a``b`");
    EXPECT_EQ(caret(), 6);
    EXPECT_EQ(box.selection().length, 0u);
}

TEST_F(AnswerBoxTest, AfterAnInsertionAtTheEndTheCaretStandsThere) {
    window.showNode(u"hello");
    box.SetSelection(1, 3);
    insertOverlay(session(), "~logo");
    window.showCommand();
    EXPECT_EQ(box.text(), u"hello`!logo`");
    EXPECT_EQ(shownColours(box), ".....ggggggg");
    EXPECT_EQ(caret(), 12);
}

TEST_F(AnswerBoxTest, InsertionAtTheEndOfALongTextIsSeen) {
    window.showNode(lines(100));
    window.open();
    insertImageAtEnd(session(), "~p");
    window.showCommand();
    EXPECT_TRUE(test::pumpUntil([&] { return scrolledBy(box) > 100; }));
}

TEST_F(AnswerBoxTest, ExternalPictureAskedForInVainChangesNothing) {
    window.showNode(u"hello");
    box.SetSelection(1, 3);
    window.editor.dialogs.expectPrompt("Please enter the path to the image (EG: C:\\test.jpg)",
                                       "External image", "", "");
    insertExternalImage(session(), window.editor.dialogs, box.selection());
    window.showCommand();
    EXPECT_EQ(box.text(), u"hello");
    EXPECT_EQ(box.GetStringSelection(), "el");
    EXPECT_EQ(window.value(), "hello");
}

TEST_F(AnswerBoxTest, FailedOverlayLeavesTheBoxAlone) {
    window.showNode(u"hello");
    box.SetSelection(1, 3);
    EXPECT_THROW(insertOverlay(session(), ""), RunTimeError);
    window.showCommand();
    EXPECT_EQ(box.text(), u"hello");
    EXPECT_EQ(box.GetStringSelection(), "el");
}

TEST_F(AnswerBoxTest, ShowingRunsNoHandler) {
    window.showNode(u"one `x`");
    window.showNode(u"");
    window.showNode(u"two");
    insertFormulaAtEnd(session(), "F");
    window.showCommand();
    changeAnswerText(session(), u"t");
    window.showCommand();
    changeAnswerText(session(), u"");
    window.showCommand();
    test::pumpPending();
    EXPECT_EQ(window.changes, 0);
    EXPECT_EQ(box.text(), u"");
}

TEST_F(AnswerBoxTest, AfterShowingTheUsersChangesAreTold) {
    window.showNode(u"one");
    put(u"x");
    EXPECT_EQ(window.changes, 1);
    EXPECT_EQ(window.value(), "xone");
}

TEST_F(AnswerBoxTest, ShownTextLeavesTheSelectionAlone) {
    window.showNode(u"some `x` text");
    box.SetSelection(2, 7);
    window.showCommand();
    EXPECT_EQ(box.selection().start, 2u);
    EXPECT_EQ(box.selection().length, 5u);
}

TEST_F(AnswerBoxTest, OtherNodesTextBeginsAtItsStart) {
    window.showNode(lines(100));
    window.open();
    box.SetInsertionPointEnd();
    ASSERT_TRUE(test::pumpUntil([&] { return scrolledBy(box) > 100; }));
    window.showNode(lines(99) + u"end");
    EXPECT_EQ(caret(), 0);
    test::pumpPending();
    EXPECT_EQ(scrolledBy(box), 0);
    EXPECT_EQ(shownColours(box), ruledColours(box.text()));
}

TEST_F(AnswerBoxTest, OtherNodesTextBeginsAtItsStartThoughItIsTheSame) {
    window.showNode(lines(100));
    window.open();
    box.SetInsertionPointEnd();
    ASSERT_TRUE(test::pumpUntil([&] { return scrolledBy(box) > 100; }));
    window.showNode(lines(100));
    EXPECT_EQ(caret(), 0);
    test::pumpPending();
    EXPECT_EQ(scrolledBy(box), 0);
}

TEST_F(AnswerBoxTest, OtherNodesTextThatGoesOnIsNoInsertion) {
    window.showNode(u"a");
    box.SetInsertionPointEnd();
    window.showNode(u"a `x`");
    EXPECT_EQ(caret(), 0);
    EXPECT_EQ(shownColours(box), "..ooo");
}

TEST_F(AnswerBoxTest, OtherNodesTextTakesNoColourOver) {
    window.showNode(u"`~abcdefgh`");
    window.showNode(u"plain text and more");
    EXPECT_EQ(shownColours(box), "...................");
    window.showNode(u"");
    put(u"x");
    EXPECT_EQ(shownColours(box), ".");
}

TEST_F(AnswerBoxTest, ATextOverTheLimitStaysInTheBoxAndIsColouredAgainBelowIt) {
    window.showNode(u"`x`" + std::u16string(32764, u'y'));
    box.SetInsertionPoint(0);
    put(u"`");
    EXPECT_EQ(window.error, 6);
    EXPECT_EQ(box.text().size(), 32768u);
    EXPECT_EQ(window.value().substr(0, 4), "`x`y");
    box.SetSelection(5, 10);
    put(u"`");
    EXPECT_EQ(window.value().substr(0, 8), "``x`y`yy");
    EXPECT_EQ(shownColours(box), ruledColours(box.text()));
}

TEST_F(AnswerBoxTest, WhatXmlForbidsStaysInTheBoxAndIsColouredAgainWithoutIt) {
    window.showNode(u"`x`");
    put(u"\u0001`");
    EXPECT_EQ(window.error, 5);
    EXPECT_EQ(box.text(), u"\u0001``x`");
    EXPECT_EQ(window.value(), "`x`");
    box.Remove(0, 1);
    EXPECT_EQ(window.value(), "``x`");
    EXPECT_EQ(shownColours(box), "oo..");
}

TEST_F(AnswerBoxTest, DisabledBoxShowsItsText) {
    box.Disable();
    window.showNode(u"a `x`");
    EXPECT_EQ(box.text(), u"a `x`");
    EXPECT_EQ(shownColours(box), "..ooo");
}

TEST_F(AnswerBoxTest, AnotherTextOfTheSameLengthIsColouredAnew) {
    window.showNode(u"`ab`!");
    box.SetValue("!`ab`");
    EXPECT_EQ(shownColours(box), ".oooo");
}

TEST_F(AnswerBoxTest, WhatCuttingLeavesIsColouredAnew) {
    window.showNode(u"~b @!`!e`");
    box.SetSelection(0, 8);
    box.Cut();
    EXPECT_EQ(box.text(), u"`");
    EXPECT_EQ(shownColours(box), ".");
}

}  // namespace
}  // namespace tavisk
