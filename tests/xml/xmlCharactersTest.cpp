#include "xml/xmlCharacters.h"

#include <gtest/gtest.h>
#include <string>

namespace tavisk {

using namespace std::string_literals;

TEST(XmlCharacters, TextMayHoldAnyCharacterOfEveryPlane) {
    EXPECT_TRUE(isXmlText(""));
    EXPECT_TRUE(isXmlText("a <b> & \"c\" é € \U0001F600 \x7F"));
    EXPECT_TRUE(isXmlText("\uD7FF\uE000\uFFFD\U0010FFFF"));
}

TEST(XmlCharacters, TextMayHoldThreeControls) { EXPECT_TRUE(isXmlText("\t\n\r")); }

TEST(XmlCharacters, EveryOtherControlIsForbidden) {
    for (char c = 0; c < 0x20; ++c) {
        if (c == '\t' || c == '\n' || c == '\r') continue;
        EXPECT_FALSE(isXmlText("a"s + c + "b")) << int{c};
    }
}

TEST(XmlCharacters, TheTwoNoncharactersAreForbidden) {
    EXPECT_FALSE(isXmlText("a\uFFFE"));
    EXPECT_FALSE(isXmlText("a\uFFFF"));
}

TEST(XmlCharacters, TextHasToBeUtf8) {
    EXPECT_FALSE(isXmlText("a\xED\xA0\x80"));
    EXPECT_FALSE(isXmlText("\xE9"));
    EXPECT_FALSE(isXmlText("\xC0\x80"));
}

TEST(XmlCharacters, NamesBeginWithALetterOrUnderscore) {
    EXPECT_TRUE(isXmlName("abc"));
    EXPECT_TRUE(isXmlName("_abc"));
    EXPECT_TRUE(isXmlName("Ünïcode"));
    EXPECT_TRUE(isXmlName("жук"));
    EXPECT_FALSE(isXmlName("-abc"));
    EXPECT_FALSE(isXmlName("1abc"));
    EXPECT_FALSE(isXmlName(".abc"));
    EXPECT_FALSE(isXmlName(""));
}

TEST(XmlCharacters, NamesGoOnWithDigitsHyphensAndPoints) { EXPECT_TRUE(isXmlName("a-1.b_2·")); }

TEST(XmlCharacters, NamesHoldNoOtherCharacters) {
    EXPECT_FALSE(isXmlName("a b"));
    EXPECT_FALSE(isXmlName("a=b"));
    EXPECT_FALSE(isXmlName("a>"));
    EXPECT_FALSE(isXmlName("a×b"));
    EXPECT_FALSE(isXmlName("a\0b"s));
    EXPECT_FALSE(isXmlName("a\xED\xA0\x80"));
}

TEST(XmlCharacters, OneColonMayDivideAName) {
    EXPECT_TRUE(isXmlName("a:b"));
    EXPECT_FALSE(isXmlName(":a"));
    EXPECT_FALSE(isXmlName("a:"));
    EXPECT_FALSE(isXmlName("a:b:c"));
    EXPECT_FALSE(isXmlName("a:1"));
    EXPECT_FALSE(isXmlName(":"));
}

TEST(XmlCharacters, XmlIsReservedInAnyLetterCase) {
    EXPECT_TRUE(isReservedTarget("xml"));
    EXPECT_TRUE(isReservedTarget("XmL"));
    EXPECT_FALSE(isReservedTarget("xml-stylesheet"));
    EXPECT_FALSE(isReservedTarget("xm"));
}

}  // namespace tavisk
