#include <clocale>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "base/text.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;

constexpr double infinity = std::numeric_limits<double>::infinity();

int strictError(const std::string& text) {
    return errorOf([&] { strictNumber(text); });
}

}  // namespace

TEST(LeadingNumber, LeadingBlanksAreSkipped) {
    EXPECT_EQ(leadingNumber(" 3"), 3);
    EXPECT_EQ(leadingNumber("\t\n\r  3"), 3);
}

TEST(LeadingNumber, OnlyFourBlanksAreSkipped) {
    EXPECT_EQ(leadingNumber("\v3"), 0);
    EXPECT_EQ(leadingNumber("\f3"), 0);
    EXPECT_EQ(leadingNumber("\u00A0"
                            "3"),
              0);
}

TEST(LeadingNumber, ABlankInsideEndsIt) {
    EXPECT_EQ(leadingNumber("3 4"), 3);
    EXPECT_EQ(leadingNumber("- 3"), 0);
    EXPECT_EQ(leadingNumber("1 e3"), 1);
}

TEST(LeadingNumber, OneSignIsOptional) {
    EXPECT_EQ(leadingNumber("+4"), 4);
    EXPECT_EQ(leadingNumber("-4"), -4);
    EXPECT_EQ(leadingNumber("--4"), 0);
    EXPECT_EQ(leadingNumber("+-4"), 0);
    EXPECT_EQ(leadingNumber("-"), 0);
}

TEST(LeadingNumber, AFractionIsOptional) {
    EXPECT_EQ(leadingNumber("1.5"), 1.5);
    EXPECT_EQ(leadingNumber("5."), 5);
    EXPECT_EQ(leadingNumber("1.2.3"), 1.2);
    EXPECT_EQ(leadingNumber("1,5"), 1);
}

TEST(LeadingNumber, APointAloneIsNoNumber) {
    EXPECT_EQ(leadingNumber("."), 0);
    EXPECT_EQ(leadingNumber("-.e3"), 0);
}

TEST(LeadingNumber, AnExponentIsOptional) {
    EXPECT_EQ(leadingNumber("1e3"), 1000);
    EXPECT_EQ(leadingNumber("1E+2"), 100);
    EXPECT_EQ(leadingNumber("25e-1x"), 2.5);
    EXPECT_EQ(leadingNumber("2.5e1e1"), 25);
}

TEST(LeadingNumber, AnExponentWithoutDigitsIsLeftOut) {
    EXPECT_EQ(leadingNumber("7e"), 7);
    EXPECT_EQ(leadingNumber("7e+"), 7);
    EXPECT_EQ(leadingNumber("7e-x"), 7);
    EXPECT_EQ(leadingNumber("7d2"), 7);
    EXPECT_EQ(leadingNumber("e3"), 0);
}

TEST(LeadingNumber, TextWithoutANumberIs0) {
    EXPECT_EQ(leadingNumber("abc"), 0);
    EXPECT_EQ(leadingNumber(""), 0);
    EXPECT_EQ(leadingNumber("   "), 0);
    EXPECT_EQ(leadingNumber("x1"), 0);
}

TEST(LeadingNumber, ThereIsNoHexadecimal) {
    EXPECT_EQ(leadingNumber("0x10"), 0);
    EXPECT_EQ(leadingNumber("&H10"), 0);
}

TEST(LeadingNumber, WordsForSpecialValuesAreNoNumbers) {
    EXPECT_EQ(leadingNumber("inf"), 0);
    EXPECT_EQ(leadingNumber("-infinity"), 0);
    EXPECT_EQ(leadingNumber("nan"), 0);
}

TEST(LeadingNumber, DigitsOfOtherScriptsAreNone) { EXPECT_EQ(leadingNumber("３"), 0); }

