#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "filesFixture.h"

namespace tavisk::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

}  // namespace

TEST_F(DiskFiles, AFileExistsAndIsNoFolder) {
    put("a", "");
    EXPECT_TRUE(files.fileExists(path("a")));
    EXPECT_FALSE(files.folderExists(path("a")));
    EXPECT_FALSE(files.fileExists(path("b")));
    EXPECT_FALSE(files.fileExists(path("a/b")));
}

TEST_F(DiskFiles, AFolderExistsAndIsNoFile) {
    EXPECT_TRUE(files.folderExists(folder));
    EXPECT_TRUE(files.folderExists(folder + "/"));
    EXPECT_FALSE(files.fileExists(folder));
    EXPECT_FALSE(files.folderExists(path("b")));
}

TEST_F(DiskFiles, NamesThatAreNoneDoNotExist) {
    EXPECT_FALSE(files.fileExists(""));
    EXPECT_FALSE(files.folderExists(""));
    put("a", "");
    EXPECT_FALSE(files.fileExists(path("a\0b"s)));
}

TEST_F(DiskFiles, CreatesTheLastLevelOfAFolder) {
    files.createFolder(path("a"));
    EXPECT_TRUE(fs::is_directory(path("a")));
    files.createFolder(path("a/b/"));
    EXPECT_TRUE(fs::is_directory(path("a/b")));
}

TEST_F(DiskFiles, AFolderBelowAMissingOneIsError76) {
    EXPECT_EQ(errorOf([&] { files.createFolder(path("a/b")); }), 76);
    EXPECT_FALSE(fs::exists(path("a")));
}

TEST_F(DiskFiles, AFolderThatIsThereStaysAsItIs) {
    files.createFolder(folder);
    put("a", "x");
    files.createFolder(folder);
    EXPECT_EQ(bytesOf("a"), "x");
}

TEST_F(DiskFiles, AFolderInPlaceOfAFileIsError70) {
    put("a", "x");
    EXPECT_EQ(errorOf([&] { files.createFolder(path("a")); }), 70);
}

TEST_F(DiskFiles, AFolderWithoutANameIsError52) {
    EXPECT_EQ(errorOf([&] { files.createFolder(""); }), 52);
}

TEST_F(DiskFiles, ReadsEveryByteOfAFile) {
    std::string bytes;
    for (int i = 0; i < 1'000'000; ++i)
        bytes += static_cast<char>(i % 251);
    put("a", bytes);
    EXPECT_EQ(files.read(path("a")), bytes);
}

TEST_F(DiskFiles, ReadsAnEmptyFile) { EXPECT_EQ(files.read(put("a", "")), ""); }

TEST_F(DiskFiles, ReadingAMissingFileIsError53) {
    EXPECT_EQ(readError(path("a")), 53);
    EXPECT_EQ(readError("no such file, surely"), 53);
}

TEST_F(DiskFiles, ReadingBelowAMissingFolderIsError76) { EXPECT_EQ(readError(path("a/b")), 76); }

TEST_F(DiskFiles, ReadingBelowAFileIsError76) {
    put("a", "");
    EXPECT_EQ(readError(path("a/b")), 76);
}

TEST_F(DiskFiles, ReadingAFolderIsError70) { EXPECT_EQ(readError(folder), 70); }

TEST_F(DiskFiles, ReadingABadNameIsError52) {
    EXPECT_EQ(readError(""), 52);
    EXPECT_EQ(readError(folder + "/"), 52);
    EXPECT_EQ(readError(path("a\0b"s)), 52);
    EXPECT_EQ(readError(path(std::string(300, 'x'))), 52);
}

TEST_F(DiskFiles, ReplaceWritesThePartsOneAfterTheOther) {
    files.replace(path("a"), {"one", "", " two", std::string_view(" \0", 2)});
    EXPECT_EQ(bytesOf("a"), "one two \0"s);
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, ReplaceByWritesWhatIsProducedPieceByPiece) {
    put("a", "something longer");
    files.replaceBy(path("a"), [](const Files::Write& write) {
        for (const char* piece : {"one", "", " two"})
            write(piece);
    });
    EXPECT_EQ(bytesOf("a"), "one two");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, TheOldFileIsThereWhileTheNewOneIsProduced) {
    put("a", "old");
    files.replaceBy(path("a"), [&](const Files::Write& write) {
        write(bytesOf("a") + " and new");
        EXPECT_EQ(bytesOf("a"), "old");
    });
    EXPECT_EQ(bytesOf("a"), "old and new");
}

TEST_F(DiskFiles, AFailingProducerLeavesTheOldFile) {
    put("a", "old");
    const auto fail = [](const Files::Write& write) {
        write("half");
        raise(ErrorNumber::invalidArgument);
    };
    EXPECT_EQ(errorOf([&] { files.replaceBy(path("a"), fail); }), 5);
    EXPECT_EQ(errorOf([&] { files.replaceBy(path("b"), fail); }), 5);
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, ReplaceLeavesNothingOfALongerFile) {
    put("a", "something longer");
    files.replace(path("a"), {"new"});
    EXPECT_EQ(bytesOf("a"), "new");
    files.replace(path("a"), {});
    EXPECT_EQ(bytesOf("a"), "");
}

