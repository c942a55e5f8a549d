// Paths with drives, shares and both separators.
#include <gtest/gtest.h>

#include "command/fileNames.h"

namespace tavisk {

TEST(AbsoluteFolder, FromTheRootOfADriveStaysAsItIs) {
    EXPECT_EQ(absoluteFolder("C:/a/b"), "C:/a/b");
}

TEST(AbsoluteFolder, GetsTheOneSeparator) { EXPECT_EQ(absoluteFolder("C:\\a\\b"), "C:/a/b"); }

TEST(AbsoluteFolder, HasNoSeparatorAtItsEndAndNoIdleSteps) {
    EXPECT_EQ(absoluteFolder("C:/a/b/"), "C:/a/b");
    EXPECT_EQ(absoluteFolder("C:/a//./b/."), "C:/a/b");
}

TEST(AbsoluteFolder, OnAShareKeepsItsServer) {
    EXPECT_EQ(absoluteFolder("\\\\server\\share\\a"), "//server/share/a");
}

TEST(AbsoluteFolder, OfTheRootHasNoSeparatorAtItsEnd) { EXPECT_EQ(absoluteFolder("C:/"), "C:/."); }

}  // namespace tavisk
