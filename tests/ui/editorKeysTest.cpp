// The editor window by the keyboard: Tab order, mnemonics, default and cancel button.
#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <vector>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/uiaction.h>

#include "ui/support/editorFrame.h"
#include "ui/support/focus.h"
#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

struct EditorKeysTest : testing::Test {
    test::EditorFrame editor;
    EditorControls& controls = editor.controls;
    std::string clicked;  ///< names of the buttons clicked

    EditorKeysTest() {
        controls.txtValue->Enable();
        controls.lstFormulas->Append("Width");
        controls.lstFormulas->Append("Height");
        controls.lstImages->Append("~front");
        editor.frame->Bind(wxEVT_BUTTON, [this](wxCommandEvent& event) {
            clicked += test::EditorFrame::name(*static_cast<wxWindow*>(event.GetEventObject()));
        });
        editor.show();
    }

    /// Real keys.
    static void press(int key, int modifiers = wxMOD_NONE) {
        wxUIActionSimulator().Char(key, modifiers);
    }
    void focus(wxWindow* window) {
        window->SetFocus();
        ASSERT_TRUE(becomesFocus(window));
    }
    std::string focused() const { return test::focusedControl(*editor.frame); }
    bool becomesFocus(const wxWindow* window) const {
        return test::pumpUntil([&] { return focused() == test::EditorFrame::name(*window); },
                               std::chrono::seconds(10));
    }
    static bool isOpen(const wxChoice* list) { return test::isOpen(*list); }
    bool isClicked(const std::string& name) {
        return test::pumpUntil([&] { return clicked == name; });
    }
};

TEST_F(EditorKeysTest, TabGoesThroughTheWindowInItsOrder) {
    const std::vector<wxWindow*> order{
        controls.TreeXML,
        controls.txtValue,
        controls.lstFormulas,
        controls.cmdInsertFormulaAtCursor,
        controls.cmdInsertFormulaAtEnd,
        controls.cmdFormulaAdd,
        controls.cmdFormulaDel,
        controls.lstImages,
        controls.cmdInsertImage,
        controls.cmdAppendImage,
        controls.cmdImageOverlay,
        controls.cmdExternImage,
        controls.cmdImageAdd,
        controls.cmdImageDel,
        controls.ChangeColor[0],
        controls.cmdChangeFont[0],
        controls.cmdChangeFont[2],
        controls.chkStyle[1],
        controls.chkStyle[2],
        controls.chkStyle[4],
        controls.chkHidden[0],
        controls.ChangeColor[1],
        controls.cmdChangeFont[3],
        controls.cmdChangeFont[5],
        controls.chkStyle[8],
        controls.chkStyle[16],
        controls.chkStyle[32],
        controls.chkHidden[1],
        controls.cmdMoveGaps[0],
        controls.cmdMoveGaps[2],
        controls.cmdMoveGaps[3],
        controls.cmdMoveGaps[5],
        controls.chkPageBreak,
        controls.chkColumnBreak,
        controls.cmdPreview,
        controls.cmdRefreshButton,
        okStandsLast() ? controls.cmdCancel : controls.cmdOK,
        okStandsLast() ? controls.cmdOK : controls.cmdCancel,
    };
    focus(order.front());
    for (std::size_t i = 1; i < order.size(); ++i) {
        press(WXK_TAB);
        ASSERT_TRUE(becomesFocus(order[i]))
            << focused() << " instead of " << editor.name(*order[i]);
    }
    for (std::size_t i = order.size() - 1; i > 0; --i) {
        press(WXK_TAB, wxMOD_SHIFT);
        ASSERT_TRUE(becomesFocus(order[i - 1]))
            << focused() << " instead of " << editor.name(*order[i - 1]);
    }
}

