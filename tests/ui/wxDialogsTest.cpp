#include "ui/toolkit/wxDialogs.h"

#include <gtest/gtest.h>
#include <wx/frame.h>

#include "ui/support/dialogAnswers.h"
#include "ui/support/pump.h"

namespace tavisk {
namespace {

using test::DialogAnswers;

struct WxDialogsTest : testing::Test {
    DialogAnswers answers;
    WxDialogs dialogs{nullptr};
};

TEST_F(WxDialogsTest, BoxesShowTheirTextTitleButtonsAndIcon) {
    answers.expectBox("a\n\nb", "Error", wxOK | wxICON_ERROR);
    EXPECT_EQ(dialogs.messageBox({"a\r\n\r\nb", "Error", BoxStyle::okCritical}), Answer::ok);
    answers.expectBox("a", "Tavisk", wxOK | wxICON_NONE);
    EXPECT_EQ(dialogs.messageBox({"a"}), Answer::ok);
    answers.expectBox("a", "t", wxOK | wxICON_INFORMATION);
    EXPECT_EQ(dialogs.messageBox({"a", "t", BoxStyle::okInformation}), Answer::ok);
}

TEST_F(WxDialogsTest, QuestionsGiveEveryAnswer) {
    const Message save{"s", "t", BoxStyle::yesNoCancelQuestion};
    const long style = wxYES_NO | wxCANCEL | wxICON_QUESTION;
    answers.expectBox("s", "t", style, wxID_YES);
    EXPECT_EQ(dialogs.messageBox(save), Answer::yes);
    answers.expectBox("s", "t", style, wxID_NO);
    EXPECT_EQ(dialogs.messageBox(save), Answer::no);
    answers.expectBox("s", "t", style, wxID_CANCEL);
    EXPECT_EQ(dialogs.messageBox(save), Answer::cancel);
    answers.expectBox("s", "t", wxOK | wxCANCEL | wxICON_QUESTION, wxID_OK);
    EXPECT_EQ(dialogs.messageBox({"s", "t", BoxStyle::okCancelQuestion}), Answer::ok);
}

TEST_F(WxDialogsTest, PromptsGiveWhatWasTyped) {
    answers.expectPrompt("Enter\nit", "Name", "old",
                         "Gr\xC3\xB6\xC3\x9F"
                         "e");
    EXPECT_EQ(dialogs.inputBox("Enter\r\nit", "Name", "old"),
              "Gr\xC3\xB6\xC3\x9F"
              "e");
}

TEST_F(WxDialogsTest, CancelledPromptIsEmpty) {
    answers.expectPrompt("p", "t", "default", "");
    EXPECT_EQ(dialogs.inputBox("p", "t", "default"), "");
}

TEST_F(WxDialogsTest, FilterOffersItsPatterns) {
    answers.expectOpenFile("Pictures (*.a; *.b)|*.a;*.b", "");
    EXPECT_EQ(dialogs.openFile("Pictures (*.a; *.b)"), "");
}

TEST_F(WxDialogsTest, ColoursHaveBlueInTheHighByte) {
    answers.expectColour(wxColour(255, 128, 64));
    EXPECT_EQ(dialogs.chooseColour(), 0x4080FFU);
}

TEST_F(WxDialogsTest, CancelledColourIsBlackAtFirstThenTheLastOne) {
    answers.expectColour(wxColour(1, 2, 3), wxID_CANCEL);
    EXPECT_EQ(dialogs.chooseColour(), 0U);
    answers.expectColour(wxColour(1, 2, 3));
    EXPECT_EQ(dialogs.chooseColour(), 0x030201U);
    answers.expectColour(wxColour(9, 9, 9), wxID_CANCEL);
    EXPECT_EQ(dialogs.chooseColour(), 0x030201U);
}

TEST_F(WxDialogsTest, WindowIsInStepBeforeADialogOpens) {
    int prepared = 0;
    WxDialogs over(nullptr, [&] { ++prepared; });
    answers.expectBox("a", "Tavisk", wxOK | wxICON_NONE).during([&] { EXPECT_EQ(prepared, 1); });
    over.messageBox({"a"});
    answers.expectPrompt("p", "t", "", "").during([&] { EXPECT_EQ(prepared, 2); });
    over.inputBox("p", "t", "");
}

}  // namespace
}  // namespace tavisk
