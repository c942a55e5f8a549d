#include <gtest/gtest.h>

#include "ui/preview/fileAddress.h"

namespace tavisk {
namespace {

TEST(FileAddress, EscapesWhatAnAddressCannotHold) {
    EXPECT_EQ(fileAddress("/a b/Jörg#1/./x/../temp.html"), "file:///a%20b/J%C3%B6rg%231/temp.html");
}

}  // namespace
}  // namespace tavisk
