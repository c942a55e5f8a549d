#include "platform/files.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "support/errors.h"

namespace tavisk::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// Makes files longer than `size` impossible for this process, as a full disk would.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t size) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{size, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;
    ~SizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit before_{};
    void (*signal_)(int);
};

/// The rights of an ordinary user, also where the tests run as the superuser, who may do anything.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const std::string& folder) {
        constexpr uid_t nobody = 65534;
        if (::geteuid() != 0) return;
        changed_ = ::chown(folder.c_str(), nobody, nobody) == 0 && ::seteuid(nobody) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (changed_ && ::seteuid(0) != 0) std::abort();
    }

private:
    bool changed_ = false;
};

class DiskFiles : public ::testing::Test {
protected:
    DiskFiles() {
        std::string pattern = (fs::temp_directory_path() / "filesTest-XXXXXX").string();
        if (::mkdtemp(pattern.data()) != nullptr) folder = pattern;
    }
    ~DiskFiles() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    std::string path(const std::string& name) const { return folder + "/" + name; }

    std::string put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    std::string bytesOf(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Files in the folder, hidden ones included.
    std::ptrdiff_t count() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    int readError(const std::string& name) {
        return errorOf([&] { files.read(name); });
    }
    int replaceError(const std::string& name, std::string_view bytes = "new") {
        return errorOf([&] { files.replace(name, {bytes}); });
    }
    int overwriteError(const std::string& name, std::string_view bytes = "new") {
        return errorOf([&] { files.overwrite(name, bytes); });
    }

    std::string folder;
    tavisk::DiskFiles files;
};

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

TEST_F(DiskFiles, ReadsAFileOfUnknownSize) {
    EXPECT_NE(files.read("/proc/self/status").find("Pid:"), std::string::npos);
}

TEST_F(DiskFiles, ReadsAPipeToItsEnd) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string bytes(300'000, 'x');
    std::thread writer([&] { put("pipe", bytes); });
    EXPECT_EQ(files.read(path("pipe")), bytes);
    writer.join();
}

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

TEST_F(DiskFiles, NamesMayHoldAnyCharacters) {
    for (const char* name : {"größe €.png", "a\nb", "\\", "*", " ", "-", "a:b", "~"}) {
        files.replace(path(name), {name});
        EXPECT_EQ(files.read(path(name)), name);
    }
}

TEST_F(DiskFiles, TheLongestNameThatTheFolderTakesIsWritten) {
    const std::string name(255, 'x');
    files.replace(path(name), {"new"});
    EXPECT_EQ(bytesOf(name), "new");
}

TEST_F(DiskFiles, ReplaceKeepsThePermissionsOfTheFile) {
    for (const mode_t mode : {0600U, 0644U, 0755U, 0666U}) {
        const std::string name = put("a", "old");
        ASSERT_EQ(::chmod(name.c_str(), mode), 0);
        files.replace(name, {"new"});
        struct stat found {};
        ::stat(name.c_str(), &found);
        EXPECT_EQ(found.st_mode & 07777, mode);
    }
}

TEST_F(DiskFiles, ANewFileHasThePermissionsOfTheMask) {
    const mode_t mask = ::umask(027);
    files.replace(path("a"), {"new"});
    ::umask(mask);
    struct stat found {};
    ::stat(path("a").c_str(), &found);
    EXPECT_EQ(found.st_mode & 07777, 0640U);
}

TEST_F(DiskFiles, AnOpenReaderKeepsTheOldFile) {
    std::ifstream reader(put("a", "old"), std::ios::binary);
    files.replace(path("a"), {"new"});
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    EXPECT_EQ(bytesOf("a"), "new");
}

TEST_F(DiskFiles, ALinkIsReplacedAndNotWhatItLeadsTo) {
    put("target", "old");
    fs::create_symlink("target", path("link"));
    files.replace(path("link"), {"new"});
    EXPECT_EQ(bytesOf("target"), "old");
    EXPECT_EQ(bytesOf("link"), "new");
    EXPECT_FALSE(fs::is_symlink(path("link")));
}

TEST_F(DiskFiles, ALinkToNothingIsReplaced) {
    fs::create_symlink("nothing", path("link"));
    files.replace(path("link"), {"new"});
    EXPECT_EQ(bytesOf("link"), "new");
    EXPECT_FALSE(fs::exists(path("nothing")));
}

TEST_F(DiskFiles, APipeIsWrittenToAndStaysAPipe) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    std::string got;
    std::thread reader([&] { got = bytesOf("pipe"); });
    files.replace(path("pipe"), {"one", " two"});
    reader.join();
    EXPECT_EQ(got, "one two");
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
}

