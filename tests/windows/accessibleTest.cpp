// The names that screen readers tell, read back from the controls' accessible objects.
#include "platform/wx/accessible.h"

#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include "windows/support/accessibleNames.h"
#include "windows/support/pump.h"

namespace tavisk {
namespace {

using test::accessibleName;
using test::focusWidget;

struct Accessible : testing::Test {
    Accessible() {
        frame->Show();
        test::pumpUntil([this] { return frame->IsShownOnScreen(); });
    }
    ~Accessible() override {
        delete frame;
        test::pumpPending();
    }

    /// Name of what has the focus when the control has it.
    static std::string focused(wxWindow& control) {
        GtkWidget* const widget = focusWidget(control);
        return widget ? accessibleName(widget) : "(no focus)";
    }

    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Accessible");
    wxPanel* panel = new wxPanel(frame);
};

TEST_F(Accessible, ButtonIsToldByItsCaptionUntilItHasAName) {
    auto* const button = new wxButton(panel, wxID_ANY, "&+");
    EXPECT_EQ(focused(*button), "+");
    setAccessibleName(*button, "Title font larger");
    EXPECT_EQ(focused(*button), "Title font larger");
}

TEST_F(Accessible, CheckBox) {
    auto* const box = new wxCheckBox(panel, wxID_ANY, "&B");
    setAccessibleName(*box, "Title bold");
    EXPECT_EQ(focused(*box), "Title bold");
}

TEST_F(Accessible, MultiLineTextIsNamedWhereItHasTheFocus) {
    auto* const text =
        new wxTextCtrl(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
    setAccessibleName(*text, "Information Text");
    EXPECT_TRUE(GTK_IS_TEXT_VIEW(focusWidget(*text)));
    EXPECT_EQ(focused(*text), "Information Text");
}

TEST_F(Accessible, ListIsNamedOutsideAndWhereItHasTheFocus) {
    auto* const list = new wxChoice(panel, wxID_ANY);
    list->Append("Width");
    list->SetSelection(0);
    setAccessibleName(*list, "Formulas");
    EXPECT_EQ(accessibleName(*list), "Formulas");
    EXPECT_EQ(focused(*list), "Formulas");
}

TEST_F(Accessible, TreeIsNamedWhereItHasTheFocus) {
    auto* const tree = new wxDataViewCtrl(panel, wxID_ANY);
    setAccessibleName(*tree, "Help nodes");
    EXPECT_TRUE(GTK_IS_TREE_VIEW(focusWidget(*tree)));
    EXPECT_EQ(focused(*tree), "Help nodes");
}

TEST_F(Accessible, ToolbarKeepsTheNamesOfItsButtons) {
    auto* const toolbar = new wxToolBar(panel, wxID_ANY);
    const wxBitmap picture(8, 8);
    toolbar->AddTool(wxID_ANY, "Cut", picture);
    toolbar->Realize();
    setAccessibleName(*toolbar, "Commands");
    EXPECT_EQ(accessibleName(*toolbar), "Commands");
    GtkWidget* const bar = gtk_bin_get_child(GTK_BIN(toolbar->GetHandle()));
    GtkToolItem* const item = gtk_toolbar_get_nth_item(GTK_TOOLBAR(bar), 0);
    EXPECT_EQ(accessibleName(gtk_bin_get_child(GTK_BIN(item))), "Cut");
}

TEST_F(Accessible, NameThatIsNoAscii) {
    auto* const button = new wxButton(panel, wxID_ANY, "x");
    setAccessibleName(*button, wxString::FromUTF8("Größer …"));
    EXPECT_EQ(focused(*button), "Größer …");
}

TEST_F(Accessible, LaterNameReplacesTheFirst) {
    auto* const button = new wxButton(panel, wxID_ANY, "x");
    setAccessibleName(*button, "first");
    setAccessibleName(*button, "second");
    EXPECT_EQ(focused(*button), "second");
}

TEST_F(Accessible, PictureHasTheRoleOfAnImage) {
    auto* const picture = new wxWindow(panel, wxID_ANY);
    setAccessiblePicture(*picture, "Picture preview");
    AtkObject* const object = gtk_widget_get_accessible(picture->GetHandle());
    EXPECT_EQ(accessibleName(*picture), "Picture preview");
    EXPECT_EQ(atk_object_get_role(object), ATK_ROLE_IMAGE);
}

}  // namespace
}  // namespace tavisk
