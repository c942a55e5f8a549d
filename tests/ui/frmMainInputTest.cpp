// The editor window under real keys and a real mouse.
#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "ui/support/answerWindow.h"
#include "ui/support/editorInput.h"
#include "ui/support/treeWindow.h"
#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

using test::EditorInput;
using test::pumpUntil;
using test::RealDialog;
using test::shownColours;

constexpr const char* twoNodes = R"(<a value="ab"/><b/>)";
constexpr const char* twoNodesTree = R"(<cabinet><a value="ab"/><b/></cabinet>)";
constexpr const char* picture = R"(<image name="pic"/>)";

struct FrmMainInput : testing::Test {
    test::ToolkitComplaints complaints;
};

/// What Cancel and the window's close button ask.
void expectQuestion(EditorInput& editor) {
    editor.dialogs.expectBox("Would you like to save your changes?", "Exiting...",
                             wxYES_NO | wxCANCEL | wxICON_QUESTION, wxID_CANCEL);
}

bool asked(EditorInput& editor) {
    return pumpUntil([&] { return editor.dialogs.finished(); });
}

/// Every key before this one has arrived when it has moved the focus on.
bool tabLeaves(EditorInput& editor, const char* name) {
    editor.press(WXK_TAB);
    return pumpUntil([&] { return editor.focused() != name; });
}

TEST_F(FrmMainInput, TheTreeHasTheFocusAtFirst) {
    EditorInput editor(twoNodes);
    EXPECT_TRUE(pumpUntil([&] { return editor.focused() == "TreeXML"; }));
}

TEST_F(FrmMainInput, TypedTextIsWrittenAndColoured) {
    EditorInput editor("<a/>");
    editor.focus(editor.controls().txtValue);
    editor.text("a `~p` b");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="a `~p` b"/></cabinet>)"));
    EXPECT_EQ(shownColours(*editor.controls().txtValue), "..bbbb..");
}

TEST_F(FrmMainInput, TypingLeavesTheOtherControlsAndTheFocusAlone) {
    EditorInput editor(R"(<a style="1"/>)");
    editor.focus(editor.controls().txtValue);
    editor.text("x");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="1" value="x"/></cabinet>)"));
    EXPECT_TRUE(editor.controls().chkStyle.at(1)->GetValue());
    EXPECT_EQ(editor.focused(), "txtValue");
}

TEST_F(FrmMainInput, PastedTextIsWrittenAndColoured) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().txtValue);
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->SetData(new wxTextDataObject("`x`"));
    wxTheClipboard->Close();
    editor.press('V', wxMOD_CONTROL);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="`x`ab"/><b/></cabinet>)"));
    EXPECT_EQ(shownColours(*editor.controls().txtValue), "ooo..");
}

TEST_F(FrmMainInput, PastedForbiddenCharacterIsReportedAndCanBeTakenOut) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().txtValue);
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->SetData(new wxTextDataObject("\x01"));
    wxTheClipboard->Close();
    editor.expectReport(5, "Invalid procedure call or argument");
    editor.press('V', wxMOD_CONTROL);
    EXPECT_TRUE(asked(editor));
    EXPECT_EQ(editor.tree(), twoNodesTree);
    EXPECT_EQ(utf8Of(editor.controls().txtValue->GetValue()),
              "\x01"
              "ab");
    editor.press(WXK_BACK);
    editor.text("c");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="cab"/><b/></cabinet>)"));
}

TEST_F(FrmMainInput, DeleteAtTheEndOfTheTextLeavesTheNode) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().txtValue);
    editor.press(WXK_END);
    editor.press(WXK_DELETE);
    editor.text("c");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="abc"/><b/></cabinet>)"));
}

TEST_F(FrmMainInput, DeleteInTheTreeOnALockedNodeDoesNothing) {
    EditorInput editor("<a/><cabinetdata><b/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b");
    editor.focus(editor.controls().TreeXML);
    editor.press(WXK_DELETE);
    EXPECT_TRUE(tabLeaves(editor, "TreeXML"));
    EXPECT_EQ(editor.tree(), "<cabinet><a/><cabinetdata><b/></cabinetdata></cabinet>");
}

