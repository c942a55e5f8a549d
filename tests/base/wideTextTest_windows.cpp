#include <gtest/gtest.h>
#include <string>

#include "base/wideText_windows.h"
#include "support/errors.h"

namespace tavisk::test {

TEST(WideText, CharactersBeyond16BitsArePairs) {
    EXPECT_EQ(wide("a\xC3\xA4\xF0\x9F\x98\x80"), L"a\u00E4\xD83D\xDE00");
    EXPECT_EQ(narrow(L"a\u00E4\xD83D\xDE00"), "a\xC3\xA4\xF0\x9F\x98\x80");
    EXPECT_EQ(wide(""), L"");
    EXPECT_EQ(narrow(L""), "");
}

TEST(WideText, WhatIsNoUtf8IsError52) {
    EXPECT_EQ(errorOf([] { wide("\xC3"); }), 52);
    EXPECT_EQ(errorOf([] { wide("\xED\xA0\x80"); }), 52);
}

TEST(WideText, ALoneSurrogateIsReplaced) { EXPECT_EQ(narrow(L"a\xD83D"), "a\xEF\xBF\xBD"); }

TEST(WideText, AShortPathStaysAsItIs) {
    EXPECT_EQ(widePath("a/b"), L"a/b");
    EXPECT_EQ(widePath("C:\\a\\..\\b"), L"C:\\a\\..\\b");
}

TEST(WideText, ALongPathGoesByTheNewerRules) {
    const std::string part(150, 'x');
    const std::wstring same(150, L'x');
    EXPECT_EQ(widePath("C:/" + part + "/./" + part), L"\\\\?\\C:\\" + same + L"\\" + same);
    EXPECT_EQ(widePath("\\\\s\\t\\" + part + "/" + part),
              L"\\\\?\\UNC\\s\\t\\" + same + L"\\" + same);
    EXPECT_EQ(widePath("\\\\?\\C:\\" + part + "\\" + part), L"\\\\?\\C:\\" + same + L"\\" + same);
}

TEST(WideText, ANameLongerThanAnyDiskTakesIsError52) {
    EXPECT_EQ(errorOf([] { widePath("C:/" + std::string(256, 'x')); }), 52);
    EXPECT_EQ(errorOf([] { widePath(std::string(256, 'x') + "/a"); }), 52);
    EXPECT_EQ(errorOf([] { widePath("C:/" + std::string(255, 'x')); }), 0);
}

TEST(WideText, FullPathsHaveADriveAndNoIdleSteps) {
    EXPECT_EQ(fullPath(L"C:/a/./b/../c"), L"C:\\a\\c");
    EXPECT_EQ(fullPath(L""), L"");
}

}  // namespace tavisk::test
