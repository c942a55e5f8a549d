#include "command/fileError.h"

#include <gtest/gtest.h>
#include <string>

#include "base/noFiles.h"
#include "support/errors.h"
#include "support/memoryFiles.h"

namespace tavisk {
namespace {

using test::MemoryFiles;
using Operation = MemoryFiles::Operation;

/// "N path", or only "N" for an error that names no file.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
        return "none";
    } catch (const FileError& error) {
        return std::to_string(error.number()) + ' ' + error.file();
    } catch (const RunTimeError& error) {
        return std::to_string(error.number());
    }
}

TEST(NamingFiles, PassesEverythingOn) {
    MemoryFiles memory;
    NamingFiles files(memory);
    files.createFolder("/a");
    files.replace("/a/b", {"1", "23"});
    files.overwrite("/a/b", "4");
    EXPECT_EQ(files.read("/a/b"), "423");
    EXPECT_TRUE(files.fileExists("/a/b"));
    EXPECT_TRUE(files.folderExists("/a"));
    EXPECT_FALSE(files.fileExists("/a/c"));
    EXPECT_FALSE(files.folderExists("/c"));
}

TEST(NamingFiles, EveryErrorNamesItsFile) {
    MemoryFiles memory;
    memory.fail(Operation::createFolder, ErrorNumber::permissionDenied);
    memory.fail(Operation::read, ErrorNumber::fileNotFound);
    memory.fail(Operation::replace, ErrorNumber::diskFull);
    memory.fail(Operation::overwrite, ErrorNumber::deviceError);
    NamingFiles files(memory);
    EXPECT_EQ(failureOf([&] { files.createFolder("/a"); }), "70 /a");
    EXPECT_EQ(failureOf([&] { files.read("/b"); }), "53 /b");
    EXPECT_EQ(failureOf([&] { files.replace("/c", {"x"}); }), "61 /c");
    EXPECT_EQ(failureOf([&] { files.overwrite("/d", "x"); }), "57 /d");
}

TEST(NamingFiles, AnErrorOfTheBytesNamesNoFile) {
    MemoryFiles memory;
    NamingFiles files(memory);
    EXPECT_EQ(failureOf([&] {
                  files.replaceBy("/a", [](const Files::Write& write) {
                      write("1");
                      raise(ErrorNumber::invalidArgument);
                  });
              }),
              "5");
    EXPECT_FALSE(memory.fileExists("/a"));
}

/// Opens every file and fails at the first byte.
class FullDisk final : public Files {
public:
    bool fileExists(const std::string&) override { return false; }
    bool folderExists(const std::string&) override { return true; }
    void createFolder(const std::string&) override {}
    std::string read(const std::string&) override { return {}; }
    void replaceBy(const std::string&, const std::function<void(const Write&)>& produce) override {
        produce([](std::string_view) { raise(ErrorNumber::diskFull); });
    }
    void overwrite(const std::string&, std::string_view) override {}
};

TEST(NamingFiles, AnErrorWhileTheBytesAreWrittenNamesTheFile) {
    FullDisk disk;
    NamingFiles files(disk);
    EXPECT_EQ(failureOf([&] { files.replace("/a", {"1"}); }), "61 /a");
}

TEST(NoFiles, HasFoldersAndNoFiles) {
    NoFiles files;
    files.createFolder("/a");
    files.replace("/a/b", {"1"});
    files.overwrite("/a/b", "1");
    EXPECT_TRUE(files.folderExists("/anything"));
    EXPECT_FALSE(files.fileExists("/a/b"));
    EXPECT_EQ(failureOf([&] { files.read("/a/b"); }), "53");
}

TEST(NoFiles, AnErrorOfTheBytesTravels) {
    NoFiles files;
    EXPECT_EQ(failureOf([&] {
                  files.replaceBy("/a",
                                  [](const Files::Write&) { raise(ErrorNumber::invalidArgument); });
              }),
              "5");
}

}  // namespace
}  // namespace tavisk
