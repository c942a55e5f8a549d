// Links and devices.
#include <filesystem>
#include <gtest/gtest.h>

#include "command/output.h"
#include "support/errors.h"
#include "support/temporaryFolder.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

void fresh(const Files::Write& write) { write("new"); }

TEST(Output, ReplacesTheFileBehindALink) {
    const test::TemporaryFolder folder;
    folder.write("real.xml", "old");
    fs::create_symlink("real.xml", folder.path("link.xml"));
    DiskFiles files;
    writeOutputFile(files, folder.path("link.xml"), fresh);
    EXPECT_EQ(folder.read("real.xml"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.path("link.xml")));
}

TEST(Output, WritesIntoADeviceAndLeavesItOne) {
    DiskFiles files;
    EXPECT_EQ(test::errorOf([&] { writeOutputFile(files, "/dev/null", fresh); }), 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace tavisk
