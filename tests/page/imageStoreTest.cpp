#include "page/imageStore.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

#include "support/errors.h"
#include "support/memoryFiles.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using namespace std::string_literals;
using test::element;
using test::errorOf;
using test::MemoryFiles;
using test::parsed;

constexpr const char* typedAttributes =
    R"(xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64")";
const std::string folder = "/t/temp_images/";

std::string imported(MemoryFiles& files, const std::string& path) {
    dom::Document document;
    return writeXml(*importimage(document, files, path));
}

/// Writes the only `image` of a document over the file "/t/out".
int errorOfExport(MemoryFiles& files, std::string_view xml) {
    const auto document = parsed(xml);
    std::string buffer;
    files.addFolder("/t");
    return errorOf(
        [&] { EXPECT_FALSE(exportimage(element(*document, "image"), files, "/t/out", buffer)); });
}

int errorOfDump(MemoryFiles& files, std::string_view xml) {
    const auto document = parsed(xml);
    return errorOf([&] { dumpImages(*document, files, folder); });
}

TEST(ImportImage, StoresTheFileAndOneZeroByte) {
    MemoryFiles files;
    files.put("/p/a.png", "abc").put("/p/b.png", "ab");
    EXPECT_EQ(imported(files, "/p/a.png"), "<image "s + typedAttributes + ">YWJjAA==</image>");
    EXPECT_EQ(imported(files, "/p/b.png"), "<image "s + typedAttributes + ">YWIA</image>");
}

TEST(ImportImage, EmptyFileGivesOneZeroByte) {
    MemoryFiles files;
    files.put("/p/a.png", "");
    EXPECT_EQ(imported(files, "/p/a.png"), "<image "s + typedAttributes + ">AA==</image>");
}

TEST(ImportImage, BytesAreTakenAsTheyAre) {
    MemoryFiles files;
    files.put("/p/a.png", "\0\xff\r\n\x80"s);
    EXPECT_EQ(imported(files, "/p/a.png"), "<image "s + typedAttributes + ">AP8NCoAA</image>");
}

TEST(ImportImage, MissingFileGivesAnEmptyElementWithoutDataType) {
    MemoryFiles files;
    EXPECT_EQ(imported(files, "/p/none.png"), "<image/>");
    EXPECT_EQ(imported(files, ""), "<image/>");
}

TEST(ImportImage, ElementIsNotYetInTheDocument) {
    MemoryFiles files;
    const auto document = parsed("<cabinetinfo/>");
    const dom::OwnedNode image = importimage(*document, files, "/p/none.png");
    EXPECT_EQ(image->parent(), nullptr);
    EXPECT_EQ(writeXml(*document), "<cabinetinfo/>");
}

TEST(ImportImage, ErrorOfTheFileTravels) {
    MemoryFiles files;
    files.put("/p/a.png", "abc");
    files.fail(MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOf([&] { imported(files, "/p/a.png"); }), 70);
}

TEST(ExportImage, WritesTheStoredBytes) {
    MemoryFiles files;
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">YWJjAA==</image>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc\0"s);
}

TEST(ExportImage, ImportedFileComesBackOneByteLonger) {
    MemoryFiles files;
    files.put("/p/a.png", "\x89PNG");
    dom::Document document;
    std::string buffer = "left over from before";
    exportimage(*importimage(document, files, "/p/a.png"), files, "/p/b.png", buffer);
    EXPECT_EQ(files.bytesOf("/p/b.png"), "\x89PNG\0"s);
}

TEST(ExportImage, OlderLongerFileKeepsItsTail) {
    MemoryFiles files;
    files.put("/t/out", "0123456789");
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">YWJj</image>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc3456789");
}

TEST(ExportImage, OlderShorterFileIsCovered) {
    MemoryFiles files;
    files.put("/t/out", "01");
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">YWJj</image>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc");
}

TEST(ExportImage, WhiteSpaceInBase64IsSkipped) {
    MemoryFiles files;
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">\r\n YW\tJj\n</image>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc");
}

