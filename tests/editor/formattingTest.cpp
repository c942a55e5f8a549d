#include "editor/formatting.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;

std::int32_t noTranslation(std::int32_t) { return -1; }
std::int32_t windowColour(std::int32_t) { return 0x00C0D0E0; }

TEST(Formatting, ColourIsRedGreenBlueInUpperCase) { EXPECT_EQ(colorToHex(0x004080FF), "#FF8040"); }

TEST(Formatting, ShortComponentsArePadded) { EXPECT_EQ(colorToHex(0x00030201), "#010203"); }

TEST(Formatting, BlackIsSixZeros) { EXPECT_EQ(colorToHex(0), "#000000"); }

TEST(Formatting, Blue200ComesOutOneHigher) { EXPECT_EQ(colorToHex(0x00C80000), "#0000C9"); }

TEST(Formatting, Blue127ComesOutAsItIs) { EXPECT_EQ(colorToHex(0x007F0000), "#00007F"); }

TEST(Formatting, Blue128ComesOutOneHigher) { EXPECT_EQ(colorToHex(0x00800000), "#000081"); }

TEST(Formatting, Blue254ComesOutAsFF) { EXPECT_EQ(colorToHex(0x00FE0000), "#0000FF"); }

TEST(Formatting, PureBlueStaysFF) { EXPECT_EQ(colorToHex(0x00FF0000), "#0000FF"); }

TEST(Formatting, EveryBlueIsTheNearestIntegerAndNoneIsAHalf) {
    for (int blue = 0; blue <= 255; ++blue) {
        const double quotient = blue * 65536.0 / 65280.0;
        ASSERT_NE(quotient - std::floor(quotient), 0.5) << blue;
        const auto nearest = static_cast<int>(std::lround(quotient));
        const std::string text = colorToHex(blue << 16);
        EXPECT_EQ(hexToInteger(text.substr(5)), nearest > 255 ? 255 : nearest) << blue;
    }
}

TEST(Formatting, FailedTranslationIsWhite) {
    EXPECT_EQ(colorToHex(0x00123456, noTranslation), "#FFFFFF");
}

TEST(Formatting, SystemColourWithoutADesktopIsWhite) {
    EXPECT_EQ(colorToHex(static_cast<std::int32_t>(0x80000005)), "#FFFFFF");
    EXPECT_EQ(colorToHex(0x01000000), "#FFFFFF");
}

TEST(Formatting, SystemColourIsTranslated) {
    EXPECT_EQ(colorToHex(static_cast<std::int32_t>(0x80000005), windowColour), "#E0D0C1");
}

TEST(Formatting, HexOfNoDigitsIsTheAccumulator) {
    EXPECT_EQ(hexToInteger(""), 0);
    EXPECT_EQ(hexToInteger("", 7), 7);
}

TEST(Formatting, HexDigitsOfBothCases) {
    EXPECT_EQ(hexToInteger("ff"), 255);
    EXPECT_EQ(hexToInteger("FF"), 255);
    EXPECT_EQ(hexToInteger("a9"), 169);
}

TEST(Formatting, OtherCharactersCountAsZero) {
    EXPECT_EQ(hexToInteger("g1"), 1);
    EXPECT_EQ(hexToInteger("1g"), 16);
    EXPECT_EQ(hexToInteger("-1"), 1);
    EXPECT_EQ(hexToInteger("\u00e9"
                           "1"),
              1);
}

TEST(Formatting, TheAccumulatorIsAddedAtEveryDigit) {
    EXPECT_EQ(hexToInteger("1", 1), 2);
    EXPECT_EQ(hexToInteger("12", 1), 2 * 16 + 1 + 2);
}

TEST(Formatting, HexUpTo16BitsPasses) { EXPECT_EQ(hexToInteger("7FFF"), 32767); }

TEST(Formatting, HexBeyond16BitsIsError6) {
    EXPECT_EQ(errorOf([] { hexToInteger("8000"); }), 6);
    EXPECT_EQ(errorOf([] { hexToInteger("FFFFF"); }), 6);
    EXPECT_EQ(errorOf([] { hexToInteger("1", 32767); }), 6);
}

TEST(Formatting, LowerCaseColourTextIsRead) { EXPECT_EQ(colourOfText("#ff8000"), 0x000080FFu); }

TEST(Formatting, ColourTextTakesCharacters2To7WhateverTheyAre) {
    EXPECT_EQ(colourOfText("x010203zzz"), 0x00030201u);
    EXPECT_EQ(colourOfText("\u00e9"
                           "010203"),
              0x00030201u);
}

TEST(Formatting, ACharacterOutsideTheBasicPlaneIsTwo) {
    EXPECT_EQ(colourOfText("\U0001F600"
                           "1020304"),
              0x00030201u);
}

TEST(Formatting, ShortColourTextHasShortOrEmptyGroups) {
    EXPECT_EQ(colourOfText(""), 0u);
    EXPECT_EQ(colourOfText("#"), 0u);
    EXPECT_EQ(colourOfText("#F"), 0x0000000Fu);
    EXPECT_EQ(colourOfText("#FF"), 0x000000FFu);
    EXPECT_EQ(colourOfText("#FF8"), 0x000008FFu);
    EXPECT_EQ(colourOfText("red"), 0x0000000Eu * 16 + 0x0000000Du);
}

TEST(Formatting, FontSizeHasSignAndMagnitude) {
    EXPECT_EQ(fontSizeCaption(0), "Font Size: +0");
    EXPECT_EQ(fontSizeCaption(2), "Font Size: +2");
    EXPECT_EQ(fontSizeCaption(-3), "Font Size: -3");
}

TEST(Formatting, FontSizeIsRoundedDown) {
    EXPECT_EQ(fontSizeCaption(2.7), "Font Size: +2");
    EXPECT_EQ(fontSizeCaption(-0.5), "Font Size: -1");
}

TEST(Formatting, FontSizeOfMinusZeroIsPlusZero) {
    EXPECT_EQ(fontSizeCaption(-0.0), "Font Size: +0");
}

TEST(Formatting, FontSizeHasNoRange) {
    EXPECT_EQ(fontSizeCaption(-70000), "Font Size: -70000");
    EXPECT_EQ(fontSizeCaption(1e20), "Font Size: +100000000000000000000");
    EXPECT_EQ(fontSizeCaption(std::numeric_limits<double>::max()).size(),
              std::string("Font Size: +").size() + 309);
}

TEST(Formatting, GapCaptionsShowTheText) {
    EXPECT_EQ(gapCaption(Gap::above, "abc"), "Gap above: abc");
    EXPECT_EQ(gapCaption(Gap::below, "2"), "Gap below: 2");
}

TEST(Formatting, ColourCaptionShowsTheText) {
    EXPECT_EQ(colourCaption("#00ff00"), "Text Color: #00ff00");
}

TEST(Formatting, ButtonsStepByOneOnTheirSide) {
    EXPECT_EQ(buttonStep(0), -1);
    EXPECT_EQ(buttonStep(2), 1);
    EXPECT_EQ(buttonStep(3), -1);
    EXPECT_EQ(buttonStep(5), 1);
    EXPECT_EQ(buttonSide(0), 0);
    EXPECT_EQ(buttonSide(2), 0);
    EXPECT_EQ(buttonSide(3), 1);
    EXPECT_EQ(buttonSide(5), 1);
}

}  // namespace
}  // namespace tavisk
