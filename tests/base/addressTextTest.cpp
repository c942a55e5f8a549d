#include "base/addressText.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

TEST(AddressText, OnlyPlainCharactersStandForThemselves) {
    EXPECT_EQ(escaped("/aZ09-._~/"), "/aZ09-._~/");
    EXPECT_EQ(escaped("a b#c?d%e:f&g"), "a%20b%23c%3Fd%25e%3Af%26g");
    EXPECT_EQ(escaped("Jörg"), "J%C3%B6rg");
    EXPECT_EQ(escaped(""), "");
}

TEST(AddressText, WhatIsEscapedComesBack) {
    std::string bytes;
    for (int c = 0; c < 256; ++c)
        bytes += static_cast<char>(c);
    EXPECT_EQ(unescaped(escaped(bytes)), bytes);
    EXPECT_EQ(unescaped("%c3%b6"), "ö");
}

TEST(AddressText, WhatIsNoEscapeStays) { EXPECT_EQ(unescaped("100%, %4, %zz%"), "100%, %4, %zz%"); }

}  // namespace
}  // namespace tavisk