TEST_F(DiskFiles, ADeviceIsWrittenToAndStaysADevice) {
    files.replace("/dev/null", {"new"});
    files.overwrite("/dev/null", "new");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(replaceError("/dev/full"), 61);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
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

TEST_F(DiskFiles, AFullDiskIsError61AndLeavesTheOldFile) {
    put("a", "old");
    const std::string bytes(100'000, 'x');
    {
        const SizeLimit limit(50'000);
        EXPECT_EQ(replaceError(path("a"), bytes), 61);
        EXPECT_EQ(overwriteError(path("a"), bytes), 61);
        EXPECT_EQ(replaceError(path("b"), bytes), 61);
    }
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, AReadOnlyFolderIsError70AndLeavesTheOldFile) {
    const OrdinaryUser user(folder);
    put("a", "old");
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(replaceError(path("a")), 70);
    EXPECT_EQ(overwriteError(path("a")), 70);
    EXPECT_EQ(replaceError(path("b")), 70);
    EXPECT_EQ(errorOf([&] { files.createFolder(path("c")); }), 70);
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, AReadOnlyFileIsError70AndStays) {
    const OrdinaryUser user(folder);
    put("a", "old");
    fs::permissions(path("a"), fs::perms::owner_read);
    EXPECT_EQ(replaceError(path("a")), 70);
    EXPECT_EQ(overwriteError(path("a")), 70);
    EXPECT_EQ(bytesOf("a"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, AnUnreadableFileIsError70) {
    const OrdinaryUser user(folder);
    put("a", "older");
    fs::permissions(path("a"), fs::perms::none);
    EXPECT_EQ(readError(path("a")), 70);
}

TEST_F(DiskFiles, ATailThatCannotBeReadIsError70) {
    const OrdinaryUser user(folder);
    put("a", "older");
    fs::permissions(path("a"), fs::perms::owner_write);
    EXPECT_EQ(overwriteError(path("a"), "new"), 70);
    fs::permissions(path("a"), fs::perms::owner_all);
    EXPECT_EQ(bytesOf("a"), "older");
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

TEST_F(DiskFiles, AFileThatBeginsWithTheBytesAlreadyIsNotWritten) {
    const std::string bytes(200'000, 'x');
    put("a", bytes);
    put("b", bytes + "tail");
    const SizeLimit limit(1000);
    files.overwrite(path("a"), bytes);
    files.overwrite(path("b"), bytes);
    EXPECT_EQ(bytesOf("a"), bytes);
    EXPECT_EQ(bytesOf("b"), bytes + "tail");
}

TEST_F(DiskFiles, AFileThatDiffersInItsLastByteIsWritten) {
    const std::string bytes(200'000, 'x');
    put("a", bytes + "tail");
    std::string changed = bytes;
    changed.back() = 'y';
    files.overwrite(path("a"), changed);
    EXPECT_EQ(bytesOf("a"), changed + "tail");
}

TEST_F(DiskFiles, OverwriteKeepsThePermissionsOfTheFile) {
    put("a", "0123456789");
    ASSERT_EQ(::chmod(path("a").c_str(), 0640), 0);
    files.overwrite(path("a"), "new");
    struct stat found {};
    ::stat(path("a").c_str(), &found);
    EXPECT_EQ(found.st_mode & 07777, 0640U);
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, AFullDiskLeavesTheTailToo) {
    const std::string old(100'000, 'o');
    put("a", old);
    {
        const SizeLimit limit(50'000);
        EXPECT_EQ(overwriteError(path("a"), "new"), 61);
    }
    EXPECT_EQ(bytesOf("a"), old);
    EXPECT_EQ(count(), 1);
}

TEST_F(DiskFiles, FilesOfTheWorkingFolderNeedNoFolderInTheirName) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    files.replace("a", {"new"});
    EXPECT_EQ(files.read("a"), "new");
    fs::current_path(before);
    EXPECT_EQ(bytesOf("a"), "new");
}

}  // namespace tavisk::test
