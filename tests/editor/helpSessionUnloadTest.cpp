#include <gtest/gtest.h>

#include "editor/answerText.h"
#include "editor/editorSession.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;
using test::fixedFormulas;
using test::generatedPicture;

const Message question{"Would you like to save your changes?", "Exiting...",
                       BoxStyle::yesNoCancelQuestion};

const std::string loaded = "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>";
const std::string saved =
    "<cabinetinfo><cabinet><a/></cabinet>" + std::string(fixedFormulas) + "</cabinetinfo>";

bool mayUnload(EditorSession& editor) {
    return editor.session.mayUnload(editor.dialogs, [&] { editor.session.saveDocument(); });
}

}  // namespace

TEST(HelpSession, AfterOkNothingIsAsked) {
    EditorSession editor("<a/>");
    editor.session.saveDocument();
    EXPECT_TRUE(mayUnload(editor));
    EXPECT_EQ(editor.session.xmlText, saved);
}

TEST(HelpSession, AfterARefreshNothingIsAsked) {
    EditorSession editor("<a/>");
    editor.session.refresh();
    EXPECT_TRUE(mayUnload(editor));
}

TEST(HelpSession, NoAfterAnUntouchedDocumentGivesTheTextSetAtLoad) {
    EditorSession editor("<a/>");
    editor.dialogs.expectBox(question, Answer::no);
    EXPECT_TRUE(mayUnload(editor));
    EXPECT_EQ(editor.session.xmlText, loaded);
}

TEST(HelpSession, YesAfterAnUntouchedDocumentGivesTheSavedText) {
    EditorSession editor("<a/>");
    editor.dialogs.expectBox(question, Answer::yes);
    EXPECT_TRUE(mayUnload(editor));
    EXPECT_EQ(editor.session.xmlText, saved);
}

TEST(HelpSession, NoAfterAnEditGivesTheTextSetAtLoad) {
    EditorSession editor("<a/>");
    changeAnswerText(editor.session, u"new");
    editor.dialogs.expectBox(question, Answer::no);
    EXPECT_TRUE(mayUnload(editor));
    EXPECT_EQ(editor.session.xmlText, loaded);
}

TEST(HelpSession, CancelInTheSaveQuestionKeepsEveryEdit) {
    EditorSession editor("<a/>");
    changeAnswerText(editor.session, u"new");
    editor.dialogs.expectBox(question, Answer::cancel);
    EXPECT_FALSE(mayUnload(editor));
    EXPECT_EQ(editor.document(), "<cabinetinfo><cabinet><a value=\"new\"/></cabinet>" +
                                     std::string(generatedPicture) + "</cabinetinfo>");
    EXPECT_EQ(editor.session.xmlText, loaded);
    EXPECT_TRUE(editor.session.changed());
}

TEST(HelpSession, ADocumentThatCameWithThePictureIsNotAskedAbout) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><cabinet><a/></cabinet><image name="generated_cabinet_picture"/>)"
                "</cabinetinfo>");
    EXPECT_TRUE(mayUnload(editor));
}

TEST(HelpSession, AFailedLoadAsksNothing) {
    EditorSession editor;
    editor.load("<cabinetinfo/>");
    EXPECT_TRUE(mayUnload(editor));
}

TEST(HelpSession, SavingThatFailsAfterYesTravelsAndKeepsTheDocument) {
    EditorSession editor("<a/><b value=\"" + std::string(32768, 'x') + "\"/>");
    const std::string before = editor.document();
    editor.dialogs.expectBox(question, Answer::yes);
    EXPECT_EQ(errorOf([&] { mayUnload(editor); }), 6);
    EXPECT_EQ(editor.document(), before);
}

}  // namespace tavisk
