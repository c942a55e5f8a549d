// The answer box under the user's own hands: keys, clipboard, input methods.
#include <gtest/gtest.h>
#include <wx/textctrl.h>

#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::pumpUntil;
using test::shownColours;

struct AnswerBoxInputTest : testing::Test {
    void SetUp() override { window.open(); }

    /// Puts a text, and the same in bold as a web page, on the clipboard.
    static void copyFormatted(const wxString& text) {
        ASSERT_TRUE(wxTheClipboard->Open());
        auto* const both = new wxDataObjectComposite;
        both->Add(new wxHTMLDataObject("<b>" + text + "</b>"), true);
        both->Add(new wxTextDataObject(text));
        wxTheClipboard->SetData(both);
        wxTheClipboard->Close();
    }

    test::AnswerWindow window;
    AnswerBox& box = *window.box;
};

TEST_F(AnswerBoxInputTest, TypedMarkersAreWrittenAndColoured) {
    window.type("a `~p` `x");
    ASSERT_TRUE(window.becomes(u"a `~p` `x"));
    EXPECT_EQ(shownColours(box), "..bbbb...");
    window.type("` b");
    ASSERT_TRUE(window.becomes(u"a `~p` `x` b"));
    EXPECT_EQ(shownColours(box), "..bbbb.ooo..");
    EXPECT_EQ(window.value(), "a `~p` `x` b");
    EXPECT_EQ(window.changes, 12);
}

TEST_F(AnswerBoxInputTest, TypingReplacesTheSelectionAsOneChange) {
    window.showNode(u"a `x` b");
    box.SetSelection(2, 5);
    window.type("c");
    ASSERT_TRUE(window.becomes(u"a c b"));
    EXPECT_EQ(shownColours(box), ".....");
    EXPECT_EQ(window.changes, 1);
    EXPECT_EQ(window.value(), "a c b");
}

TEST_F(AnswerBoxInputTest, TypingGoesOnAtTheCaret) {
    window.showNode(u"`x` `y`");
    box.SetInsertionPoint(2);
    window.type("12`3");
    ASSERT_TRUE(window.becomes(u"`x12`3` `y`"));
    EXPECT_EQ(box.GetInsertionPoint(), 6);
    EXPECT_EQ(shownColours(box), "ooooo.ooo..");
}

TEST_F(AnswerBoxInputTest, EnterBreaksTheLine) {
    window.after->SetDefault();
    bool pressed = false;
    window.after->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { pressed = true; });
    window.showNode(u"ab");
    box.SetInsertionPoint(1);
    window.press(WXK_RETURN);
    ASSERT_TRUE(window.becomes(u"a\nb"));
    EXPECT_EQ(window.value(), "a\nb");
    EXPECT_FALSE(pressed);
}

TEST_F(AnswerBoxInputTest, TabMovesOn) {
    window.showNode(u"ab");
    window.press(WXK_TAB);
    EXPECT_TRUE(pumpUntil([&] { return window.after->HasFocus(); }));
    EXPECT_EQ(box.text(), u"ab");
}

TEST_F(AnswerBoxInputTest, ShiftTabMovesBack) {
    window.showNode(u"ab");
    window.press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(pumpUntil([&] { return window.before->HasFocus(); }));
    EXPECT_EQ(box.text(), u"ab");
}

TEST_F(AnswerBoxInputTest, CtrlTabInsertsNothing) {
    window.showNode(u"ab");
    window.press(WXK_TAB, wxMOD_CONTROL);
    EXPECT_TRUE(pumpUntil([&] { return window.after->HasFocus(); }));
    EXPECT_EQ(box.text(), u"ab");
}

TEST_F(AnswerBoxInputTest, BackspaceAndDeleteTakeCharactersOut) {
    window.showNode(u"a `x` b");
    box.SetInsertionPoint(5);
    window.press(WXK_BACK);
    ASSERT_TRUE(window.becomes(u"a `x b"));
    EXPECT_EQ(shownColours(box), "......");
    box.SetInsertionPoint(2);
    window.press(WXK_DELETE);
    ASSERT_TRUE(window.becomes(u"a x b"));
    EXPECT_EQ(window.value(), "a x b");
}

