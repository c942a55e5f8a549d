#include <filesystem>
#include <gtest/gtest.h>

#include "base/folder.h"
#include "base/places.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

TEST(Places, TheLibrarysFileIsThisProgramWhereItIsLinkedIn) {
    EXPECT_EQ(libraryFile().filename(), L"tavisk_tests.exe");
    EXPECT_TRUE(std::filesystem::exists(libraryFile()));
}

TEST(Places, TheUsersDataHaveAFolderOfTheComponent) {
    EXPECT_TRUE(dataFolder().is_absolute());
    EXPECT_EQ(dataFolder().filename(), L"Tavisk");
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder().parent_path()));
}

TEST(Places, TryingWhetherFilesCanBeCreatedLeavesNone) {
    const TemporaryFolder folder;
    EXPECT_TRUE(mayCreateFilesIn(pathOf(folder.path())));
    EXPECT_EQ(folder.count(), 0);
    EXPECT_FALSE(mayCreateFilesIn(pathOf(folder.path("none"))));
    EXPECT_FALSE(mayCreateFilesIn(L"Q:\\"));
}

TEST(Places, TheComponentsFolderHasOneKindOfSeparator) {
    DiskFiles files;
    const std::string folder = componentFolder(files);
    EXPECT_EQ(folder, textOf(libraryFile().parent_path()));
    EXPECT_EQ(folder.find('\\'), std::string::npos);
}

}  // namespace tavisk::test
