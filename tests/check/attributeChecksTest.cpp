#include "check/attributeChecks.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace tavisk {
namespace {

using Texts = std::initializer_list<const char*>;

/// "severity code: message", or "fine".
std::string verdict(const std::optional<Problem>& problem) {
    if (!problem) return "fine";
    return std::string(problem->severity == Severity::error ? "error " : "warning ") +
           std::string(problem->code) + ": " + problem->message;
}

TEST(CheckFlag, ZeroAndOneAreFine) {
    EXPECT_EQ(verdict(checkFlag("0")), "fine");
    EXPECT_EQ(verdict(checkFlag("1")), "fine");
}

TEST(CheckFlag, AnythingElseIsNoFlag) {
    EXPECT_EQ(verdict(checkFlag("yes")),
              "warning bad-flag: \"yes\" is neither \"0\" nor \"1\"; only \"1\" counts as set.");
    for (const char* text : Texts{"", "01", " 1", "true"}) {
        EXPECT_NE(verdict(checkFlag(text)), "fine") << text;
    }
}

TEST(CheckColour, SixHexadecimalDigitsOfEitherCaseAreFine) {
    EXPECT_EQ(verdict(checkColour("#12aBfF")), "fine");
}

TEST(CheckColour, AnythingElseIsNoColour) {
    EXPECT_EQ(verdict(checkColour("red")),
              "warning bad-colour: \"red\" is no colour; a colour is \"#\" and six hexadecimal "
              "digits.");
    for (const char* text : Texts{"", "#12345", "#1234567", "1234567", "#12345g"}) {
        EXPECT_NE(verdict(checkColour(text)), "fine") << text;
    }
}

TEST(CheckFontSize, WholeNumbersAreFine) {
    for (const char* text : Texts{"0", "-3", "+4", "007", "32767", "-32768"}) {
        EXPECT_EQ(verdict(checkFontSize(text)), "fine") << text;
    }
}

TEST(CheckFontSize, TellsHowAnythingElseIsRead) {
    EXPECT_EQ(verdict(checkFontSize("2.7")),
              "warning bad-number: \"2.7\" is no whole number; it is read as 2.");
    EXPECT_EQ(verdict(checkFontSize("-0.5")),
              "warning bad-number: \"-0.5\" is no whole number; it is read as -1.");
    EXPECT_EQ(verdict(checkFontSize("big")),
              "warning bad-number: \"big\" is no whole number; it is read as 0.");
    EXPECT_EQ(verdict(checkFontSize("")),
              "warning bad-number: \"\" is no whole number; it is read as 0.");
    EXPECT_EQ(verdict(checkFontSize("-")),
              "warning bad-number: \"-\" is no whole number; it is read as 0.");
}

TEST(CheckFontSize, BeyondSixteenBitsThePageCannotBeMade) {
    for (const char* text : Texts{"32768", "-32769", "1e9", "1e999"}) {
        EXPECT_EQ(verdict(checkFontSize(text)),
                  "error number-out-of-range: \"" + std::string(text) +
                      "\" lies outside -32768 to 32767; the page cannot be made.");
    }
}

TEST(CheckGap, HasNoRange) {
    EXPECT_EQ(verdict(checkGap("40000")), "fine");
    EXPECT_EQ(verdict(checkGap("-1")), "fine");
    EXPECT_EQ(verdict(checkGap("abc")),
              "warning bad-number: \"abc\" is no whole number; it is read as 0.");
    EXPECT_EQ(verdict(checkGap("1e999")),
              "warning bad-number: \"1e999\" is no whole number; it is read as a number beyond all "
              "use.");
}

TEST(CheckStyle, WholeNumbersAreFine) { EXPECT_EQ(verdict(checkStyle("63")), "fine"); }

TEST(CheckStyle, TheEditorCannotShowANodeWithoutANumber) {
    for (const char* text : Texts{"bold", "", "9x"}) {
        EXPECT_EQ(verdict(checkStyle(text)), "error bad-number: \"" + std::string(text) +
                                                 "\" is no number; the editor cannot show the "
                                                 "node.");
    }
}

TEST(CheckStyle, StrictNumbersThatAreNotWhole) {
    EXPECT_EQ(verdict(checkStyle(" 9 ")),
              "warning bad-number: \" 9 \" is no whole number; it is read as 9.");
}

TEST(CheckStyle, OutOfRange) {
    EXPECT_EQ(verdict(checkStyle("40000")),
              "error number-out-of-range: \"40000\" lies outside -32768 to 32767; the page cannot "
              "be made.");
    EXPECT_EQ(verdict(checkStyle("3000000000")),
              "error number-out-of-range: \"3000000000\" lies outside -32768 to 32767; the page "
              "cannot be made.");
}

TEST(CheckPixels, DigitsOrNothing) {
    EXPECT_EQ(verdict(checkPixels("")), "fine");
    EXPECT_EQ(verdict(checkPixels("120")), "fine");
    for (const char* text : Texts{"-1", "1.5", "100%", "wide"}) {
        EXPECT_EQ(verdict(checkPixels(text)), "warning bad-number: \"" + std::string(text) +
                                                  "\" is no whole number of pixels.");
    }
}

TEST(CheckOverlaySize, MustBeANumber) {
    EXPECT_EQ(verdict(checkOverlaySize("256")), "fine");
    EXPECT_EQ(verdict(checkOverlaySize("")),
              "error bad-number: \"\" is no number; overlays cannot be measured by it.");
    EXPECT_EQ(verdict(checkOverlaySize("100px")),
              "error bad-number: \"100px\" is no number; overlays cannot be measured by it.");
    EXPECT_EQ(verdict(checkOverlaySize("1.5")),
              "warning bad-number: \"1.5\" is no whole number of pixels.");
    EXPECT_EQ(verdict(checkOverlaySize("40000")),
              "error number-out-of-range: \"40000\" lies outside -32768 to 32767; overlays cannot "
              "be made.");
}

TEST(CheckLength, CountsUtf16Units) {
    EXPECT_EQ(verdict(checkLength(std::string(32767, 'x'))), "fine");
    std::string wide;
    for (int i = 0; i < 32767; ++i)
        wide += "\xC3\xA4";
    EXPECT_EQ(verdict(checkLength(wide)), "fine");

    const std::optional<Problem> problem = checkLength(wide + "x");
    EXPECT_EQ(verdict(problem),
              "error text-too-long: The text has 32768 characters; 32767 are the limit.");
    EXPECT_EQ(problem->position, 32767u);
}

}  // namespace
}  // namespace tavisk