TEST_F(AnswerBoxInputTest, TypingAroundCarriageReturnsKeepsThem) {
    window.showNode(u"a\r\nb\rc");
    window.press(WXK_END, wxMOD_CONTROL);
    window.type("d");
    ASSERT_TRUE(window.becomes(u"a\r\nb\rcd"));
    // Whether a lone one ends a line differs.
    window.press(WXK_LEFT);
    window.press(WXK_LEFT);
    window.type("e");
    ASSERT_TRUE(window.becomes(u"a\r\nb\recd"));
    EXPECT_EQ(window.value(), "a\r\nb\recd");
}

TEST_F(AnswerBoxInputTest, FormattedTextArrivesPlain) {
    window.showNode(u"ab");
    box.SetInsertionPoint(1);
    copyFormatted("`x` bold");
    box.Paste();
    ASSERT_TRUE(window.becomes(u"a`x` boldb"));
    EXPECT_EQ(shownColours(box), ".ooo......");
    wxTextAttr look;
    ASSERT_TRUE(box.GetStyle(6, look));
    EXPECT_FALSE(look.HasFont() && look.GetFont().GetWeight() == wxFONTWEIGHT_BOLD);
}

TEST_F(AnswerBoxInputTest, ColouredTextOfAnotherBoxArrivesPlain) {
    auto* const other = new wxTextCtrl(window.panel, wxID_ANY, "red words", wxDefaultPosition,
                                       wxDefaultSize, wxTE_MULTILINE | wxTE_RICH2);
    other->SetStyle(0, 9, wxTextAttr(*wxRED));
    other->SelectAll();
    other->Copy();
    box.Paste();
    ASSERT_TRUE(window.becomes(u"red words"));
    EXPECT_EQ(shownColours(box), ".........");
}

TEST_F(AnswerBoxInputTest, AHalfMarkerCopiedWithinTheBoxBringsNoColourAlong) {
    window.showNode(u"`~pic` x ");
    box.SetSelection(2, 6);
    box.Copy();
    box.SetInsertionPointEnd();
    box.Paste();
    ASSERT_TRUE(window.becomes(u"`~pic` x pic`"));
    EXPECT_EQ(shownColours(box), "bbbbbb.......");
}

TEST_F(AnswerBoxInputTest, CutTakesTheTextOut) {
    window.showNode(u"a `x` b");
    box.SetSelection(4, 6);
    box.Cut();
    ASSERT_TRUE(window.becomes(u"a `xb"));
    EXPECT_EQ(shownColours(box), ".....");
    EXPECT_EQ(window.value(), "a `xb");
}

TEST_F(AnswerBoxInputTest, ColouringLetsAnInputMethodFinish) {
    test::usePlainInputMethod(box);
    window.change = nullptr;
    window.type("`x`");
    ASSERT_TRUE(window.becomes(u"`x`"));
    EXPECT_EQ(shownColours(box), "...");
    bool begun = false;
    box.Bind(wxEVT_KEY_UP, [&](wxKeyEvent& event) {
        begun = begun || event.GetKeyCode() == '9';
        event.Skip();
    });
    window.press('U', wxMOD_CONTROL | wxMOD_SHIFT);
    window.type("e9");
    ASSERT_TRUE(pumpUntil([&] { return begun; }));
    EXPECT_EQ(box.text(), u"`x`");
    box.colour(u"`x`", {{0, 3, TokenKind::formula}});
    EXPECT_EQ(shownColours(box), "ooo");
    window.press(WXK_SPACE);
    EXPECT_TRUE(window.becomes(u"`x`\u00E9"));
}

TEST_F(AnswerBoxInputTest, DisabledBoxTakesNoKeys) {
    window.showNode(u"ab");
    box.Disable();
    window.before->SetFocus();
    ASSERT_TRUE(pumpUntil([&] { return window.before->HasFocus(); }));
    window.press(WXK_TAB);
    EXPECT_TRUE(pumpUntil([&] { return window.after->HasFocus(); }));
    EXPECT_EQ(box.text(), u"ab");
}

}  // namespace
}  // namespace tavisk
