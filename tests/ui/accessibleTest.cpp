// The names that screen readers tell, read back from the controls' accessible objects.
#include "ui/toolkit/accessible.h"

#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include "ui/support/accessibleNames.h"
#include "ui/support/pump.h"

namespace tavisk {
namespace {

using test::accessibleName;
using test::focusedName;

struct Accessible : testing::Test {
    Accessible() {
        frame->Show();
        test::pumpUntil([this] { return frame->IsShownOnScreen(); });
    }
    ~Accessible() override {
        delete frame;
        test::pumpPending();
    }

    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Accessible");
    wxPanel* panel = new wxPanel(frame);
};

TEST_F(Accessible, ButtonIsToldByItsCaptionUntilItHasAName) {
    auto* const button = new wxButton(panel, wxID_ANY, "&+");
    EXPECT_EQ(focusedName(*button), "+");
    setAccessibleName(*button, "Title font larger");
    EXPECT_EQ(focusedName(*button), "Title font larger");
}

TEST_F(Accessible, CheckBox) {
    auto* const box = new wxCheckBox(panel, wxID_ANY, "&B");
    setAccessibleName(*box, "Title bold");
    EXPECT_EQ(focusedName(*box), "Title bold");
}

TEST_F(Accessible, MultiLineTextIsNamedWhereItHasTheFocus) {
    auto* const text =
        new wxTextCtrl(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
    setAccessibleName(*text, "Information Text");
    EXPECT_EQ(focusedName(*text), "Information Text");
}

TEST_F(Accessible, ListIsNamedOutsideAndWhereItHasTheFocus) {
    auto* const list = new wxChoice(panel, wxID_ANY);
    list->Append("Width");
    list->SetSelection(0);
    setAccessibleName(*list, "Formulas");
    EXPECT_EQ(accessibleName(*list), "Formulas");
    EXPECT_EQ(focusedName(*list), "Formulas");
}

TEST_F(Accessible, TreeIsNamedWhereItHasTheFocus) {
    auto* const tree = new wxDataViewCtrl(panel, wxID_ANY);
    setAccessibleName(*tree, "Help nodes");
    EXPECT_EQ(focusedName(*tree), "Help nodes");
}

TEST_F(Accessible, ToolbarKeepsTheNamesOfItsButtons) {
    auto* const toolbar = new wxToolBar(panel, wxID_ANY);
    const wxBitmap picture(8, 8);
    toolbar->AddTool(wxID_ANY, "Cut", picture);
    toolbar->Realize();
    setAccessibleName(*toolbar, "Commands");
    EXPECT_EQ(accessibleName(*toolbar), "Commands");
    EXPECT_EQ(test::toolNames(*toolbar), std::vector<std::string>{"Cut"});
}

TEST_F(Accessible, NameThatIsNoAscii) {
    auto* const button = new wxButton(panel, wxID_ANY, "x");
    setAccessibleName(*button, wxString::FromUTF8("Größer …"));
    EXPECT_EQ(focusedName(*button), "Größer …");
}

TEST_F(Accessible, LaterNameReplacesTheFirst) {
    auto* const button = new wxButton(panel, wxID_ANY, "x");
    setAccessibleName(*button, "first");
    setAccessibleName(*button, "second");
    EXPECT_EQ(focusedName(*button), "second");
}

TEST_F(Accessible, PictureHasTheRoleOfAnImage) {
    auto* const picture = new wxWindow(panel, wxID_ANY);
    setAccessiblePicture(*picture, "Picture preview");
    EXPECT_EQ(accessibleName(*picture), "Picture preview");
    EXPECT_TRUE(test::isToldAsPicture(*picture));
}

}  // namespace
}  // namespace tavisk