TEST_F(FrmMainInput, DeleteOnAButtonABoxOrAListDoesNothing) {
    EditorInput editor(twoNodes, picture);
    const EditorControls& controls = editor.controls();
    for (wxWindow* control :
         {static_cast<wxWindow*>(controls.cmdChangeFont.at(2)),
          static_cast<wxWindow*>(controls.cmdOK), static_cast<wxWindow*>(controls.chkPageBreak),
          static_cast<wxWindow*>(controls.lstImages)}) {
        editor.focus(control);
        editor.press(WXK_DELETE);
        ASSERT_TRUE(tabLeaves(editor, control->GetName().utf8_str()));
        EXPECT_EQ(editor.tree(), twoNodesTree) << control->GetName();
    }
}

TEST_F(FrmMainInput, F2RenamesTheNodeFromTheTextToo) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().txtValue);
    editor.dialogs.expectPrompt("Enter the new name for the node:", "Rename Node", "a", "c");
    editor.press(WXK_F2);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><c value="ab"/><b/></cabinet>)"));
    EXPECT_EQ(editor.focused(), "txtValue");
}

TEST_F(FrmMainInput, EscapeIsCancelWhereverTheFocusIs) {
    EditorInput editor(twoNodes, picture);
    const EditorControls& controls = editor.controls();
    for (wxWindow* control :
         {static_cast<wxWindow*>(controls.TreeXML), static_cast<wxWindow*>(controls.txtValue),
          static_cast<wxWindow*>(controls.cmdOK), static_cast<wxWindow*>(controls.chkPageBreak),
          static_cast<wxWindow*>(controls.lstImages)}) {
        editor.focus(control);
        expectQuestion(editor);
        editor.press(WXK_ESCAPE);
        ASSERT_TRUE(asked(editor)) << control->GetName();
    }
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, EscapeGivesUpWhatAnInputMethodComposesAndNothingElse) {
    EditorInput editor(twoNodes);
    AnswerBox& box = *editor.controls().txtValue;
    test::usePlainInputMethod(box);
    editor.focus(&box);
    editor.press('U', wxMOD_CONTROL | wxMOD_SHIFT);
    editor.text("e9");
    editor.press(WXK_ESCAPE);
    editor.text("z");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="zab"/><b/></cabinet>)"));
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, EscapeInAMenuClosesTheMenuOnly) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().TreeXML);
    bool open = false;
    editor.window->Bind(wxEVT_MENU_OPEN, [&](wxMenuEvent&) { open = true; });
    editor.window->Bind(wxEVT_MENU_CLOSE, [&](wxMenuEvent&) { open = false; });
    editor.press('N', wxMOD_ALT);
    EXPECT_TRUE(pumpUntil([&] { return open; }));
    editor.press(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !open; }));
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, EnterInTheTextBreaksTheLine) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().txtValue);
    editor.press(WXK_RETURN);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="&#10;ab"/><b/></cabinet>)"));
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, EnterOnABoxIsOk) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().chkPageBreak);
    editor.press(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([&] { return !editor.window->IsShown(); }));
    EXPECT_EQ(editor.session().xmlText, editor.core.document());
    EXPECT_NE(editor.session().xmlText.find("<formula"), std::string::npos);
}

TEST_F(FrmMainInput, EnterOnAButtonIsThatButton) {
    EditorInput editor("<a/>");
    editor.focus(editor.controls().cmdChangeFont.at(2));
    editor.press(WXK_RETURN);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a titlefontsize="1"/></cabinet>)"));
    editor.focus(editor.controls().cmdCancel);
    expectQuestion(editor);
    editor.press(WXK_RETURN);
    EXPECT_TRUE(asked(editor));
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, EnterInTheTreeNeitherSavesNorCloses) {
    EditorInput editor(twoNodes);
    editor.focus(editor.controls().TreeXML);
    editor.press(WXK_RETURN);
    EXPECT_TRUE(tabLeaves(editor, "TreeXML"));
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, SpaceTicksABoxAndPressesAButton) {
    EditorInput editor("<a/>");
    editor.focus(editor.controls().chkStyle.at(8));
    editor.press(WXK_SPACE);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="8"/></cabinet>)"));
    editor.press(WXK_SPACE);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="0"/></cabinet>)"));
    editor.focus(editor.controls().cmdMoveGaps.at(5));
    editor.press(WXK_SPACE);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="0" spaceafter="1"/></cabinet>)"));
}

