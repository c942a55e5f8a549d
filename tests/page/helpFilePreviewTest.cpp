#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;
using Operation = test::MemoryFiles::Operation;

struct Preview : EditorSession {
    explicit Preview(const std::string& nodes) {
        load("<cabinetinfo><cabinet>" + nodes +
             R"(</cabinet><formula name="Rate" standard="1" value="5"/>)"
             R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64")"
             R"( name="logo" extension="png">YWJj</image></cabinetinfo>)");
    }
    std::string page() const { return files.bytesOf("/app/temp.html").value_or("(none)"); }
    bool pageHas(std::string_view text) const { return page().find(text) != std::string::npos; }
};

TEST(HelpSession, PreviewWritesThePageBesideTheComponent) {
    Preview editor("<a value='text'/>");
    EXPECT_EQ(editor.session.generatepreview(false), "/app/temp.html");
    EXPECT_TRUE(editor.page().starts_with("<html xmlns:v="));
    EXPECT_TRUE(editor.page().ends_with("\r\n</td></tr></table></body></html>"));
    EXPECT_TRUE(editor.pageHas("text"));
}

TEST(HelpSession, PlainPreviewKeepsTokensAndLineBreaksAndWritesNoPictures) {
    Preview editor("<a value='x `Rate` `~logo`&#10;y'/>");
    editor.session.generatepreview(false);
    EXPECT_TRUE(editor.pageHas("x `Rate` `~logo`\ny"));
    EXPECT_FALSE(editor.files.folderExists("/app/temp_images/"));
}

TEST(HelpSession, EvaluatedPreviewExpandsTokensAndWritesThePictures) {
    Preview editor("<a value='x `Rate` `~logo`&#10;y'/>");
    editor.session.generatepreview(true);
    EXPECT_TRUE(editor.pageHas("x 5 <img"));
    EXPECT_TRUE(editor.pageHas("<br>y"));
    EXPECT_EQ(editor.files.bytesOf("/app/temp_images/logo.png"), "abc");
    EXPECT_EQ(editor.files.bytesOf("/app/temp_images/generated_cabinet_picture.png"),
              std::string("PNG\0", 4));
}

TEST(HelpSession, EvaluationLeavesTheDocumentAsItIs) {
    Preview editor("<a value='x `Rate`&#10;y'/>");
    const std::string before = editor.document();
    editor.session.generatepreview(true);
    EXPECT_EQ(editor.document(), before);
}

TEST(HelpSession, SecondPreviewShowsOnlyTheSecondDocument) {
    Preview editor("<a value='first'/>");
    editor.session.generatepreview(false);
    editor.loadNodes("<a value='second'/>");
    editor.session.generatepreview(false);
    EXPECT_FALSE(editor.pageHas("first"));
    EXPECT_TRUE(editor.pageHas("second"));
}

TEST(HelpSession, PreviewShowsTheEditedDocument) {
    Preview editor("<a/>");
    SetAttributeValue(*editor.session.articledoc, *editor.session.currentnode, "value", "edited");
    editor.session.generatepreview(true);
    EXPECT_TRUE(editor.pageHas("edited"));
}

TEST(HelpSession, PageThatCannotBeWrittenIsAnError) {
    Preview editor("<a/>");
    editor.files.fail(Operation::replace, ErrorNumber::diskFull);
    EXPECT_EQ(errorOf([&] { editor.session.generatepreview(false); }), 61);
}

TEST(HelpSession, CharacterThatThePageCannotHoldIsError5AndTheOldPageStays) {
    Preview editor("<a value='old'/>");
    editor.session.generatepreview(false);
    editor.loadNodes("<a value='\u0416'/>");
    EXPECT_EQ(errorOf([&] { editor.session.generatepreview(false); }), 5);
    EXPECT_TRUE(editor.pageHas("old"));
}

TEST(HelpSession, PictureThatCannotBeWrittenIsAnErrorBeforeThePage) {
    Preview editor("<a/>");
    editor.files.fail(Operation::overwrite, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOf([&] { editor.session.generatepreview(true); }), 70);
    EXPECT_EQ(editor.page(), "(none)");
}

TEST(HelpSession, PreviewOfAnUnloadedSessionIsError91) {
    EditorSession editor;
    EXPECT_EQ(errorOf([&] { editor.session.generatepreview(false); }), 91);
}

}  // namespace
}  // namespace tavisk
