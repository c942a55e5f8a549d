// What only this system's files have: pipes, devices, rights as numbers, links, a limit on sizes.
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "filesFixture.h"

namespace tavisk::test {
namespace {

namespace fs = std::filesystem;

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

}  // namespace

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

TEST_F(DiskFiles, NamesMayHoldAnyCharacters) {
    for (const char* name : {"größe €.png", "a\nb", "\\", "*", " ", "-", "a:b", "~"}) {
        files.replace(path(name), {name});
        EXPECT_EQ(files.read(path(name)), name);
    }
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

}  // namespace tavisk::test
