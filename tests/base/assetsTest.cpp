#include "base/assets.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>

#include "support/errors.h"
#include "support/memoryFiles.h"

namespace tavisk {
namespace {

using test::MemoryFiles;

}  // namespace

TEST(Assets, ThePictureIsAPngOf256By256Pixels) {
    using namespace std::string_view_literals;
    EXPECT_TRUE(cabinetPicture().starts_with("\x89PNG\r\n\x1A\n"sv));
    EXPECT_EQ(cabinetPicture().substr(12, 12), "IHDR\0\0\x01\0\0\0\x01\0"sv);
    EXPECT_TRUE(cabinetPicture().ends_with("IEND\xAE\x42\x60\x82"sv));
}

TEST(Assets, TheStylesheetIsThere) { EXPECT_NE(stylesheet().find("body"), std::string_view::npos); }

TEST(Assets, AMissingFolderIsCreatedAndFilled) {
    MemoryFiles files;
    files.addFolder("/home");
    provideAssets(files, "/home/tavisk");
    EXPECT_TRUE(files.folderExists("/home/tavisk"));
    EXPECT_EQ(files.bytesOf("/home/tavisk/cabinet.png"), std::string(cabinetPicture()));
    EXPECT_EQ(files.bytesOf("/home/tavisk/style.css"), std::string(stylesheet()));
}

TEST(Assets, OnlyTheLastLevelOfTheFolderIsCreated) {
    MemoryFiles files;
    EXPECT_EQ(test::errorOf([&] { provideAssets(files, "/home/tavisk"); }), 76);
}

TEST(Assets, FilesThatAreThereStay) {
    MemoryFiles files;
    files.put("/f/cabinet.png", "my picture").put("/f/style.css", "my style");
    provideAssets(files, "/f");
    EXPECT_EQ(files.bytesOf("/f/cabinet.png"), "my picture");
    EXPECT_EQ(files.bytesOf("/f/style.css"), "my style");
}

TEST(Assets, EachFileIsProvidedOnItsOwn) {
    MemoryFiles files;
    files.put("/f/cabinet.png", "my picture");
    provideAssets(files, "/f");
    EXPECT_EQ(files.bytesOf("/f/cabinet.png"), "my picture");
    EXPECT_EQ(files.bytesOf("/f/style.css"), std::string(stylesheet()));
}

}  // namespace tavisk
