#include "base/codePage1252.h"

#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>

#include "base/text.h"
#include "support/errors.h"

namespace tavisk {
namespace {

constexpr char32_t none = 0;

// What the bytes 0x80 to 0x9F stand for.
constexpr std::array<char32_t, 32> upperControls{
    U'€', none, U'‚', U'ƒ', U'„', U'…', U'†', U'‡', U'ˆ', U'‰', U'Š', U'‹', U'Œ', none, U'Ž', none,
    none, U'‘', U'’', U'“', U'”', U'•', U'–', U'—', U'˜', U'™', U'š', U'›', U'œ', none, U'ž', U'Ÿ'};

char32_t characterOf(unsigned byte) {
    return byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : byte;
}

std::string utf8(char32_t character) {
    std::string text;
    appendUtf8(text, character);
    return text;
}

std::string encoded(std::string text) {
    encodeCodePage1252(text);
    return text;
}

}  // namespace

TEST(CodePage1252, EveryAssignedByteComesFromItsCharacter) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char32_t character = characterOf(byte);
        if (byte != 0 && character == none) continue;
        EXPECT_EQ(encoded(utf8(character)), std::string(1, static_cast<char>(byte))) << byte;
    }
}

TEST(CodePage1252, TheFiveUnassignedBytesAreErrors) {
    for (const unsigned byte : {0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU}) {
        std::string text = utf8(byte);
        EXPECT_EQ(test::errorOf([&] { encodeCodePage1252(text); }), 5) << byte;
    }
}

TEST(CodePage1252, TheControlsBetweenTheLetterBlocksAreNoCharactersOfIt) {
    for (unsigned control = 0x80; control < 0xA0; ++control) {
        EXPECT_EQ(findOutsideCodePage1252(utf8(control)), 0U) << control;
    }
}

TEST(CodePage1252, NoOtherCharacterOfUnicodeHasAByte) {
    std::set<char32_t> inside;
    for (unsigned byte = 0; byte < 256; ++byte)
        inside.insert(characterOf(byte));
    for (unsigned c = 0x80; c < 0x110000; ++c) {
        if (c == 0xD800) c = 0xE000;
        const bool outside = findOutsideCodePage1252(utf8(c)) == 0;
        ASSERT_EQ(outside, inside.count(c) == 0) << c;
    }
}

TEST(CodePage1252, ACharacterBeyondTheBasicPlaneIsAnError) {
    std::string text = "a\U0001F600";
    EXPECT_EQ(test::errorOf([&] { encodeCodePage1252(text); }), 5);
}

TEST(CodePage1252, ALetterOfAnotherAlphabetIsAnError) {
    std::string text = "жук";
    EXPECT_EQ(test::errorOf([&] { encodeCodePage1252(text); }), 5);
}

TEST(CodePage1252, LongMixedTextKeepsItsOrder) {
    const std::string plain(100, 'x');
    EXPECT_EQ(encoded(plain + "€ 5 – é" + plain + "ß"),
              plain + "\x80 5 \x96 \xE9" + plain + "\xDF");
}

TEST(CodePage1252, EmptyTextStaysEmpty) { EXPECT_EQ(encoded(""), ""); }

TEST(CodePage1252, FindsTheFirstCharacterOutsideByItsByte) {
    EXPECT_EQ(findOutsideCodePage1252("né Ω ж"), 4U);
    EXPECT_EQ(findOutsideCodePage1252(std::string(70, 'a') + "ж"), 70U);
}

TEST(CodePage1252, FindsNothingInATextThatFits) {
    EXPECT_EQ(findOutsideCodePage1252("naïve – „so“ €"), std::string::npos);
    EXPECT_EQ(findOutsideCodePage1252(""), std::string::npos);
}

}  // namespace tavisk
