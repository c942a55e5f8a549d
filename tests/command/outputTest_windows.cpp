// Paths with drives, shares and both separators.
#include <gtest/gtest.h>

#include "command/output.h"
#include "support/errors.h"

namespace tavisk {

TEST(Output, FolderFromTheRootOfADriveStaysAsItIs) {
    EXPECT_EQ(absoluteFolder("C:/a/b"), "C:/a/b");
}

TEST(Output, FolderGetsTheOneSeparator) { EXPECT_EQ(absoluteFolder("C:\\a\\b"), "C:/a/b"); }

TEST(Output, FolderHasNoSeparatorAtItsEndAndNoIdleSteps) {
    EXPECT_EQ(absoluteFolder("C:/a/b/"), "C:/a/b");
    EXPECT_EQ(absoluteFolder("C:/a//./b/."), "C:/a/b");
}

TEST(Output, FolderOnAShareKeepsItsServer) {
    EXPECT_EQ(absoluteFolder("\\\\server\\share\\a"), "//server/share/a");
}

TEST(Output, RootFolderHasNoSeparatorAtItsEnd) { EXPECT_EQ(absoluteFolder("C:/"), "C:/."); }

TEST(Output, WritesIntoADevice) {
    DiskFiles files;
    const auto write = [](const Files::Write& to) { to("new"); };
    EXPECT_EQ(test::errorOf([&] { writeOutputFile(files, "NUL", write); }), 0);
}

}  // namespace tavisk
