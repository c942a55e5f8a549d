#include <gtest/gtest.h>

#include "windows/support/editorWindow.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::fixedFormulas;
using test::generatedPicture;

constexpr const char* question = "Would you like to save your changes?";
constexpr const char* exiting = "Exiting...";
constexpr long questionStyle = wxYES_NO | wxCANCEL | wxICON_QUESTION;

const std::string loaded = "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>";
const std::string saved =
    "<cabinetinfo><cabinet><a/></cabinet>" + std::string(fixedFormulas) + "</cabinetinfo>";

TEST(FrmMain, HasItsCaption) {
    EditorWindow editor("<a/>");
    EXPECT_EQ(editor.window->GetTitle(), "Library Help XML Editor");
}

TEST(FrmMain, OkSavesAndAsksNothing) {
    EditorWindow editor("<a/>");
    editor.click(editor.controls().cmdOK);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, saved);
}

TEST(FrmMain, CancelOnAnUntouchedDocumentAsks) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectBox(question, exiting, questionStyle, wxID_NO);
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, loaded);
}

TEST(FrmMain, YesToTheQuestionSaves) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectBox(question, exiting, questionStyle, wxID_YES);
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, saved);
}

TEST(FrmMain, CancelInTheQuestionKeepsTheWindowAndEveryEdit) {
    EditorWindow editor("<a/>");
    editor.click(editor.controls().cmdChangeFont.at(2));
    const std::string before = editor.core.document();
    editor.dialogs.expectBox(question, exiting, questionStyle, wxID_CANCEL);
    editor.window->Close();
    EXPECT_TRUE(editor.window->IsShown());
    EXPECT_EQ(editor.core.document(), before);
}

TEST(FrmMain, WithTheGeneratedPictureInTheDocumentCancelAsksNothing) {
    EditorWindow editor("<a/>", generatedPicture);
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
}

}  // namespace
}  // namespace tavisk
