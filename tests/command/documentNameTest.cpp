#include "command/documentName.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tavisk
