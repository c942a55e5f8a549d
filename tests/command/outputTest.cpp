#include "command/output.h"

#include <gtest/gtest.h>
#include <sstream>
#include <streambuf>
#include <string>

#include "command/commandRun.h"
#include "command/fileError.h"
#include "support/errors.h"
#include "support/memoryFiles.h"

namespace tavisk {
namespace {

/// Takes nothing.
class ClosedBuffer : public std::streambuf {};

void fresh(const Files::Write& write) {
    write("n");
    write("ew");
}

TEST(Output, WritesBytesAsTheyAre) {
    std::ostringstream out;
    writeStandardOutput(out, "a\r\n\xC3\xA4");
    EXPECT_EQ(out.str(), "a\r\n\xC3\xA4");
}

TEST(Output, AStreamThatTakesNothingIsError57) {
    ClosedBuffer buffer;
    std::ostream out(&buffer);
    try {
        writeStandardOutput(out, "a");
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), 57);
        EXPECT_EQ(error.file(), "standard output");
    }
}

TEST(Output, ReplacesTheFile) {
    const test::TemporaryFolder folder;
    folder.write("a.xml", "older and longer");
    DiskFiles files;
    writeOutputFile(files, folder.path("a.xml"), fresh);
    EXPECT_EQ(folder.read("a.xml"), "new");
}

TEST(Output, CreatesEveryMissingLevel) {
    test::MemoryFiles files;
    files.addFolder("/a");
    createFolders(files, "/a/b/c/d");
    EXPECT_TRUE(files.folderExists("/a/b/c/d"));
}

TEST(Output, AnExistingFolderIsLeftAlone) {
    test::MemoryFiles files;
    files.addFolder("/a/b");
    files.fail(test::MemoryFiles::Operation::createFolder, ErrorNumber::permissionDenied);
    EXPECT_EQ(test::errorOf([&] { createFolders(files, "/a/b"); }), 0);
    EXPECT_EQ(test::errorOf([&] { createFolders(files, "/a/c"); }), 70);
}

}  // namespace
}  // namespace tavisk
