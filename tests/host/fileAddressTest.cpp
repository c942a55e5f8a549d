#include "host/fileAddress.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/paths.h"

namespace tavisk {
namespace {

TEST(FileAddress, ARelativeNameStaysOne) {
    EXPECT_EQ(fileAddress("a.xml"), "a.xml");
    EXPECT_EQ(fileAddress("./x//y/../a.xml"), "x/a.xml");
    EXPECT_EQ(fileAddress("../a.xml"), "../a.xml");
}

TEST(FileAddress, EverythingButPlainCharactersIsEncoded) {
    EXPECT_EQ(fileAddress("a b/\xC3\xA4%#?:.xml"), "a%20b/%C3%A4%25%23%3F%3A.xml");
    EXPECT_EQ(fileAddress("A-z_0.9~"), "A-z_0.9~");
}

TEST(FileAddress, BytesThatAreNoTextAreEncodedToo) {
    if constexpr (std::filesystem::path::preferred_separator != '/') {
        GTEST_SKIP() << "file names are text there";
    }
    EXPECT_EQ(fileAddress("\xFF.xml"), "%FF.xml");
}

TEST(FileAddress, WhatIsBelowTheCurrentFolderIsSeenFromThere) {
    EXPECT_EQ(fileAddress(textOf(std::filesystem::current_path() / "x" / "a.xml")), "x/a.xml");
}

TEST(FileAddress, WhatIsElsewhereIsWhole) {
    const std::string root = textOf(std::filesystem::current_path().root_path());
    const std::string begin = root == "/" ? "file:///" : "file:///" + root;
    EXPECT_EQ(fileAddress(root + "no where/a.xml"), begin + "no%20where/a.xml");
}

}  // namespace
}  // namespace tavisk
