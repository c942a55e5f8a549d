#include "command/summary.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

TEST(Counted, OneHasNoS) {
    EXPECT_EQ(counted(0, "finding"), "0 findings");
    EXPECT_EQ(counted(1, "finding"), "1 finding");
    EXPECT_EQ(counted(2, "finding"), "2 findings");
}

TEST(Summary, WhatDidNotHappenIsLeftOut) {
    Summary summary(4);
    summary.add(0, "rendered");
    summary.add(3, "rejected");
    summary.add(1, "failed");
    EXPECT_EQ(summary.text(), "4 documents: 3 rejected, 1 failed");
}

}  // namespace
}  // namespace tavisk
