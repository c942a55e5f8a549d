#include "base/text.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>

#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;
using namespace std::string_literals;

constexpr std::size_t npos = std::string_view::npos;

std::string repeated(std::string_view what, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += what;
    return text;
}

int lengthError(std::string_view text) {
    return errorOf([&] { checkTextLength(text); });
}

int conversionError(std::u16string_view text) {
    return errorOf([&] { toUtf8(text); });
}

}  // namespace

TEST(Text, HexadecimalDigitsOfBothCasesAndNothingElse) {
    std::string digits;
    for (int c = 0; c < 256; ++c) {
        if (hexDigit(static_cast<char>(c)) >= 0) digits += static_cast<char>(c);
    }
    EXPECT_EQ(digits, "0123456789ABCDEFabcdef");
    EXPECT_EQ(hexDigit('9'), 9);
    EXPECT_EQ(hexDigit('a'), 10);
    EXPECT_EQ(hexDigit(u'F'), 15);
    EXPECT_EQ(hexDigit(u'\uFF11'), -1);
}

TEST(Text, ACountUpTo32767Passes) {
    EXPECT_EQ(checkedCount(0), 0U);
    EXPECT_EQ(checkedCount(32767), 32767U);
}

TEST(Text, ACountOf32768Overflows) {
    EXPECT_EQ(errorOf([] { checkedCount(32768); }), 6);
    EXPECT_EQ(errorOf([] { checkedCount(std::numeric_limits<std::size_t>::max()); }), 6);
}

TEST(Text, ATextOf32767CharactersPasses) { EXPECT_EQ(lengthError(std::string(32767, 'a')), 0); }

TEST(Text, ATextOf32768CharactersOverflows) { EXPECT_EQ(lengthError(std::string(32768, 'a')), 6); }

TEST(Text, TheLengthLimitCountsCodeUnitsNotBytes) {
    EXPECT_EQ(lengthError(repeated("é", 32767)), 0);
    EXPECT_EQ(lengthError(repeated("é", 32768)), 6);
    EXPECT_EQ(lengthError(repeated("€", 32767)), 0);
}

TEST(Text, TheLengthLimitCountsASurrogatePairTwice) {
    EXPECT_EQ(lengthError(repeated("\U0001F600", 16383) + "a"), 0);
    EXPECT_EQ(lengthError(repeated("\U0001F600", 16384)), 6);
}

TEST(Text, LengthIsCountedInCodeUnits) {
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("abc"), 3U);
    EXPECT_EQ(utf16Length("é€"), 2U);
    EXPECT_EQ(utf16Length("\U0001F600!"), 3U);
}

TEST(Text, AsciiEndsBelow128) {
    EXPECT_TRUE(isAscii(""));
    EXPECT_TRUE(isAscii(std::string(100, '\x7F')));
    EXPECT_FALSE(isAscii("\x80"));
    for (std::size_t at = 0; at < 100; ++at) {
        std::string text(100, 'a');
        text[at] = '\xE9';
        EXPECT_FALSE(isAscii(text)) << at;
    }
}

TEST(Text, EveryCodePointIsValidUtf8AndComesBackFromUtf16) {
    for (unsigned c = 0; c < 0x110000; ++c) {
        if (c == 0xD800) c = 0xE000;
        std::string text;
        appendUtf8(text, c);
        ASSERT_EQ(findInvalidUtf8(text), npos) << c;
        const std::u16string wide = toUtf16(text);
        ASSERT_EQ(wide.size(), c < 0x10000 ? 1U : 2U) << c;
        ASSERT_EQ(wide.size(), utf16Length(text)) << c;
        ASSERT_EQ(toUtf8(wide), text) << c;
    }
}

TEST(Text, Utf16OfKnownTexts) {
    EXPECT_EQ(toUtf16(""), u"");
    EXPECT_EQ(toUtf16("a\0b"s), u"a\0b"s);
    EXPECT_EQ(toUtf16("aé€\U0001F600z"), u"aé€\U0001F600z");
}

