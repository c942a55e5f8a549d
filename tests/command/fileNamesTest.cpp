#include "command/fileNames.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "base/paths.h"

namespace tavisk {
namespace {

TEST(DocumentName, IsTheFileNameWithoutExtension) {
    EXPECT_EQ(documentName("a.xml"), "a");
    EXPECT_EQ(documentName("x/y.z/a b.c.xml"), "a b.c");
    EXPECT_EQ(documentName("a"), "a");
    EXPECT_EQ(documentName("x/\xC3\xA4.xml"), "\xC3\xA4");
}

TEST(DocumentName, AHiddenFileHasNoExtension) { EXPECT_EQ(documentName(".xml"), ".xml"); }

TEST(DocumentName, OfStandardInput) { EXPECT_EQ(documentName("-"), "document"); }

TEST(DocumentName, FoldersHaveNone) {
    EXPECT_EQ(documentName("."), "");
    EXPECT_EQ(documentName("x/.."), "");
    EXPECT_EQ(documentName("x/"), "");
}

TEST(StandalonePath, EndsInHtml) { EXPECT_EQ(standalonePath("/out", "x/a.xml"), "/out/a.html"); }

TEST(AbsoluteFolder, FromHereGetsTheWorkingFolderInFront) {
    EXPECT_EQ(absoluteFolder("a/b"), textOf(std::filesystem::current_path() / "a/b"));
    EXPECT_EQ(absoluteFolder("."), textOf(std::filesystem::current_path()));
}

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
