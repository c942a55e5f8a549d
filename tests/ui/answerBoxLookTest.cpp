// Black and coloured text on white paper, whatever the theme.
#include <functional>
#include <gtest/gtest.h>

#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::Drawing;
using test::paperOf;

constexpr Colour white = 0xFFFFFF;
constexpr Colour black = 0x000000;

/// Both themes; the light one is there again afterwards.
struct AnswerBoxLookTest : testing::TestWithParam<bool> {
    void SetUp() override {
        test::useDarkTheme(GetParam());
        window.open();
    }
    void TearDown() override { test::useDarkTheme(false); }

    /// Draws the box again and again until it looks right.
    bool comesToLook(const std::function<bool(Drawing&)>& right) {
        return test::pumpUntil([&] {
            Drawing drawing = test::drawingOf(box);
            return right(drawing);
        });
    }

    test::AnswerWindow window;
    AnswerBox& box = *window.box;
};

TEST_P(AnswerBoxLookTest, PaperIsWhite) {
    EXPECT_TRUE(comesToLook([](Drawing& drawing) { return paperOf(drawing) == white; }));
}

TEST_P(AnswerBoxLookTest, TextIsBlackAndTokensHaveTheirColours) {
    window.showNode(u"words `x` `~p` `!o`");
    EXPECT_EQ(test::shownColours(box), "......ooo.bbbb.gggg");
    EXPECT_TRUE(comesToLook([](Drawing& drawing) {
        return paperOf(drawing) == white && drawing[black] > 0 &&
               drawing[tokenColour(TokenKind::image)] > 0 &&
               drawing[tokenColour(TokenKind::overlay)] > 0 &&
               drawing[tokenColour(TokenKind::formula)] > 0;
    }));
}

TEST_P(AnswerBoxLookTest, CaretIsBlack) {
    EXPECT_TRUE(comesToLook(
        [](Drawing& drawing) { return paperOf(drawing) == white && drawing[black] >= 10; }));
}

TEST_P(AnswerBoxLookTest, SelectionIsSeen) {
    window.showNode(u".          .");
    std::size_t before = 0;
    ASSERT_TRUE(comesToLook([&](Drawing& drawing) {
        before = drawing[white];
        return paperOf(drawing) == white;
    }));
    box.SelectAll();
    EXPECT_TRUE(comesToLook([&](Drawing& drawing) {
        return paperOf(drawing) == white && drawing[white] + 200 < before;
    }));
}

TEST_P(AnswerBoxLookTest, DisabledBoxIsGreyAndItsTextCanBeRead) {
    window.showNode(u"words `x`");
    box.Disable();
    EXPECT_EQ(test::shownColours(box), "......ooo");
    EXPECT_TRUE(comesToLook(
        [](Drawing& drawing) { return paperOf(drawing) == 0xEBEBEB && drawing[black] > 0; }));
}

INSTANTIATE_TEST_SUITE_P(Themes, AnswerBoxLookTest, testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tavisk