TEST(Text, Utf16OfAnAccentAtEveryPlaceOfALongText) {
    for (std::size_t at = 0; at < 100; ++at) {
        std::string text(100, 'a');
        text.replace(at, 1, "\U0001F600");
        std::u16string wide(100, u'a');
        wide.replace(at, 1, u"\U0001F600");
        ASSERT_EQ(toUtf16(text), wide) << at;
        ASSERT_EQ(toUtf8(wide), text) << at;
    }
}

TEST(Text, OverlongSequencesAreInvalid) {
    EXPECT_EQ(findInvalidUtf8("\xC0\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xC1\xBF"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xE0\x80\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xE0\x9F\xBF"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xF0\x80\x80\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xF0\x8F\xBF\xBF"), 0U);
}

TEST(Text, EncodedSurrogatesAreInvalid) {
    EXPECT_EQ(findInvalidUtf8("\xED\xA0\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xED\xBF\xBF"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xED\x9F\xBF"), npos);
}

TEST(Text, CodePointsBeyondTheLastAreInvalid) {
    EXPECT_EQ(findInvalidUtf8("\xF4\x8F\xBF\xBF"), npos);
    EXPECT_EQ(findInvalidUtf8("\xF4\x90\x80\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xF5\x80\x80\x80"), 0U);
    EXPECT_EQ(findInvalidUtf8("\xFF"), 0U);
}

TEST(Text, ALoneContinuationIsInvalid) { EXPECT_EQ(findInvalidUtf8("a\x80"), 1U); }

TEST(Text, ATruncatedSequenceIsInvalidWhereItBegins) {
    EXPECT_EQ(findInvalidUtf8("ab\xC3"), 2U);
    EXPECT_EQ(findInvalidUtf8("ab\xE2\x82"), 2U);
    EXPECT_EQ(findInvalidUtf8("ab\xF0\x9F\x98"), 2U);
    EXPECT_EQ(findInvalidUtf8("ab\xE2\x82z"), 2U);
}

TEST(Text, TheInvalidByteIsFoundBehindALongText) {
    EXPECT_EQ(findInvalidUtf8(std::string(65, 'a') + "é" + std::string(40, 'b') + "\xFE"), 107U);
}

TEST(Text, ALoneHighSurrogateIsError5) {
    EXPECT_EQ(conversionError(u"\xD800"), 5);
    EXPECT_EQ(conversionError(u"a\xDBFFz"), 5);
    EXPECT_EQ(conversionError(u"\xD800\xD800\xDC00"), 5);
}

TEST(Text, ALoneLowSurrogateIsError5) {
    EXPECT_EQ(conversionError(u"\xDC00"), 5);
    EXPECT_EQ(conversionError(std::u16string(40, u'a') + u"\xDFFF"), 5);
    EXPECT_EQ(conversionError(u"\xDC00\xD800"), 5);
}

TEST(Text, ConversionUsesTheMemoryAgain) {
    std::string out;
    toUtf8(std::u16string(500, u'a'), out);
    const char* const memory = out.data();
    toUtf8(u"bé", out);
    EXPECT_EQ(out, "bé");
    EXPECT_EQ(out.data(), memory);
}

TEST(Text, ReplaceAllTakesEveryOccurrence) {
    EXPECT_EQ(replaceAll("a_b__c", "_", " "), "a b  c");
    EXPECT_EQ(replaceAll("\n", "\n", "<br>"), "<br>");
    EXPECT_EQ(replaceAll("abc", "x", "y"), "abc");
    EXPECT_EQ(replaceAll("", "x", "y"), "");
}

TEST(Text, ReplaceAllGoesFromLeftToRightWithoutOverlap) {
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
}

TEST(Text, ReplaceAllDoesNotLookAtItsOwnReplacements) {
    EXPECT_EQ(replaceAll("aa", "a", "aa"), "aaaa");
}

TEST(Text, AnEmptyTextOccursNowhere) { EXPECT_EQ(replaceAll("abc", "", "x"), "abc"); }

TEST(Text, LetterCaseChangesForAsciiOnly) {
    EXPECT_EQ(upperAscii("cabinetInfo-é1`{"), "CABINETINFO-é1`{");
    EXPECT_EQ(lowerAscii("CABINETInfo-É1@["), "cabinetinfo-É1@[");
}

}  // namespace tavisk
