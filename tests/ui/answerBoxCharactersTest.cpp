// Characters that a text control might change or count differently.
#include <gtest/gtest.h>

#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::shownColours;

struct AnswerBoxCharactersTest : testing::Test {
    /// Shows a text, types behind its first character, and gives what became of it.
    std::u16string typedInto(const std::u16string& text) {
        window.showNode(text);
        EXPECT_EQ(box.text(), text);
        box.SetInsertionPoint(1);
        box.WriteText("x");
        return box.text();
    }

    test::AnswerWindow window;
    AnswerBox& box = *window.box;
};

TEST_F(AnswerBoxCharactersTest, CarriageReturnsAndLineFeedsComeBack) {
    EXPECT_EQ(typedInto(u"a\r\nb\r\n\r\nc"), u"ax\r\nb\r\n\r\nc");
    EXPECT_EQ(window.value(), "ax\r\nb\r\n\r\nc");
}

TEST_F(AnswerBoxCharactersTest, LoneCarriageReturnsComeBack) {
    EXPECT_EQ(typedInto(u"a\rb\r\rc\n\r"), u"ax\rb\r\rc\n\r");
}

TEST_F(AnswerBoxCharactersTest, ATextMayComeBetweenCarriageReturnAndLineFeed) {
    window.showNode(u"a\r\nb");
    insertFormulaAtCursor(window.editor.session, "F", {2, 0});
    window.showCommand();
    EXPECT_EQ(box.text(), u"a\r`F`\nb");
    EXPECT_EQ(shownColours(box), "..ooo..");
}

TEST_F(AnswerBoxCharactersTest, TabsAndOtherBreaksComeBack) {
    EXPECT_EQ(typedInto(u"a\tb\t\tc\u2028d\u2029e\u0085f"), u"ax\tb\t\tc\u2028d\u2029e\u0085f");
}

TEST_F(AnswerBoxCharactersTest, EmojiComeBack) {
    EXPECT_EQ(typedInto(u"a\U0001F600b\U0001F468\u200D\U0001F469"),
              u"ax\U0001F600b\U0001F468\u200D\U0001F469");
}

TEST_F(AnswerBoxCharactersTest, CombiningMarksAndUncommonCharactersComeBack) {
    EXPECT_EQ(typedInto(u"ae\u0301\u00E9\uFFFC\uFFFD\u05D0\u05D1\u200F\uFEFF\u00AD\u00A0"),
              u"axe\u0301\u00E9\uFFFC\uFFFD\u05D0\u05D1\u200F\uFEFF\u00AD\u00A0");
}

TEST_F(AnswerBoxCharactersTest, BlanksAndBreaksAtTheEndsComeBack) {
    EXPECT_EQ(typedInto(u"\n  a  \n\n"), u"\nx  a  \n\n");
}

TEST_F(AnswerBoxCharactersTest, SelectionCountsCodeUnits) {
    window.showNode(u"\U0001F600a\U0001F600b");
    test::selectCharacters(box, 1, 3);
    EXPECT_EQ(box.selection().start, 2u);
    EXPECT_EQ(box.selection().length, 3u);
    box.SetInsertionPointEnd();
    EXPECT_EQ(box.selection().start, 6u);
    EXPECT_EQ(box.selection().length, 0u);
}

TEST_F(AnswerBoxCharactersTest, MarkersBehindEmojiAreColoured) {
    window.showNode(u"\U0001F600 `\U0001F600` `~\U0001F600` b");
    EXPECT_EQ(shownColours(box), "..ooo.bbbb..");
}

TEST_F(AnswerBoxCharactersTest, ChangesBehindEmojiAreColoured) {
    window.showNode(u"\U0001F600 `x` \U0001F600 `y`");
    box.SetInsertionPoint(test::placeBehind(box, 9));
    box.WriteText("!");
    EXPECT_EQ(box.text(), u"\U0001F600 `x` \U0001F600 `!y`");
    EXPECT_EQ(shownColours(box), "..ooo...gggg");
    box.SetInsertionPoint(0);
    box.WriteText(toWx(std::u16string_view(u"`\U0001F600")));
    EXPECT_EQ(shownColours(box), "ooooo.ooooo...");
}

TEST_F(AnswerBoxCharactersTest, InsertionBehindAnEmojiReplacesTheSelection) {
    window.showNode(u"\U0001F600a\U0001F600b");
    test::selectCharacters(box, 1, 3);
    insertImageAtCursor(window.editor.session, "~\u00E9", box.selection());
    window.showCommand();
    EXPECT_EQ(box.text(), u"\U0001F600`~\u00E9`b");
    EXPECT_EQ(shownColours(box), ".bbbb.");
    EXPECT_EQ(box.selection().start, 6u);
}

TEST_F(AnswerBoxCharactersTest, OneEmojiForAnotherIsShown) {
    window.showNode(u"x\U0001F600y");
    changeAnswerText(window.editor.session, u"x\U0001F601y");
    window.showCommand();
    EXPECT_EQ(box.text(), u"x\U0001F601y");
}

}  // namespace
}  // namespace tavisk
