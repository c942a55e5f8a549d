#include "ui/toolkit/strings.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

TEST(WxStrings, Utf8ComesBack) {
    const std::string text =
        "Gr\xC3\xB6\xC3\x9F"
        "e \xF0\x9F\x98\x80";
    EXPECT_EQ(utf8Of(toWx(text)), text);
    EXPECT_EQ(utf8Of(toWx(std::string_view())), "");
}

TEST(WxStrings, Utf16ComesBack) {
    const std::u16string text = u"Gr\u00F6\u00DFe \xD83D\xDE00!";
    EXPECT_EQ(utf16Of(toWx(text)), text);
    EXPECT_EQ(utf16Of(toWx(std::u16string_view())), u"");
}

TEST(WxStrings, Utf8AndUtf16NameTheSameText) {
    EXPECT_EQ(toWx(std::u16string_view(u"\xD83D\xDE00")), toWx("\xF0\x9F\x98\x80"));
}

}  // namespace
}  // namespace tavisk
