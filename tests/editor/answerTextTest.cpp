#include "editor/answerText.h"

#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;

constexpr const char* externalPrompt = "Please enter the path to the image (EG: C:\\test.jpg)";
constexpr const char* externalTitle = "External image";

/// A session whose only help node has this answer text.
struct Answer : EditorSession {
    explicit Answer(std::u16string text) : EditorSession("<a/>") {
        changeAnswerText(session, std::move(text));
    }
    std::string value() const {
        return std::string(GetAttributeValue(session.currentnode, "value", "(none)"));
    }
};

TEST(AnswerText, ChangeIsWrittenToTheNodeAtOnce) {
    Answer answer(u"words");
    EXPECT_EQ(answer.current(), R"(<a value="words"/>)");
    changeAnswerText(answer.session, u"wordsy");
    EXPECT_EQ(answer.current(), R"(<a value="wordsy"/>)");
    EXPECT_EQ(answer.session.panel.text, u"wordsy");
}

TEST(AnswerText, EmptiedTextIsWrittenAsAnEmptyAttribute) {
    Answer answer(u"words");
    changeAnswerText(answer.session, u"");
    EXPECT_EQ(answer.current(), R"(<a value=""/>)");
}

TEST(AnswerText, MarkersAreColouredByTheirKind) {
    Answer answer(u"a `~pic` b `x` c `!ov` d `@C:\\p` e");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{2, 6, TokenKind::image},
                                                               {11, 3, TokenKind::formula},
                                                               {17, 5, TokenKind::overlay},
                                                               {25, 7, TokenKind::externalImage}}));
}

TEST(AnswerText, LoneLastBackquoteIsPlain) {
    Answer answer(u"`@p` `");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{0, 4, TokenKind::externalImage}}));
}

TEST(AnswerText, TwoAdjacentBackquotesAreAFormula) {
    Answer answer(u"``");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{0, 2, TokenKind::formula}}));
}

TEST(AnswerText, PositionsCountUtf16CodeUnits) {
    Answer answer(u"\U0001F600`x`");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{2, 3, TokenKind::formula}}));
    EXPECT_EQ(answer.value(), "\U0001F600`x`");
}

TEST(AnswerText, WithoutANodeTheTextIsColouredAndNothingWritten) {
    EditorSession editor("<a/>");
    editor.session.currentnode = nullptr;
    changeAnswerText(editor.session, u"`x`");
    EXPECT_EQ(editor.session.panel.text, u"`x`");
    EXPECT_EQ(editor.session.panel.tokens, (std::vector<Token>{{0, 3, TokenKind::formula}}));
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(AnswerText, ATextOf32767CodeUnitsPasses) {
    Answer answer(std::u16string(32767, u'\u00e9'));
    EXPECT_EQ(answer.value().size(), 2u * 32767u);
}

TEST(AnswerText, ALongerTextIsError6AndTheNodeKeepsItsText) {
    Answer answer(u"`x`");
    EXPECT_EQ(errorOf([&] { changeAnswerText(answer.session, std::u16string(32768, u'x')); }), 6);
    EXPECT_EQ(answer.value(), "`x`");
    EXPECT_EQ(answer.session.panel.text.size(), 32768u);
    EXPECT_EQ(answer.session.panel.tokens, std::vector<Token>{});
}

TEST(AnswerText, ALoneSurrogateIsError5AndTheNodeKeepsItsText) {
    Answer answer(u"before");
    EXPECT_EQ(errorOf([&] { changeAnswerText(answer.session, std::u16string(1, 0xD800)); }), 5);
    EXPECT_EQ(answer.value(), "before");
}

TEST(AnswerText, AForbiddenCharacterIsError5AndTheNodeKeepsItsText) {
    Answer answer(u"before");
    EXPECT_EQ(errorOf([&] { changeAnswerText(answer.session, u"a\u0001"); }), 5);
    EXPECT_EQ(answer.value(), "before");
}

TEST(AnswerText, ChangeIsWrittenWhileLoadingToo) {
    Answer answer(u"");
    answer.session.panel.loading = true;
    changeAnswerText(answer.session, u"words");
    EXPECT_EQ(answer.value(), "words");
}

TEST(AnswerText, LineBreaksAndTabsComeBack) {
    Answer answer(u"a\r\nb\tc");
    EXPECT_EQ(answer.current(), R"(<a value="a&#13;&#10;b&#9;c"/>)");
}

TEST(AnswerText, FormulaAtCursorReplacesTheSelection) {
    Answer answer(u"xaby");
    insertFormulaAtCursor(answer.session, "Rate", {1, 2});
    EXPECT_EQ(answer.value(), "x`Rate`y");
}

TEST(AnswerText, FormulaAtCursorWithoutSelectionIsInserted) {
    Answer answer(u"xy");
    insertFormulaAtCursor(answer.session, "Rate", {1, 0});
    EXPECT_EQ(answer.value(), "x`Rate`y");
}

TEST(AnswerText, FormulaAtEndIsAppended) {
    Answer answer(u"xy");
    insertFormulaAtEnd(answer.session, "Rate");
    EXPECT_EQ(answer.value(), "xy`Rate`");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{2, 6, TokenKind::formula}}));
}