TEST(LeadingNumber, ANumberBeyondAllRangesIsInfinite) {
    EXPECT_EQ(leadingNumber("1e999"), infinity);
    EXPECT_EQ(leadingNumber("-1e999"), -infinity);
    EXPECT_EQ(leadingNumber("1e99999999999999999999"), infinity);
    EXPECT_EQ(leadingNumber("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(leadingNumber("1" + std::string(400, '0') + "e-5"), infinity);
}

TEST(LeadingNumber, ANumberTooSmallToTellIs0) {
    EXPECT_EQ(leadingNumber("1e-999"), 0);
    EXPECT_EQ(leadingNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1e5"), 0);
    EXPECT_EQ(leadingNumber("0e999"), 0);
}

TEST(LeadingNumber, ALongMantissaMeetsItsExponent) {
    EXPECT_EQ(leadingNumber("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(leadingNumber("0." + std::string(399, '0') + "1e400"), 1);
}

TEST(LeadingNumber, TheHostsLocaleDoesNotMatter) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", ""})
        std::setlocale(LC_ALL, name);
    EXPECT_EQ(leadingNumber("1.5"), 1.5);
    EXPECT_EQ(leadingNumber("1,5"), 1);
    std::setlocale(LC_ALL, before.c_str());
}

TEST(Floor16, RoundsTowardsMinusInfinity) {
    EXPECT_EQ(floor16(leadingNumber("-0.5")), -1);
    EXPECT_EQ(floor16(2.9), 2);
    EXPECT_EQ(floor16(-2.0), -2);
    EXPECT_EQ(floor16(-2.1), -3);
}

TEST(Floor16, OverflowsOutside16Bits) {
    EXPECT_EQ(floor16(32767.9), 32767);
    EXPECT_EQ(floor16(-32768), -32768);
    EXPECT_EQ(errorOf([] { floor16(32768); }), 6);
    EXPECT_EQ(errorOf([] { floor16(-32768.1); }), 6);
    EXPECT_EQ(errorOf([] { floor16(infinity); }), 6);
    EXPECT_EQ(errorOf([] { floor16(-infinity); }), 6);
}

TEST(StrictNumber, BlanksSignFractionAndExponentAreAccepted) {
    EXPECT_EQ(strictNumber("3"), 3);
    EXPECT_EQ(strictNumber(" \t3\r\n"), 3);
    EXPECT_EQ(strictNumber("+3"), 3);
    EXPECT_EQ(strictNumber("-2.5"), -2.5);
    EXPECT_EQ(strictNumber("1.5e2"), 150);
    EXPECT_EQ(strictNumber("1E-1"), 0.1);
}

TEST(StrictNumber, EmptyTextIsError13) {
    EXPECT_EQ(strictError(""), 13);
    EXPECT_EQ(strictError("  "), 13);
}

TEST(StrictNumber, AnythingElseIsError13) {
    for (const char* text : {"abc", "3 4", "3x", "x3", "- 3", "--3", "0x1", "&H1", "1,000", ".",
                             "-", "1e", "1e+", "1.2.3", "inf", "nan", "3\v"}) {
        EXPECT_EQ(strictError(text), 13) << text;
    }
}

TEST(StrictNumber, ANulInsideIsError13) { EXPECT_EQ(strictError(std::string("3\0", 2)), 13); }

TEST(Round16, AHalfGoesToTheEvenNeighbour) {
    EXPECT_EQ(round16(0.5), 0);
    EXPECT_EQ(round16(1.5), 2);
    EXPECT_EQ(round16(2.5), 2);
    EXPECT_EQ(round16(-0.5), 0);
    EXPECT_EQ(round16(-1.5), -2);
    EXPECT_EQ(round16(-2.5), -2);
}

TEST(Round16, AnythingElseGoesToTheNearest) {
    EXPECT_EQ(round16(2.49), 2);
    EXPECT_EQ(round16(2.51), 3);
    EXPECT_EQ(round16(-2.49), -2);
    EXPECT_EQ(round16(-2.51), -3);
    EXPECT_EQ(round16(7), 7);
}

TEST(Round16, OverflowsOutside16Bits) {
    EXPECT_EQ(round16(32767.4), 32767);
    EXPECT_EQ(errorOf([] { round16(32767.5); }), 6);
    EXPECT_EQ(round16(-32768.5), -32768);
    EXPECT_EQ(errorOf([] { round16(-32768.6); }), 6);
    EXPECT_EQ(errorOf([] { round16(infinity); }), 6);
}

TEST(Round32, AHalfGoesToTheEvenNeighbour) {
    EXPECT_EQ(round32(100000.5), 100000);
    EXPECT_EQ(round32(100001.5), 100002);
}

TEST(Round32, OverflowsOutside32Bits) {
    EXPECT_EQ(round32(2147483647.4), 2147483647);
    EXPECT_EQ(errorOf([] { round32(2147483647.5); }), 6);
    EXPECT_EQ(round32(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(errorOf([] { round32(-2147483649.0); }), 6);
    EXPECT_EQ(errorOf([] { round32(infinity); }), 6);
}

}  // namespace tavisk