TEST_F(FrmMainInput, ArrowKeysInTheTreeFillThePanel) {
    EditorInput editor(R"(<a value="one"/><b value="two" style="4"/>)");
    editor.focus(editor.controls().TreeXML);
    editor.press(WXK_DOWN);
    EXPECT_TRUE(pumpUntil([&] { return editor.controls().txtValue->GetValue() == "two"; }));
    EXPECT_TRUE(editor.controls().chkStyle.at(4)->GetValue());
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>b");
    EXPECT_EQ(editor.focused(), "TreeXML");
}

TEST_F(FrmMainInput, OnALockedNodeTabLeavesTheFramesOut) {
    EditorInput editor("<a/><cabinetdata><b/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b");
    editor.focus(editor.controls().TreeXML);
    const char* const first = okStandsLast() ? "cmdCancel" : "cmdOK";
    const char* const last = okStandsLast() ? "cmdOK" : "cmdCancel";
    for (const char* next : {"cmdPreview", "cmdRefreshButton", first, last, "TreeXML"}) {
        editor.press(WXK_TAB);
        ASSERT_TRUE(pumpUntil([&] { return editor.focused() == next; })) << editor.focused();
    }
}

TEST_F(FrmMainInput, AMnemonicTicksItsBox) {
    EditorInput editor("<a/>");
    editor.focus(editor.controls().TreeXML);
    editor.press('H', wxMOD_ALT);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a titlehidden="1"/></cabinet>)"));
    editor.press('V', wxMOD_ALT);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a titlehidden="1" answerhidden="1"/></cabinet>)"));
    editor.press('P', wxMOD_ALT);
    editor.press('K', wxMOD_ALT);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a titlehidden="1" answerhidden="1" pagebreak="1")"
                               R"( columnbreak="1"/></cabinet>)"));
}

TEST_F(FrmMainInput, AMnemonicPressesItsButtonFromWithinTheText) {
    EditorInput editor(twoNodes, picture);
    editor.choose(editor.controls().lstImages, 0);
    editor.focus(editor.controls().txtValue);
    editor.press('Y', wxMOD_ALT);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="ab`!pic`"/><b/></cabinet>)"));
    expectQuestion(editor);
    editor.press('C', wxMOD_ALT);
    EXPECT_TRUE(asked(editor));
    editor.press('O', wxMOD_ALT);
    EXPECT_TRUE(pumpUntil([&] { return !editor.window->IsShown(); }));
}

TEST_F(FrmMainInput, TheMouseTicksBoxesAndPressesButtons) {
    EditorInput editor("<a/>");
    editor.mouse(editor.controls().chkStyle.at(2));
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="2"/></cabinet>)"));
    editor.mouse(editor.controls().chkStyle.at(2));
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="0"/></cabinet>)"));
    editor.mouse(editor.controls().cmdChangeFont.at(0));
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a style="0" titlefontsize="-1"/></cabinet>)"));
}

TEST_F(FrmMainInput, AClickOnARowFillsThePanel) {
    EditorInput editor(R"(<a/><b value="two"/>)");
    editor.mouseRow("cabinet=>b");
    EXPECT_TRUE(pumpUntil([&] { return editor.controls().txtValue->GetValue() == "two"; }));
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>b");
}

TEST_F(FrmMainInput, AClickInTheTextAndTypingEditsIt) {
    EditorInput editor(twoNodes);
    editor.mouse(editor.controls().txtValue);
    EXPECT_TRUE(pumpUntil([&] { return editor.controls().txtValue->HasFocus(); }));
    editor.text("c");
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="abc"/><b/></cabinet>)"));
}

TEST_F(FrmMainInput, TheMouseInsertsAtTheSelectionThatTheKeysMade) {
    EditorInput editor(R"(<a value="hello"/>)", picture);
    editor.choose(editor.controls().lstImages, 0);
    editor.focus(editor.controls().txtValue);
    editor.press(WXK_END);
    editor.press(WXK_LEFT, wxMOD_SHIFT);
    editor.press(WXK_LEFT, wxMOD_SHIFT);
    EXPECT_TRUE(
        pumpUntil([&] { return editor.controls().txtValue->GetStringSelection() == "lo"; }));
    editor.mouse(editor.controls().cmdInsertImage);
    EXPECT_TRUE(editor.becomes(R"(<cabinet><a value="hel`~pic`"/></cabinet>)"));
}

