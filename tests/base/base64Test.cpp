#include "base/base64.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace tavisk {
namespace {

std::string decoded(std::string_view text) {
    std::string bytes = "left over";
    return decodeBase64(text, bytes) ? bytes : "refused";
}

std::string someBytes(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(i * 37 + i / 256);
    return bytes;
}

}  // namespace

TEST(Base64, EncodesWithPadding) {
    EXPECT_EQ(encodeBase64(""), "");
    EXPECT_EQ(encodeBase64("f"), "Zg==");
    EXPECT_EQ(encodeBase64("fo"), "Zm8=");
    EXPECT_EQ(encodeBase64("foo"), "Zm9v");
    EXPECT_EQ(encodeBase64("foob"), "Zm9vYg==");
}

TEST(Base64, EncodesBytesAboveAscii) { EXPECT_EQ(encodeBase64("\xFF\xFB\xBF"), "//u/"); }

TEST(Base64, EncodesALongTextInOneLine) {
    EXPECT_EQ(encodeBase64(std::string(300, '\0')), std::string(400, 'A'));
}

TEST(Base64, DecodesWhatItEncodes) {
    for (std::size_t size = 0; size < 600; ++size) {
        const std::string bytes = someBytes(size);
        ASSERT_EQ(decoded(encodeBase64(bytes)), bytes) << size;
    }
}

TEST(Base64, EmptyTextIsNoBytes) { EXPECT_EQ(decoded(""), ""); }

TEST(Base64, WhiteSpaceIsSkippedAnywhere) {
    EXPECT_EQ(decoded(" Z\tm9\r\nvYmE= \n"), "fooba");
    EXPECT_EQ(decoded("Zg=\n="), "f");
    EXPECT_EQ(decoded(" \t\r\n"), "");
}

TEST(Base64, LinesOf76CharactersAreRead) {
    const std::string bytes = someBytes(500);
    std::string lines = encodeBase64(bytes);
    for (std::size_t at = 76; at < lines.size(); at += 78)
        lines.insert(at, "\r\n");
    EXPECT_EQ(decoded(lines), bytes);
}

TEST(Base64, ACharacterOutsideTheAlphabetIsRefused) {
    EXPECT_EQ(decoded("Zm9*"), "refused");
    EXPECT_EQ(decoded("Zm-_"), "refused");
    EXPECT_EQ(decoded("Zm9\xC3"), "refused");
    EXPECT_EQ(decoded(std::string("Zm9\0", 4)), "refused");
}

TEST(Base64, MissingPaddingIsRefused) {
    EXPECT_EQ(decoded("Zg"), "refused");
    EXPECT_EQ(decoded("Zg="), "refused");
    EXPECT_EQ(decoded("Zm8"), "refused");
}

TEST(Base64, TooMuchPaddingIsRefused) {
    EXPECT_EQ(decoded("Zm9v="), "refused");
    EXPECT_EQ(decoded("Zm9v===="), "refused");
    EXPECT_EQ(decoded("Zm8=="), "refused");
    EXPECT_EQ(decoded("===="), "refused");
}

TEST(Base64, ASingleDigitIsRefused) {
    EXPECT_EQ(decoded("Z"), "refused");
    EXPECT_EQ(decoded("Z==="), "refused");
    EXPECT_EQ(decoded("Zm9vZ"), "refused");
}

TEST(Base64, NothingMayFollowThePadding) {
    EXPECT_EQ(decoded("Zg==Zg=="), "refused");
    EXPECT_EQ(decoded("Z=g="), "refused");
}

TEST(Base64, DecodingUsesTheMemoryAgain) {
    std::string bytes;
    bytes.reserve(1000);
    const char* const memory = bytes.data();
    EXPECT_TRUE(decodeBase64(encodeBase64(someBytes(500)), bytes));
    EXPECT_TRUE(decodeBase64("Zm9v", bytes));
    EXPECT_EQ(bytes, "foo");
    EXPECT_EQ(bytes.data(), memory);
}

}  // namespace tavisk
