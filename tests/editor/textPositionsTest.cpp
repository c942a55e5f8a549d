#include "editor/textPositions.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

constexpr std::u16string_view smile = u"a\U0001F600b\U0001F600\U0001F600";

TEST(TextPositions, AreTheSameWhereNoCharacterHasTwoUnits) {
    CharacterPositions positions(u"a\u00e9\r\n", 4);
    EXPECT_EQ(positions.unitOf(3), 3u);
    EXPECT_EQ(positions.characterOf(2), 2u);
}

TEST(TextPositions, AreTheSameForAControlThatCountsUnits) {
    CharacterPositions positions(smile, smile.size());
    EXPECT_EQ(positions.unitOf(3), 3u);
    EXPECT_EQ(positions.characterOf(3), 3u);
}

TEST(TextPositions, ACharacterMayHaveTwoUnits) {
    CharacterPositions positions(smile, 5);
    EXPECT_EQ(positions.unitOf(0), 0u);
    EXPECT_EQ(positions.unitOf(1), 1u);
    EXPECT_EQ(positions.unitOf(2), 3u);
    EXPECT_EQ(positions.unitOf(5), 8u);
    EXPECT_EQ(positions.characterOf(8), 5u);
    EXPECT_EQ(positions.characterOf(4), 3u);
    EXPECT_EQ(positions.characterOf(3), 2u);
}

TEST(TextPositions, MayBeAskedBackwards) {
    CharacterPositions positions(smile, 5);
    EXPECT_EQ(positions.unitOf(4), 6u);
    EXPECT_EQ(positions.unitOf(1), 1u);
    EXPECT_EQ(positions.characterOf(6), 4u);
    EXPECT_EQ(positions.characterOf(0), 0u);
}

TEST(TextPositions, BehindTheTextAreItsEnd) {
    CharacterPositions positions(smile, 5);
    EXPECT_EQ(positions.unitOf(9), 8u);
    EXPECT_EQ(positions.characterOf(99), 5u);
    CharacterPositions same(u"ab", 2);
    EXPECT_EQ(same.unitOf(9), 2u);
    EXPECT_EQ(same.characterOf(9), 2u);
}

TEST(TextPositions, ReplacedSelectionIsIt) {
    EXPECT_EQ(findDifference(u"hello", u"hel`~p`", {3, 2}), (TextDifference{3, 2, 4}));
}

TEST(TextPositions, InsertionAtTheCaretIsThere) {
    // Seen without the caret, "a``" could have come in one character later.
    EXPECT_EQ(findDifference(u"`a``b`", u"`a``a``b`", {3, 0}), (TextDifference{3, 0, 3}));
}

TEST(TextPositions, InsertionAtTheEndIsThereWhateverIsSelected) {
    EXPECT_EQ(findDifference(u"hello", u"hello`~p`", {1, 2}), (TextDifference{5, 0, 4}));
}

TEST(TextPositions, OtherwiseTheEndsThatAreAlikeStay) {
    EXPECT_EQ(findDifference(u"one two three", u"one 2 three", {0, 0}), (TextDifference{4, 3, 1}));
    EXPECT_EQ(findDifference(u"aXa", u"aa", {0, 0}), (TextDifference{1, 1, 0}));
    EXPECT_EQ(findDifference(u"aa", u"aaa", {0, 1}), (TextDifference{0, 1, 2}));
}

TEST(TextPositions, OtherTextIsAllOfIt) {
    EXPECT_EQ(findDifference(u"abc", u"de", {0, 0}), (TextDifference{0, 3, 2}));
    EXPECT_EQ(findDifference(u"abc", u"", {0, 0}), (TextDifference{0, 3, 0}));
    EXPECT_EQ(findDifference(u"", u"abc", {0, 0}), (TextDifference{0, 0, 3}));
}

TEST(TextPositions, CharactersOfTwoUnitsStayWhole) {
    EXPECT_EQ(findDifference(u"x\U0001F600y", u"x\U0001F601y", {0, 0}), (TextDifference{1, 2, 2}));
    EXPECT_EQ(findDifference(u"x\U0001F600y", u"x\U0001FA00y", {0, 0}), (TextDifference{1, 2, 2}));
}

TEST(TextPositions, SelectionBehindTheTextIsNone) {
    EXPECT_EQ(findDifference(u"ab", u"abc", {9, 9}), (TextDifference{2, 0, 1}));
}

}  // namespace
}  // namespace tavisk