TEST(ExportImage, BadBase64IsATypeMismatchAndLeavesTheFile) {
    MemoryFiles files;
    files.put("/t/out", "old");
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">Y*Jj</image>"), 13);
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + ">YWJ</image>"), 13);
    EXPECT_EQ(files.bytesOf("/t/out"), "old");
}

TEST(ExportImage, EmptyElementWritesNoBytes) {
    MemoryFiles files;
    EXPECT_EQ(errorOfExport(files, "<image/>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "");
    files.put("/t/out", "old");
    EXPECT_EQ(errorOfExport(files, "<image "s + typedAttributes + "/>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "old");
}

TEST(ExportImage, ContentWithoutDataTypeIsReadAsBase64) {
    MemoryFiles files;
    EXPECT_EQ(errorOfExport(files, "<image>YWJj</image>"), 0);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc");
    EXPECT_EQ(errorOfExport(files, "<image>no base64!</image>"), 13);
    EXPECT_EQ(files.bytesOf("/t/out"), "abc");
}

TEST(ExportImage, BufferIsReplacedFromPictureToPicture) {
    const auto document = parsed("<x><image>YWJj</image><image>ZA==</image></x>");
    MemoryFiles files;
    files.addFolder("/t");
    std::string buffer;
    const auto images = document->elementsByTagName("image");
    exportimage(*images.at(0), files, "/t/1", buffer);
    exportimage(*images.at(1), files, "/t/2", buffer);
    EXPECT_EQ(files.bytesOf("/t/1"), "abc");
    EXPECT_EQ(files.bytesOf("/t/2"), "d");
}

TEST(DumpImages, WritesEveryPictureUnderItsNameAndExtension) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, R"(<x><image name="a" extension="png">YQ==</image>)"
                                 R"(<image name="b c" extension="jpeg">Yg==</image></x>)"),
              0);
    const std::map<std::string, std::string> expected = {{folder + "a.png", "a"},
                                                         {folder + "b c.jpeg", "b"}};
    EXPECT_EQ(files.files(), expected);
}

TEST(DumpImages, PictureWithoutNameAndExtensionIsDefaultBmp) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, "<x><image>YQ==</image></x>"), 0);
    EXPECT_EQ(files.bytesOf(folder + "default.bmp"), "a");
}

TEST(DumpImages, EmptyNameOrExtensionIsNotMissing) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, R"(<x><image name="" extension="png">YQ==</image>)"
                                 R"(<image name="b" extension="">Yg==</image></x>)"),
              0);
    EXPECT_EQ(files.bytesOf(folder + ".png"), "a");
    EXPECT_EQ(files.bytesOf(folder + "b."), "b");
}

TEST(DumpImages, FindsPicturesWhereverTheyStand) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, R"(<x><cabinet><n><image name="a">YQ==</image></n></cabinet>)"
                                 R"(<formula><image name="b">Yg==</image></formula></x>)"),
              0);
    EXPECT_EQ(files.bytesOf(folder + "a.bmp"), "a");
    EXPECT_EQ(files.bytesOf(folder + "b.bmp"), "b");
}

TEST(DumpImages, TakesOnlyLowerCaseElements) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, "<x><Image>YQ==</Image></x>"), 0);
    EXPECT_TRUE(files.files().empty());
}

TEST(DumpImages, LaterPictureOfTheSameFileNameWins) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(
        errorOfDump(files, R"(<x><image name="a">YWJj</image><image name="a">ZGVm</image></x>)"),
        0);
    EXPECT_EQ(files.bytesOf(folder + "a.bmp"), "def");
}

TEST(DumpImages, ShorterLaterPictureKeepsTheTailOfTheEarlierOne) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(
        errorOfDump(files, R"(<x><image name="a">YWJj</image><image name="a">ZA==</image></x>)"),
        0);
    EXPECT_EQ(files.bytesOf(folder + "a.bmp"), "dbc");
}

TEST(DumpImages, CreatesTheFolder) {
    MemoryFiles files;
    files.addFolder("/t");
    EXPECT_EQ(errorOfDump(files, "<x/>"), 0);
    EXPECT_TRUE(files.folderExists("/t/temp_images"));
}

