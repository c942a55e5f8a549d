// Paths from the root, and links.
#include <filesystem>
#include <gtest/gtest.h>

#include "command/fileNames.h"
#include "support/temporaryFolder.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

TEST(AbsoluteFolder, FromTheRootStaysAsItIs) { EXPECT_EQ(absoluteFolder("/a/b"), "/a/b"); }

TEST(AbsoluteFolder, HasNoSeparatorAtItsEndAndNoIdleSteps) {
    EXPECT_EQ(absoluteFolder("/a/b/"), "/a/b");
    EXPECT_EQ(absoluteFolder("/a//./b/."), "/a/b");
}

TEST(AbsoluteFolder, KeepsStepsUpwards) { EXPECT_EQ(absoluteFolder("/a/../b"), "/a/../b"); }

TEST(AbsoluteFolder, KeepsLinks) {
    const test::TemporaryFolder folder;
    fs::create_directory(folder.path("real"));
    fs::create_directory_symlink("real", folder.path("link"));
    EXPECT_EQ(absoluteFolder(folder.path("link")), folder.path("link"));
}

TEST(AbsoluteFolder, OfTheRootHasNoSeparatorAtItsEnd) { EXPECT_EQ(absoluteFolder("/"), "/."); }

}  // namespace
}  // namespace tavisk
