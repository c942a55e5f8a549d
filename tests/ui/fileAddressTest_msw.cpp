// The browser control and the window spell a file's address in their own ways.
#include <gtest/gtest.h>

#include "ui/preview/fileAddress.h"

namespace tavisk {
namespace {

constexpr const char* page = "C:\\Eigene Dateien\\Jörg\\a#b\\temp.html";

TEST(FileAddress, HasTheDriveBehindThreeSlashes) {
    EXPECT_EQ(fileAddress("C:\\a\\temp.html"), "file:///C:/a/temp.html");
    EXPECT_EQ(fileAddress("C:/a//temp.html"), "file:///C:/a/temp.html");
}

TEST(FileAddress, HasTheServerBehindTwoSlashes) {
    EXPECT_EQ(fileAddress("\\\\server\\share\\temp.html"), "file://server/share/temp.html");
}

TEST(FileAddress, IsKnownByThePathToo) {
    const std::string address = fileAddress(page);
    EXPECT_EQ(spelledLike(address, address), address);
    EXPECT_EQ(spelledLike(address, page), address);
    EXPECT_EQ(spelledLike(address, "c:\\eigene dateien\\JÖRG\\A#B\\TEMP.HTML"), address);
}

TEST(FileAddress, KeepsThePlaceInThePage) {
    const std::string address = fileAddress(page);
    EXPECT_EQ(spelledLike(address, address + "#place"), address + "#place");
    EXPECT_EQ(spelledLike(address, std::string(page) + "#place"), address + "#place");
}

TEST(FileAddress, AnythingElseStaysAsItWasSaid) {
    const std::string address = fileAddress(page);
    for (const char* said : {"", "about:blank", "http://host/temp.html", "C:\\a\\temp.html",
                             "file:///C:/a/temp.html#place", "temp.html"})
        EXPECT_EQ(spelledLike(address, said), said);
}

}  // namespace
}  // namespace tavisk
