#include "command/relativeAddress.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "base/paths.h"

namespace tavisk {
namespace {

TEST(RelativeAddress, ARelativeNameStaysOne) {
    EXPECT_EQ(relativeAddress("a.xml"), "a.xml");
    EXPECT_EQ(relativeAddress("./x//y/../a.xml"), "x/a.xml");
    EXPECT_EQ(relativeAddress("../a.xml"), "../a.xml");
}

TEST(RelativeAddress, EverythingButPlainCharactersIsEncoded) {
    EXPECT_EQ(relativeAddress("a b/\xC3\xA4%#?:.xml"), "a%20b/%C3%A4%25%23%3F%3A.xml");
    EXPECT_EQ(relativeAddress("A-z_0.9~"), "A-z_0.9~");
}

TEST(RelativeAddress, BytesThatAreNoTextAreEncodedToo) {
    if constexpr (std::filesystem::path::preferred_separator != '/') {
        GTEST_SKIP() << "file names are text there";
    }
    EXPECT_EQ(relativeAddress("\xFF.xml"), "%FF.xml");
}

TEST(RelativeAddress, WhatIsBelowTheCurrentFolderIsSeenFromThere) {
    EXPECT_EQ(relativeAddress(textOf(std::filesystem::current_path() / "x" / "a.xml")), "x/a.xml");
}

TEST(RelativeAddress, WhatIsElsewhereIsWhole) {
    const std::string root = textOf(std::filesystem::current_path().root_path());
    const std::string begin = root == "/" ? "file:///" : "file:///" + root;
    EXPECT_EQ(relativeAddress(root + "no where/a.xml"), begin + "no%20where/a.xml");
}

}  // namespace
}  // namespace tavisk
