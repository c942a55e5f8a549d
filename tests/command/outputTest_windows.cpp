// Devices.
#include <gtest/gtest.h>

#include "command/output.h"
#include "support/errors.h"

namespace tavisk {

TEST(Output, WritesIntoADevice) {
    DiskFiles files;
    const auto write = [](const Files::Write& to) { to("new"); };
    EXPECT_EQ(test::errorOf([&] { writeOutputFile(files, "NUL", write); }), 0);
}

}  // namespace tavisk