/// The character behind the "&" of each button and check box.
std::multimap<char, std::string> mnemonics(const test::EditorFrame& editor) {
    std::multimap<char, std::string> found;
    for (const wxWindow* window : editor.below(*editor.frame)) {
        if (!dynamic_cast<const wxButton*>(window) && !dynamic_cast<const wxCheckBox*>(window))
            continue;
        const std::string label = utf8Of(window->GetLabel());
        const std::size_t at = label.find('&');
        const char key = at + 1 < label.size() ? label[at + 1] : '?';
        const auto* const control = dynamic_cast<const wxControl*>(window);
        found.emplace(static_cast<char>(std::toupper(key)), utf8Of(control->GetLabelText()));
    }
    return found;
}

TEST_F(EditorKeysTest, EveryButtonAndBoxHasAMnemonic) {
    const auto found = mnemonics(editor);
    EXPECT_EQ(found.size(), 34U);
    EXPECT_EQ(found.count('?'), 0U);
}

TEST_F(EditorKeysTest, OnlyControlsOfOneCaptionShareAMnemonic) {
    std::map<char, std::set<std::string>> captions;
    for (const auto& [key, caption] : mnemonics(editor))
        captions[key].insert(caption);
    for (const auto& [key, sharing] : captions)
        EXPECT_EQ(sharing.size(), 1U)
            << key << ": " << *sharing.begin() << ", " << *sharing.rbegin();
}

TEST_F(EditorKeysTest, MenusHaveMnemonicsOfTheirOwn) {
    const auto found = mnemonics(editor);
    EXPECT_EQ(found.count('F') + found.count('N'), 0U);
}

TEST_F(EditorKeysTest, MnemonicClicksItsButton) {
    focus(controls.TreeXML);
    press('W', wxMOD_ALT);
    EXPECT_TRUE(isClicked("cmdPreview"));
}

TEST_F(EditorKeysTest, MnemonicClicksItsButtonFromWithinTheText) {
    focus(controls.txtValue);
    press('X', wxMOD_ALT);
    EXPECT_TRUE(isClicked("cmdExternImage"));
    EXPECT_EQ(controls.txtValue->GetValue(), "");
}

TEST_F(EditorKeysTest, MnemonicOfTwoButtonsGoesToOneAfterTheOther) {
    focus(controls.TreeXML);
    press('S', wxMOD_ALT);
    ASSERT_TRUE(becomesFocus(controls.cmdInsertFormulaAtCursor)) << focused();
    press('S', wxMOD_ALT);
    ASSERT_TRUE(becomesFocus(controls.cmdInsertImage)) << focused();
    EXPECT_EQ(clicked, "");
}

TEST_F(EditorKeysTest, EscapeClicksCancelFromEverywhere) {
    for (wxWindow* window :
         std::vector<wxWindow*>{controls.TreeXML, controls.txtValue, controls.lstFormulas,
                                controls.chkStyle[1], controls.cmdOK}) {
        focus(window);
        clicked.clear();
        press(WXK_ESCAPE);
        EXPECT_TRUE(isClicked("cmdCancel")) << editor.name(*window);
    }
}

TEST_F(EditorKeysTest, EscapeClosesAnOpenListOnly) {
    focus(controls.lstFormulas);
    press(WXK_DOWN, wxMOD_ALT);
    ASSERT_TRUE(test::pumpUntil([this] { return isOpen(controls.lstFormulas); }));
    press(WXK_ESCAPE);
    ASSERT_TRUE(test::pumpUntil([this] { return !isOpen(controls.lstFormulas); }));
    test::pumpPending();
    EXPECT_EQ(clicked, "");
}

TEST_F(EditorKeysTest, EnterClicksOK) {
    focus(controls.chkStyle[1]);
    press(WXK_RETURN);
    EXPECT_TRUE(isClicked("cmdOK"));
}

TEST_F(EditorKeysTest, EnterInTheTextIsALineBreak) {
    focus(controls.txtValue);
    press(WXK_RETURN);
    EXPECT_TRUE(test::pumpUntil([this] { return controls.txtValue->GetValue() == "\n"; }));
    EXPECT_EQ(clicked, "");
}

TEST_F(EditorKeysTest, EnterOnAnotherButtonClicksThatOne) {
    focus(controls.cmdPreview);
    press(WXK_RETURN);
    EXPECT_TRUE(isClicked("cmdPreview"));
}

}  // namespace
}  // namespace tavisk
