// Lines with so many markers that only those in view are coloured.
#include <gtest/gtest.h>

#include "reference/random.h"
#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::pumpUntil;
using test::ruledColours;
using test::scrolledBy;
using test::shownColours;

std::u16string crowded(int markers) {
    std::u16string text;
    for (int i = 0; i < markers; ++i)
        text += i % 3 == 0 ? u"some `x` " : i % 3 == 1 ? u"words `~pic` " : u"and `!\U0001F600` ";
    return text;
}

struct AnswerBoxCrowdedTest : testing::Test {
    void SetUp() override { window.open(); }

    /// Whether what is seen has the colours that everything ought to have.
    bool isRightInView() {
        // With every look at it only a little would happen.
        test::pumpPending();
        const auto [from, to] = test::seenCharacters(box);
        const std::string ruled = ruledColours(box.text());
        return to > from && shownColours(box, from, to) == ruled.substr(from, to - from);
    }
    bool becomesRightInView() {
        return pumpUntil([&] { return isRightInView(); });
    }
    bool scrollTo(long position) {
        const double before = scrolledBy(box);
        box.ShowPosition(position);
        return pumpUntil([&] { return scrolledBy(box) != before; });
    }

    test::AnswerWindow window;
    AnswerBox& box = *window.box;
};

TEST_F(AnswerBoxCrowdedTest, WhatIsSeenIsColouredAndTheRestIsNotInTheWay) {
    window.showNode(crowded(1000));
    ASSERT_TRUE(becomesRightInView());
    EXPECT_LT(test::mostPiecesInLine(box), 400u);
}

TEST_F(AnswerBoxCrowdedTest, WhatComesIntoViewIsColoured) {
    window.showNode(crowded(1000));
    ASSERT_TRUE(scrollTo(box.GetLastPosition()));
    EXPECT_TRUE(becomesRightInView());
    ASSERT_TRUE(scrollTo(box.GetLastPosition() / 2));
    EXPECT_TRUE(becomesRightInView());
    EXPECT_LT(test::mostPiecesInLine(box), 400u);
}

TEST_F(AnswerBoxCrowdedTest, ALargerWindowShowsMoreInColour) {
    window.showNode(crowded(1000));
    ASSERT_TRUE(becomesRightInView());
    const std::size_t before = test::seenCharacters(box).second;
    window.frame->SetClientSize(900, 700);
    ASSERT_TRUE(pumpUntil([&] { return test::seenCharacters(box).second > 2 * before; }));
    EXPECT_TRUE(becomesRightInView());
}

TEST_F(AnswerBoxCrowdedTest, TypingAtTheEndIsColoured) {
    window.showNode(crowded(1000));
    box.SetInsertionPointEnd();
    window.type("`!a` `b");
    ASSERT_TRUE(window.becomes(crowded(1000) + u"`!a` `b"));
    EXPECT_TRUE(becomesRightInView());
    EXPECT_EQ(shownColours(box).substr(shownColours(box).size() - 7), "gggg...");
}

TEST_F(AnswerBoxCrowdedTest, ABackquoteAtTheStartTurnsRoundWhatIsSeen) {
    window.showNode(crowded(1000));
    ASSERT_TRUE(becomesRightInView());
    window.type("`");
    ASSERT_TRUE(window.becomes(u"`" + crowded(1000)));
    EXPECT_TRUE(becomesRightInView());
}

TEST_F(AnswerBoxCrowdedTest, ALineThatIsBrokenUpIsColouredWhole) {
    window.showNode(crowded(20) + crowded(20) + u"\n" + crowded(20));
    ASSERT_TRUE(becomesRightInView());
    box.SetInsertionPoint(static_cast<long>(toWx(crowded(20)).length()));
    box.WriteText("\n");
    EXPECT_EQ(shownColours(box), ruledColours(box.text()));
}

TEST_F(AnswerBoxCrowdedTest, OrdinaryLinesAreColouredOutOfViewToo) {
    std::u16string text;
    for (int i = 0; i < 100; ++i)
        text += crowded(10) + u"\n";
    window.showNode(text);
    EXPECT_EQ(shownColours(box), ruledColours(box.text()));
}

TEST_F(AnswerBoxCrowdedTest, AFailedChangeIsNotColouredByScrolling) {
    window.showNode(crowded(1000));
    ASSERT_TRUE(becomesRightInView());
    box.SetInsertionPoint(0);
    box.WriteText("\x01");
    EXPECT_EQ(window.error, 5);
    ASSERT_TRUE(scrollTo(box.GetLastPosition()));
    box.Remove(0, 1);
    EXPECT_TRUE(becomesRightInView());
    box.ShowPosition(0);
    EXPECT_TRUE(becomesRightInView());
}

TEST_F(AnswerBoxCrowdedTest, WhereverOneTypesAndScrollsTheViewIsRight) {
    reference::Random random(5);
    window.showNode(crowded(600));
    const std::vector<std::u16string> pieces = {u"`",       u"x", u"\n", u"`~p`", u" \U0001F600 ",
                                                crowded(40)};
    for (int step = 0; step < 60; ++step) {
        const std::size_t last = test::characterCount(box.text());
        const std::size_t from = random.below(last);
        const long at = test::placeBehind(box, from);
        if (random.chance(30)) {
            box.ShowPosition(at);
        } else if (random.chance(30)) {
            box.Remove(at, test::placeBehind(box, std::min(from + random.below(300), last)));
        } else {
            box.SetInsertionPoint(at);
            box.WriteText(toWx(std::u16string_view(random.pick(pieces))));
        }
        ASSERT_TRUE(becomesRightInView()) << "step " << step;
    }
}

}  // namespace
}  // namespace tavisk
