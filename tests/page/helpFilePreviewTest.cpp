#include <gtest/gtest.h>

#include "document/xmlParse.h"
#include "page/openFile.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;
using test::OpenFile;
using Operation = test::MemoryFiles::Operation;

struct Preview : OpenFile {
    explicit Preview(std::string_view nodes) {
        load(test::documentOf(
            nodes, R"(<formula name="Rate" standard="1" value="5"/>)"
                   R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64")"
                   R"( name="logo" extension="png">YWJj</image>)"));
    }
    std::string page() const { return files.bytesOf("/app/temp.html").value_or("(none)"); }
    bool pageHas(std::string_view text) const { return page().find(text) != std::string::npos; }
};

TEST(HelpFile, PreviewWritesThePageBesideTheComponent) {
    Preview opened("<a value='text'/>");
    EXPECT_EQ(opened.file.generatepreview(false), "/app/temp.html");
    EXPECT_TRUE(opened.page().starts_with("<html xmlns:v="));
    EXPECT_TRUE(opened.page().ends_with("\r\n</td></tr></table></body></html>"));
    EXPECT_TRUE(opened.pageHas("text"));
}

TEST(HelpFile, PlainPreviewKeepsTokensAndLineBreaksAndWritesNoPictures) {
    Preview opened("<a value='x `Rate` `~logo`&#10;y'/>");
    opened.file.generatepreview(false);
    EXPECT_TRUE(opened.pageHas("x `Rate` `~logo`\ny"));
    EXPECT_FALSE(opened.files.folderExists("/app/temp_images/"));
}

TEST(HelpFile, EvaluatedPreviewExpandsTokensAndWritesThePictures) {
    Preview opened("<a value='x `Rate` `~logo`&#10;y'/>");
    opened.file.generatepreview(true);
    EXPECT_TRUE(opened.pageHas("x 5 <img"));
    EXPECT_TRUE(opened.pageHas("<br>y"));
    EXPECT_EQ(opened.files.bytesOf("/app/temp_images/logo.png"), "abc");
    EXPECT_EQ(opened.files.bytesOf("/app/temp_images/generated_cabinet_picture.png"),
              std::string("PNG\0", 4));
}

TEST(HelpFile, EvaluationLeavesTheDocumentAsItIs) {
    Preview opened("<a value='x `Rate`&#10;y'/>");
    const std::string before = opened.document();
    opened.file.generatepreview(true);
    EXPECT_EQ(opened.document(), before);
}

TEST(HelpFile, SecondPreviewShowsOnlyTheSecondDocument) {
    Preview opened("<a value='first'/>");
    opened.file.generatepreview(false);
    opened.loadNodes("<a value='second'/>");
    opened.file.generatepreview(false);
    EXPECT_FALSE(opened.pageHas("first"));
    EXPECT_TRUE(opened.pageHas("second"));
}

TEST(HelpFile, PreviewShowsTheEditedDocument) {
    Preview opened("<a/>");
    SetAttributeValue(*opened.file.articledoc, opened.row("cabinet=>a"), "value", "edited");
    opened.file.generatepreview(true);
    EXPECT_TRUE(opened.pageHas("edited"));
}

TEST(HelpFile, PageThatCannotBeWrittenIsAnError) {
    Preview opened("<a/>");
    opened.files.fail(Operation::replace, ErrorNumber::diskFull);
    EXPECT_EQ(errorOf([&] { opened.file.generatepreview(false); }), 61);
}

TEST(HelpFile, CharacterThatThePageCannotHoldIsError5AndTheOldPageStays) {
    Preview opened("<a value='old'/>");
    opened.file.generatepreview(false);
    opened.loadNodes("<a value='\u0416'/>");
    EXPECT_EQ(errorOf([&] { opened.file.generatepreview(false); }), 5);
    EXPECT_TRUE(opened.pageHas("old"));
}

TEST(HelpFile, PictureThatCannotBeWrittenIsAnErrorBeforeThePage) {
    Preview opened("<a/>");
    opened.files.fail(Operation::overwrite, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOf([&] { opened.file.generatepreview(true); }), 70);
    EXPECT_EQ(opened.page(), "(none)");
}

}  // namespace
}  // namespace tavisk
