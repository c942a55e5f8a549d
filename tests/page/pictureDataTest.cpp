#include "page/pictureData.h"

#include <gtest/gtest.h>
#include <string>

namespace tavisk {
namespace {

using namespace std::literals;

TEST(PictureType, IsToldByTheBytes) {
    EXPECT_EQ(pictureType("\x89PNG\r\n\x1A\nrest"), "image/png");
    EXPECT_EQ(pictureType("GIF89a"), "image/gif");
    EXPECT_EQ(pictureType("\xFF\xD8\xFF\xE0"), "image/jpeg");
    EXPECT_EQ(pictureType("BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28"sv), "image/bmp");
    EXPECT_EQ(pictureType("RIFF\x10\0\0\0WEBPVP8 "sv), "image/webp");
    EXPECT_EQ(pictureType("\0\0\0\x1C"
                          "ftypavif"sv),
              "image/avif");
    EXPECT_EQ(pictureType("II*\0\b\0"sv), "image/tiff");
    EXPECT_EQ(pictureType("MM\0*\0\0"sv), "image/tiff");
    EXPECT_EQ(pictureType("\0\0\1\0\1\0"sv), "image/vnd.microsoft.icon");
}

TEST(PictureType, SvgIsToldByItsFirstElement) {
    EXPECT_EQ(pictureType("<svg/>"), "image/svg+xml");
    EXPECT_EQ(pictureType("\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <a> -->\n<!DOCTYPE svg>\n<svg "),
              "image/svg+xml");
    EXPECT_EQ(pictureType("<?xml version='1.0'?><html><svg/></html>"), std::nullopt);
    EXPECT_EQ(pictureType("<!-- <svg>"), std::nullopt);
}

TEST(PictureType, OtherBytesAreNoPicture) {
    EXPECT_EQ(pictureType(""), std::nullopt);
    EXPECT_EQ(pictureType("root:x:0:0:"), std::nullopt);
    EXPECT_EQ(pictureType("BMW drivers, a long list"), std::nullopt);
    EXPECT_EQ(pictureType("\x89PNG"), std::nullopt);
}

TEST(PictureType, TheExtensionTellsWhatTheBytesDoNot) {
    EXPECT_EQ(pictureType("?", "JPG"), "image/jpeg");
    EXPECT_EQ(pictureType("?", "svg"), "image/svg+xml");
    EXPECT_EQ(pictureType("?", "xyz"), "application/octet-stream");
    EXPECT_EQ(pictureType("GIF89a", "png"), "image/gif");
}

TEST(DataAddress, HoldsTypeAndBytes) {
    EXPECT_EQ(dataAddress("image/gif", "GIF89a"), "data:image/gif;base64,R0lGODlh");
}

}  // namespace
}  // namespace tavisk