TEST_F(FrmMainInput, TheTopRowsTextTakesNeitherMouseNorKeys) {
    EditorInput editor("<a/>");
    editor.select("cabinet");
    editor.focus(editor.controls().cmdOK);
    editor.mouse(editor.controls().txtValue);
    editor.text("x");
    EXPECT_TRUE(tabLeaves(editor, "cmdOK"));
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "");
}

TEST_F(FrmMainInput, ALockedNodesBoxesTakeNoMouse) {
    EditorInput editor("<a/><cabinetdata><b/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b");
    editor.mouse(editor.controls().chkStyle.at(1));
    editor.mouseRow("cabinet=>a");
    EXPECT_TRUE(pumpUntil([&] { return editor.controls().chkStyle.at(1)->IsEnabled(); }));
    EXPECT_EQ(editor.tree(), "<cabinet><a/><cabinetdata><b/></cabinetdata></cabinet>");
}

// From here on the dialogs are on the screen, and are answered by real keys.

TEST_F(FrmMainInput, TypingGoesOnAfterAReportOfATextThatIsTooLong) {
    constexpr std::size_t longest = 32767;
    std::u16string text(longest, u'x');
    for (std::size_t i = 0; i < longest; i += 8)
        text[i] = u' ';
    EditorInput editor("<a/>");
    editor.type(text);
    AnswerBox& box = *editor.controls().txtValue;
    editor.focus(&box);
    box.SetInsertionPointEnd();
    RealDialog report(editor, [&] { editor.press(WXK_RETURN); });
    editor.text("y");
    EXPECT_TRUE(report.answered());
    EXPECT_EQ(box.GetLastPosition(), static_cast<long>(longest) + 1);
    EXPECT_EQ(editor.focused(), "txtValue");
    editor.press(WXK_BACK);
    editor.press(WXK_BACK);
    editor.text("z");
    text.back() = u'z';
    EXPECT_TRUE(editor.becomes("<cabinet><a value=\"" + toUtf8(text) + "\"/></cabinet>"));
}

TEST_F(FrmMainInput, TheTreeGoesOnAfterAClickThatEndedInAReport) {
    EditorInput editor(R"(<a/><b style="abc"/><c value="three"/>)");
    RealDialog report(editor, [&] { editor.press(WXK_RETURN); });
    editor.mouseRow("cabinet=>b");
    EXPECT_TRUE(report.answered());
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>b");
    editor.mouseRow("cabinet=>c");
    EXPECT_TRUE(pumpUntil([&] { return editor.controls().txtValue->GetValue() == "three"; }));
    editor.press(WXK_HOME);
    EXPECT_TRUE(
        pumpUntil([&] { return editor.label(editor.controls().lblCurrentField) == "cabinet"; }));
}

TEST_F(FrmMainInput, EscapeInTheColourDialogClosesTheDialogOnly) {
    EditorInput editor(R"(<a titlecolor="#FF8040"/>)");
    RealDialog colours(editor, [&] { editor.press(WXK_ESCAPE); });
    editor.mouse(editor.controls().ChangeColor.at(0));
    EXPECT_TRUE(colours.answered());
    EXPECT_EQ(editor.tree(), R"(<cabinet><a titlecolor="#000000"/></cabinet>)");
    EXPECT_TRUE(editor.window->IsShown());
}

TEST_F(FrmMainInput, ThePathOfAnExternalImageIsTypedIntoThePrompt) {
    EditorInput editor(twoNodes);
    RealDialog prompt(editor, [&] {
        editor.text("p.jpg");
        editor.press(WXK_RETURN);
    });
    editor.press('X', wxMOD_ALT);
    EXPECT_TRUE(prompt.answered());
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="`@p.jpg`ab"/><b/></cabinet>)");
}

TEST_F(FrmMainInput, EscapeInThePromptClosesThePromptOnly) {
    EditorInput editor(twoNodes);
    RealDialog prompt(editor, [&] { editor.press(WXK_ESCAPE); });
    editor.press('X', wxMOD_ALT);
    EXPECT_TRUE(prompt.answered());
    EXPECT_EQ(editor.tree(), twoNodesTree);
    EXPECT_TRUE(editor.window->IsShown());
}

}  // namespace
}  // namespace tavisk
