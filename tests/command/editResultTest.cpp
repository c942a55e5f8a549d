#include "command/editResult.h"

#include <gtest/gtest.h>

#include "command/commandRun.h"
#include "support/memoryFiles.h"

namespace tavisk {
namespace {

using test::MemoryFiles;

const std::string indented =
    "<cabinetinfo>\n  <cabinet>\n    <A value='1'/>\n  </cabinet>\n"
    "  <location value='cabinet'/>\n</cabinetinfo>";

TEST(EditResult, TheTextThatWasHandedOverIsNotEdited) { EXPECT_FALSE(isEdited("x", "x")); }

TEST(EditResult, WhatLoadingMakesOfADocumentIsNotEdited) {
    EXPECT_FALSE(
        isEdited(indented, "<cabinetinfo><cabinet><A value=\"1\"/></cabinet></cabinetinfo>"));
}

TEST(EditResult, EverythingElseIsEdited) {
    EXPECT_TRUE(
        isEdited(indented, "<cabinetinfo><cabinet><A value=\"2\"/></cabinet></cabinetinfo>"));
}

TEST(EditResult, WhatCannotBeLoadedHereCountsAsEdited) {
    EXPECT_TRUE(isEdited("<a/>", "<b/>"));
    EXPECT_TRUE(isEdited("<cabinetinfo><cabinet/></cabinetinfo>", "<b/>"));
}

TEST(EditResult, AFileHasManyNames) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a.xml", "");
    const std::string other = folder.write("b.xml", "");
    EXPECT_TRUE(isSameFile(file, folder.path("./a.xml")));
    EXPECT_FALSE(isSameFile(file, other));
    EXPECT_FALSE(isSameFile(file, folder.path("none")));
}

TEST(EditResult, IsKeptUnderANewName) {
    MemoryFiles files;
    files.addFolder("/tmp");
    EXPECT_EQ(keepEdited(files, "/tmp", "/a/kitchen.v2.xml", "1"), "/tmp/kitchen.v2-edited.xml");
    EXPECT_EQ(keepEdited(files, "/tmp", "kitchen.v2.xml", "2"), "/tmp/kitchen.v2-edited-2.xml");
    EXPECT_EQ(keepEdited(files, "/tmp", "-", "3"), "/tmp/document-edited.xml");
    EXPECT_EQ(files.bytesOf("/tmp/kitchen.v2-edited.xml"), "1");
    EXPECT_EQ(files.bytesOf("/tmp/kitchen.v2-edited-2.xml"), "2");
}

}  // namespace
}  // namespace tavisk