TEST(AnswerText, NoFormulaChosenInsertsTwoBackquotes) {
    Answer answer(u"xy");
    insertFormulaAtCursor(answer.session, "", {1, 0});
    insertFormulaAtEnd(answer.session, "");
    EXPECT_EQ(answer.value(), "x``y``");
}

TEST(AnswerText, ImageAtCursorReplacesTheSelection) {
    Answer answer(u"hello");
    insertImageAtCursor(answer.session, "~pic", {3, 2});
    EXPECT_EQ(answer.value(), "hel`~pic`");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{3, 6, TokenKind::image}}));
}

TEST(AnswerText, ImageAtEndIsAppended) {
    Answer answer(u"hello");
    insertImageAtEnd(answer.session, "~logo");
    EXPECT_EQ(answer.value(), "hello`~logo`");
}

TEST(AnswerText, NoImageChosenInsertsTwoBackquotes) {
    Answer answer(u"ab");
    insertImageAtCursor(answer.session, "", {1, 0});
    insertImageAtEnd(answer.session, "");
    EXPECT_EQ(answer.value(), "a``b``");
}

TEST(AnswerText, OverlayTakesTheEntryWithoutItsFirstCharacter) {
    Answer answer(u"hello");
    insertOverlay(answer.session, "~logo");
    EXPECT_EQ(answer.value(), "hello`!logo`");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{5, 7, TokenKind::overlay}}));
}

TEST(AnswerText, OverlayOfANamelessImageHasAnEmptyName) {
    Answer answer(u"x");
    insertOverlay(answer.session, "~");
    EXPECT_EQ(answer.value(), "x`!`");
}

TEST(AnswerText, OverlayWithoutAnImageIsError5AndTheTextStays) {
    Answer answer(u"hello");
    EXPECT_EQ(errorOf([&] { insertOverlay(answer.session, ""); }), 5);
    EXPECT_EQ(answer.value(), "hello");
    EXPECT_EQ(answer.session.panel.text, u"hello");
}

TEST(AnswerText, ExternalImageIsAskedForAndInsertedAtTheCursor) {
    Answer answer(u"hello");
    answer.dialogs.expectPrompt(externalPrompt, externalTitle, "", "C:\\a b.png");
    insertExternalImage(answer.session, answer.dialogs, {1, 3});
    EXPECT_EQ(answer.value(), "h`@C:\\a b.png`o");
    EXPECT_EQ(answer.session.panel.tokens, (std::vector<Token>{{1, 13, TokenKind::externalImage}}));
}

TEST(AnswerText, ExternalImageWithoutAPathChangesNothing) {
    EditorSession editor("<a/>");
    editor.dialogs.expectPrompt(externalPrompt, externalTitle, "", "");
    insertExternalImage(editor.session, editor.dialogs, {0, 0});
    EXPECT_EQ(editor.current(), "<a/>");
}

TEST(AnswerText, InsertionBehindTheTextAppends) {
    Answer answer(u"ab");
    insertImageAtCursor(answer.session, "~p", {9, 9});
    EXPECT_EQ(answer.value(), "ab`~p`");
}

TEST(AnswerText, InsertionPositionsCountUtf16CodeUnits) {
    Answer answer(u"\U0001F600x");
    insertImageAtCursor(answer.session, "~\u00e9", {2, 1});
    EXPECT_EQ(answer.value(), "\U0001F600`~\u00e9`");
}

TEST(AnswerText, InsertionBeyondTheLimitIsError6AndTheNodeKeepsItsText) {
    Answer answer(std::u16string(32766, u'x'));
    EXPECT_EQ(errorOf([&] { insertFormulaAtEnd(answer.session, ""); }), 6);
    EXPECT_EQ(answer.value().size(), 32766u);
}

TEST(AnswerText, InsertionUpToTheLimitPasses) {
    Answer answer(std::u16string(32765, u'x'));
    insertFormulaAtEnd(answer.session, "");
    EXPECT_EQ(answer.value().size(), 32767u);
}

TEST(AnswerText, PositionBehindTheSelectionIsA16BitNumber) {
    Answer answer(std::u16string(32767, u'x'));
    EXPECT_EQ(errorOf([&] { insertFormulaAtCursor(answer.session, "F", {0, 32767}); }), 6);
    EXPECT_EQ(answer.session.panel.text.size(), 32767u);
    insertFormulaAtCursor(answer.session, "F", {0, 32766});
    EXPECT_EQ(answer.value(), "`F`x");
}

}  // namespace
}  // namespace tavisk
