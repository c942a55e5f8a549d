// What only this system's files have: attributes, sharing, long and reserved names.
#include <string>
#include <vector>
#include <windows.h>

#include "base/wideText_windows.h"
#include "filesFixture.h"
#include "support/wine_windows.h"

namespace tavisk::test {
namespace {

/// A file that another program has open.
class Opened {
public:
    Opened(const std::string& path, DWORD share)
        : file_(::CreateFileW(widePath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { ::CloseHandle(file_); }

private:
    HANDLE file_;
};

}  // namespace

TEST_F(DiskFiles, NamesMayHoldAnyCharactersThatTheSystemTakes) {
    for (const char* name : {"größe €.png", "漢字", "\U0001F600.png", "-", "~", "a b", "%41"}) {
        files.replace(path(name), {name});
        EXPECT_EQ(files.read(path(name)), name);
    }
}

TEST_F(DiskFiles, NamesThatTheSystemRefusesAreError52) {
    for (const char* name : {"*", "a?b", "a\"b", "<", ">", "|", "a\nb"})
        EXPECT_EQ(replaceError(path(name)), 52) << name;
    EXPECT_EQ(count(), 0);
}

TEST_F(DiskFiles, WhatIsNoUtf8IsError52) {
    EXPECT_EQ(replaceError(path("\xFF")), 52);
    EXPECT_EQ(readError(path("\xC3")), 52);
}

TEST_F(DiskFiles, ABackslashPartsFolders) {
    files.createFolder(folder + "\\a");
    files.replace(folder + "\\a\\b", {"new"});
    EXPECT_EQ(bytesOf("a/b"), "new");
    EXPECT_EQ(readError(folder + "\\a\\"), 52);
    EXPECT_EQ(readError(folder + "\\c\\b"), 76);
}

TEST_F(DiskFiles, WhatIsNoNameDoesNotExist) {
    EXPECT_FALSE(files.fileExists(path("\xFF")));
    EXPECT_FALSE(files.folderExists(path(std::string(300, 'x'))));
}

TEST_F(DiskFiles, PathsMayBeLongerThanTheOldLimit) {
    std::vector<std::string> levels{folder};
    for (int level = 0; level < 4; ++level) {
        levels.push_back(levels.back() + "/" + std::string(100, 'x'));
        files.createFolder(levels.back());
    }
    const std::string& deep = levels.back();
    files.replace(deep + "/./a", {"old"});
    files.replace(deep + "/a", {"new"});
    EXPECT_EQ(files.read(deep + "/../" + std::string(100, 'x') + "/a"), "new");
    EXPECT_TRUE(files.folderExists(deep));

    ::DeleteFileW(widePath(deep + "/a").c_str());
    for (; levels.size() > 1; levels.pop_back())
        EXPECT_NE(::RemoveDirectoryW(widePath(levels.back()).c_str()), 0);
}

TEST_F(DiskFiles, AReadOnlyFileIsError70AndStays) {
    const std::wstring name = widePath(put("a", "old"));
    ASSERT_NE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_EQ(replaceError(path("a")), 70);
    EXPECT_EQ(overwriteError(path("a")), 70);
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(DiskFiles, AFileThatSomebodyKeepsToHimselfIsError70AndStays) {
    put("a", "old");
    {
        const Opened other(path("a"), 0);
        EXPECT_EQ(readError(path("a")), 70);
        EXPECT_EQ(replaceError(path("a")), 70);
    }
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, AFileThatAnotherReadsIsReadToo) {
    put("a", "old");
    const Opened other(path("a"), FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    EXPECT_EQ(files.read(path("a")), "old");
}

TEST_F(DiskFiles, ReplaceKeepsTheHiddenAttribute) {
    if (underWine()) GTEST_SKIP() << "Wine's ReplaceFileW does not hand attributes on";
    const std::wstring name = widePath(put("a", "old"));
    ASSERT_NE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    files.replace(path("a"), {"new"});
    EXPECT_EQ(bytesOf("a"), "new");
    EXPECT_NE(::GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(DiskFiles, ADeviceIsWrittenTo) {
    EXPECT_EQ(replaceError("NUL"), 0);
    EXPECT_EQ(overwriteError("NUL"), 0);
}

TEST_F(DiskFiles, AMissingDriveIsError76) {
    EXPECT_EQ(readError("q:/a"), 76);
    EXPECT_EQ(replaceError("q:/a"), 76);
}

}  // namespace tavisk::test