TEST(DumpImages, LeavesAnExistingFolderAndItsFiles) {
    MemoryFiles files;
    files.put(folder + "old.png", "old");
    files.fail(MemoryFiles::Operation::createFolder, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOfDump(files, "<x><image>YQ==</image></x>"), 0);
    EXPECT_EQ(files.bytesOf(folder + "old.png"), "old");
}

TEST(DumpImages, CreatesOnlyTheLastLevel) {
    MemoryFiles files;
    EXPECT_EQ(errorOfDump(files, "<x><image>YQ==</image></x>"), 76);
    EXPECT_FALSE(files.folderExists("/t"));
}

TEST(DumpImages, ErrorOfAFileTravels) {
    MemoryFiles files;
    files.addFolder("/t");
    files.fail(MemoryFiles::Operation::overwrite, ErrorNumber::diskFull, folder + "b.bmp");
    EXPECT_EQ(
        errorOfDump(files, R"(<x><image name="a">YQ==</image><image name="b">Yg==</image></x>)"),
        61);
    EXPECT_EQ(files.bytesOf(folder + "a.bmp"), "a");
}

class DumpImagesFileName : public testing::Test {
protected:
    /// One picture of this name and extension between two plain ones.
    int dump(const std::string& name, const std::string& extension) {
        files.addFolder("/t/temp_images");
        return errorOfDump(files, R"(<x><image name="first">MQ==</image><image name=")" + name +
                                      R"(" extension=")" + extension +
                                      R"(">Mg==</image><image name="last">Mw==</image></x>)");
    }

    MemoryFiles files;
};

TEST_F(DumpImagesFileName, WithASlashIsABadFileName) {
    EXPECT_EQ(dump("a/b", "png"), 52);
    EXPECT_EQ(dump("../a", "png"), 52);
    EXPECT_EQ(dump("/a", "png"), 52);
    EXPECT_EQ(dump("a", "png/../../b"), 52);
    EXPECT_EQ(dump("a", "/"), 52);
}

TEST_F(DumpImagesFileName, ThatIsAFolderNameIsABadFileName) {
    EXPECT_EQ(dump("", ""), 52);
    EXPECT_EQ(dump(".", ""), 52);
    EXPECT_EQ(dump("", "."), 52);
}

TEST_F(DumpImagesFileName, ErrorKeepsEarlierPicturesAndWritesNoMore) {
    EXPECT_EQ(dump("a/b", "png"), 52);
    const std::map<std::string, std::string> expected = {{folder + "first.bmp", "1"}};
    EXPECT_EQ(files.files(), expected);
}

TEST_F(DumpImagesFileName, WithDotsInsideTheFolderIsWritten) {
    EXPECT_EQ(dump("..", "png"), 0);
    EXPECT_EQ(files.bytesOf(folder + "...png"), "2");
    EXPECT_EQ(dump("..", ""), 0);
    EXPECT_EQ(files.bytesOf(folder + "..."), "2");
    EXPECT_EQ(dump("a..b", "c.d"), 0);
    EXPECT_EQ(files.bytesOf(folder + "a..b.c.d"), "2");
}

TEST_F(DumpImagesFileName, MayHoldAnyOtherCharacter) {
    EXPECT_EQ(dump("a*b? größe \U0001F600", "png"), 0);
    EXPECT_EQ(files.bytesOf(folder + "a*b? größe \U0001F600.png"), "2");
}

#ifdef _WIN32
TEST_F(DumpImagesFileName, WithABackslashOrColonIsABadFileName) {
    EXPECT_EQ(dump("a\\b", "png"), 52);
    EXPECT_EQ(dump("c:a", "png"), 52);
}
#else
TEST_F(DumpImagesFileName, MayHoldBackslashAndColonWhereTheyMeanNothing) {
    EXPECT_EQ(dump("a\\b:c", "png"), 0);
    EXPECT_EQ(files.bytesOf(folder + "a\\b:c.png"), "2");
}
#endif

}  // namespace
}  // namespace tavisk