TEST_F(DiskFiles, TheLongestNameThatTheFolderTakesIsWritten) {
    const std::string name(255, 'x');
    files.replace(path(name), {"new"});
    EXPECT_EQ(files.read(path(name)), "new");
}

TEST_F(DiskFiles, WritingBelowAMissingFolderIsError76) {
    EXPECT_EQ(replaceError(path("a/b")), 76);
    EXPECT_EQ(overwriteError(path("a/b")), 76);
    EXPECT_EQ(count(), 0);
}

TEST_F(DiskFiles, WritingBelowAFileIsError76) {
    put("a", "old");
    EXPECT_EQ(replaceError(path("a/b")), 76);
    EXPECT_EQ(bytesOf("a"), "old");
}

TEST_F(DiskFiles, WritingOverAFolderIsError70) {
    fs::create_directory(path("a"));
    EXPECT_EQ(replaceError(path("a")), 70);
    EXPECT_EQ(overwriteError(path("a")), 70);
    EXPECT_EQ(replaceError(path("a/..")), 70);
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, WritingToABadNameIsError52) {
    EXPECT_EQ(replaceError(""), 52);
    EXPECT_EQ(replaceError(folder + "/"), 52);
    EXPECT_EQ(replaceError(path("a/")), 52);
    EXPECT_EQ(replaceError(path("a\0b"s)), 52);
    EXPECT_EQ(replaceError(path(std::string(256, 'x'))), 52);
    EXPECT_EQ(replaceError(path(std::string(5000, 'x'))), 52);
    EXPECT_EQ(overwriteError(""), 52);
    EXPECT_EQ(count(), 0);
}

TEST_F(DiskFiles, OverwriteMakesANewFile) {
    files.overwrite(path("a"), "new");
    EXPECT_EQ(bytesOf("a"), "new");
}

TEST_F(DiskFiles, OverwriteKeepsTheTailOfALongerFile) {
    put("a", "0123456789");
    files.overwrite(path("a"), "new");
    EXPECT_EQ(bytesOf("a"), "new3456789");
    files.overwrite(path("a"), "");
    EXPECT_EQ(bytesOf("a"), "new3456789");
}

TEST_F(DiskFiles, OverwriteReplacesAShorterOrEquallyLongFile) {
    put("a", "old");
    files.overwrite(path("a"), "newer");
    EXPECT_EQ(bytesOf("a"), "newer");
    files.overwrite(path("a"), "fresh");
    EXPECT_EQ(bytesOf("a"), "fresh");
}

TEST_F(DiskFiles, AFileThatDiffersInItsLastByteIsWritten) {
    const std::string bytes(200'000, 'x');
    put("a", bytes + "tail");
    std::string changed = bytes;
    changed.back() = 'y';
    files.overwrite(path("a"), changed);
    EXPECT_EQ(bytesOf("a"), changed + "tail");
}

TEST_F(DiskFiles, FilesOfTheWorkingFolderNeedNoFolderInTheirName) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    files.replace("a", {"new"});
    EXPECT_EQ(files.read("a"), "new");
    fs::current_path(before);
    EXPECT_EQ(bytesOf("a"), "new");
}

/// Gives `bytes` in pieces of at most `piece`, whatever room there is.
std::string readInPieces(const std::string& bytes, std::size_t piece, std::size_t sizeHint) {
    std::size_t at = 0;
    const Bytes read = readToEnd(
        [&](char* to, std::size_t room) {
            EXPECT_GT(room, 0U);
            const std::size_t got = bytes.copy(to, std::min(piece, room), at);
            at += got;
            return got;
        },
        sizeHint);
    EXPECT_EQ(read.data[read.size], '\0');
    return {read.data.get(), read.size};
}

TEST(ReadToEnd, AnyHintWillDo) {
    const std::string bytes = std::string(70'000, 'x') + "end";
    for (const std::size_t hint :
         {std::size_t{0}, bytes.size() - 1, bytes.size(), bytes.size() + 1, std::size_t{1} << 20})
        EXPECT_EQ(readInPieces(bytes, bytes.size(), hint), bytes) << hint;
    EXPECT_EQ(readInPieces(bytes, 7, 100), bytes);
    EXPECT_EQ(readInPieces("", 1, 0), "");
}

TEST(ReadToEnd, ARightHintNeedsNoSecondBlock) {
    const std::string bytes(100'000, 'x');
    std::vector<const char*> places;
    const Bytes read = readToEnd(
        [&](char* to, std::size_t room) {
            places.push_back(to);
            return bytes.copy(to, room, places.size() == 1 ? 0 : bytes.size());
        },
        bytes.size());
    EXPECT_EQ(places, (std::vector<const char*>{read.data.get(), read.data.get() + bytes.size()}));
}

}  // namespace tavisk::test
