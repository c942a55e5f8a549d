// The controls, menus and toolbar of the editor window: names, captions, containers, descriptions.
#include "ui/editor/editorControls.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "editor/nodeCommands.h"
#include "ui/support/accessibleNames.h"
#include "ui/support/editorFrame.h"

namespace tavisk {
namespace {

using test::accessibleName;
using test::focusedName;

struct Row {
    const char* name;
    const char* kind;
    const char* container;  ///< empty: the window itself
    const char* caption;
};

/// The controls that the user sees, in no particular order.
constexpr Row rows[] = {
    {"cmdOK", "button", "", "OK"},
    {"cmdCancel", "button", "", "Cancel"},
    {"cmdRefreshButton", "button", "", "Refresh Formula Values"},
    {"toolNodes", "toolbar", "", ""},
    {"cmdPreview", "button", "", "Preview Help File"},
    {"fraFormatting", "frame", "", "Basic Appearance"},
    {"fraGaps", "frame", "fraFormatting", "Gap Control"},
    {"chkPageBreak", "check box", "fraGaps", "Page Break"},
    {"chkColumnBreak", "check box", "fraGaps", "Column Break"},
    {"cmdMoveGaps(0)", "button", "fraGaps", "-"},
    {"cmdMoveGaps(2)", "button", "fraGaps", "+"},
    {"cmdMoveGaps(3)", "button", "fraGaps", "-"},
    {"cmdMoveGaps(5)", "button", "fraGaps", "+"},
    {"lblGap(0)", "label", "fraGaps", "Gap Above: 0"},
    {"lblGap(1)", "label", "fraGaps", "Gap Below: 0"},
    {"fraValue", "frame", "fraFormatting", "Answer"},
    {"chkHidden(1)", "check box", "fraValue", "Hide Value"},
    {"cmdChangeFont(3)", "button", "fraValue", "-"},
    {"cmdChangeFont(5)", "button", "fraValue", "+"},
    {"ChangeColor(1)", "button", "fraValue", "Edit..."},
    {"chkStyle(32)", "check box", "fraValue", "U"},
    {"chkStyle(16)", "check box", "fraValue", "I"},
    {"chkStyle(8)", "check box", "fraValue", "B"},
    {"lblFontSize(1)", "label", "fraValue", "Font Size: +0"},
    {"lblColor(1)", "label", "fraValue", "Text Color: #000000"},
    {"fraTitle", "frame", "fraFormatting", "Title"},
    {"chkHidden(0)", "check box", "fraTitle", "Hide Title"},
    {"cmdChangeFont(0)", "button", "fraTitle", "-"},
    {"cmdChangeFont(2)", "button", "fraTitle", "+"},
    {"ChangeColor(0)", "button", "fraTitle", "Edit..."},
    {"chkStyle(4)", "check box", "fraTitle", "U"},
    {"chkStyle(2)", "check box", "fraTitle", "I"},
    {"chkStyle(1)", "check box", "fraTitle", "B"},
    {"lblFontSize(0)", "label", "fraTitle", "Font Size: +0"},
    {"lblColor(0)", "label", "fraTitle", "Text Color: #000000"},
    {"Label3", "label", "fraFormatting",
     "Note:  For advanced appearance formatting, HTML can be used."},
    {"fraEditor", "frame", "", "Editing"},
    {"cmdExternImage", "button", "fraEditor", "External Image"},
    {"cmdImageOverlay", "button", "fraEditor", "Insert As Overlay"},
    {"cmdFormulaAdd", "button", "fraEditor", "Add formula"},
    {"cmdFormulaDel", "button", "fraEditor", "Remove formula"},
    {"Picture1", "picture", "fraEditor", ""},
    {"cmdImageDel", "button", "fraEditor", "Remove Image"},
    {"cmdImageAdd", "button", "fraEditor", "Add image"},
    {"lstImages", "list", "fraEditor", ""},
    {"cmdInsertImage", "button", "fraEditor", "Insert At Cursor"},
    {"cmdAppendImage", "button", "fraEditor", "Insert At End"},
    {"cmdInsertFormulaAtEnd", "button", "fraEditor", "Insert At End"},
    {"cmdInsertFormulaAtCursor", "button", "fraEditor", "Insert At Cursor"},
    {"lstFormulas", "list", "fraEditor", ""},
    {"txtValue", "text", "fraEditor", ""},
    {"Label6", "label", "fraEditor", "Auto-Image Insertion:"},
    {"lblFormulaHelp", "label", "fraEditor",
     "Description: No help exists for the selected formula."},
    {"Label4", "label", "fraEditor", "Auto-formula Insertion:"},
    {"lblCurrentField", "label", "fraEditor", ""},
    {"Label1", "label", "fraEditor", "Current Field:"},
    {"Label2", "label", "fraEditor", "Information Text:"},
    {"TreeXML", "tree", "", ""},
};

std::string kindOf(const wxWindow* window) {
    if (dynamic_cast<const wxButton*>(window)) return "button";
    if (dynamic_cast<const wxCheckBox*>(window)) return "check box";
    if (dynamic_cast<const wxStaticText*>(window)) return "label";
    if (dynamic_cast<const wxStaticBox*>(window)) return "frame";
    if (dynamic_cast<const wxChoice*>(window)) return "list";
    if (dynamic_cast<const AnswerBox*>(window)) return "text";
    if (dynamic_cast<const PictureBox*>(window)) return "picture";
    if (dynamic_cast<const HelpTree*>(window)) return "tree";
    if (dynamic_cast<const wxToolBar*>(window)) return "toolbar";
    return "";
}

/// The frame that holds a control; empty when it is the window itself.
std::string containerOf(const wxWindow* window) {
    const auto* const box = dynamic_cast<const wxStaticBox*>(window->GetParent());
    return box ? test::EditorFrame::name(*box) : "";
}

std::string captionOf(const wxWindow* window) {
    const auto* const control = dynamic_cast<const wxControl*>(window);
    return control ? utf8Of(control->GetLabelText()) : "";
}

struct EditorControlsTest : testing::Test {
    test::EditorFrame editor;
    EditorControls& controls = editor.controls;

    std::string menuText(const char* menu) const {
        const wxMenuBar& bar = *editor.frame->GetMenuBar();
        const int position = bar.FindMenu(menu);
        if (position == wxNOT_FOUND) return "(no menu)";
        std::string text = utf8Of(bar.GetMenuLabel(static_cast<std::size_t>(position))) + ":";
        for (const wxMenuItem* item :
             bar.GetMenu(static_cast<std::size_t>(position))->GetMenuItems())
            text += ' ' + utf8Of(item->GetItemLabel()) + ';';
        return text;
    }
    std::string tip(const std::string& name) const {
        return utf8Of(editor.find(name)->GetToolTipText());
    }
    /// What is told when the control has the focus.
    std::string told(const std::string& name) const { return focusedName(*editor.find(name)); }
};

TEST_F(EditorControlsTest, WindowHasItsCaption) {
    EXPECT_EQ(editor.frame->GetTitle(), "Library Help XML Editor");
    EXPECT_EQ(editor.frame->GetName(), "frmMain");
}

TEST_F(EditorControlsTest, EachControlIsThereOnceWithKindContainerAndCaption) {
    std::map<std::string, std::vector<wxWindow*>> found;
    for (wxWindow* window : editor.below(*editor.frame)) {
        if (!kindOf(window).empty()) found[editor.name(*window)].push_back(window);
    }
    for (const Row& row : rows) {
        const std::vector<wxWindow*>& windows = found[row.name];
        ASSERT_EQ(windows.size(), 1U) << row.name;
        EXPECT_EQ(kindOf(windows[0]), row.kind) << row.name;
        EXPECT_EQ(containerOf(windows[0]), row.container) << row.name;
        EXPECT_EQ(captionOf(windows[0]), row.caption) << row.name;
    }
    EXPECT_EQ(found.size(), std::size(rows)) << "and no other";
}

TEST_F(EditorControlsTest, MembersAreTheControlsOfTheirNames) {
    const std::map<std::string, const wxWindow*> members{
        {"cmdOK", controls.cmdOK},
        {"cmdCancel", controls.cmdCancel},
        {"cmdRefreshButton", controls.cmdRefreshButton},
        {"cmdPreview", controls.cmdPreview},
        {"toolNodes", controls.toolNodes},
        {"TreeXML", controls.TreeXML},
        {"fraFormatting", controls.fraFormatting},
        {"fraGaps", controls.fraGaps},
        {"fraValue", controls.fraValue},
        {"fraTitle", controls.fraTitle},
        {"fraEditor", controls.fraEditor},
        {"chkPageBreak", controls.chkPageBreak},
        {"chkColumnBreak", controls.chkColumnBreak},
        {"Label3", controls.Label3},
        {"Label1", controls.Label1},
        {"lblCurrentField", controls.lblCurrentField},
        {"Label2", controls.Label2},
        {"txtValue", controls.txtValue},
        {"Label4", controls.Label4},
        {"lstFormulas", controls.lstFormulas},
        {"cmdInsertFormulaAtCursor", controls.cmdInsertFormulaAtCursor},
        {"cmdInsertFormulaAtEnd", controls.cmdInsertFormulaAtEnd},
        {"lblFormulaHelp", controls.lblFormulaHelp},
        {"cmdFormulaAdd", controls.cmdFormulaAdd},
        {"cmdFormulaDel", controls.cmdFormulaDel},
        {"Label6", controls.Label6},
        {"lstImages", controls.lstImages},
        {"cmdInsertImage", controls.cmdInsertImage},
        {"cmdAppendImage", controls.cmdAppendImage},
        {"cmdImageOverlay", controls.cmdImageOverlay},
        {"cmdExternImage", controls.cmdExternImage},
        {"cmdImageAdd", controls.cmdImageAdd},
        {"cmdImageDel", controls.cmdImageDel},
        {"Picture1", controls.Picture1},
    };
    for (const auto& [name, member] : members)
        EXPECT_EQ(member, editor.find(name)) << name;
}

template <class Control>
std::string namesOf(const ControlArray<Control>& array) {
    std::string names;
    for (const auto& [index, control] : array)
        names += std::to_string(index) + ' ' + test::EditorFrame::name(*control) + "; ";
    return names;
}

TEST_F(EditorControlsTest, ArraysAreByTheirIndices) {
    EXPECT_EQ(namesOf(controls.cmdMoveGaps),
              "0 cmdMoveGaps(0); 2 cmdMoveGaps(2); 3 cmdMoveGaps(3); 5 cmdMoveGaps(5); ");
    EXPECT_EQ(namesOf(controls.cmdChangeFont),
              "0 cmdChangeFont(0); 2 cmdChangeFont(2); 3 cmdChangeFont(3); 5 cmdChangeFont(5); ");
    EXPECT_EQ(namesOf(controls.chkStyle),
              "1 chkStyle(1); 2 chkStyle(2); 4 chkStyle(4); 8 chkStyle(8); 16 chkStyle(16); "
              "32 chkStyle(32); ");
    EXPECT_EQ(namesOf(controls.lblGap), "0 lblGap(0); 1 lblGap(1); ");
    EXPECT_EQ(namesOf(controls.chkHidden), "0 chkHidden(0); 1 chkHidden(1); ");
    EXPECT_EQ(namesOf(controls.ChangeColor), "0 ChangeColor(0); 1 ChangeColor(1); ");
    EXPECT_EQ(namesOf(controls.lblFontSize), "0 lblFontSize(0); 1 lblFontSize(1); ");
    EXPECT_EQ(namesOf(controls.lblColor), "0 lblColor(0); 1 lblColor(1); ");
}

TEST_F(EditorControlsTest, Menus) {
    EXPECT_EQ(editor.frame->GetMenuBar()->GetMenuCount(), 2U);
    EXPECT_EQ(menuText("File"), "&File: &Refresh; E&xit;");
    EXPECT_EQ(menuText("Nodes"),
              "&Nodes: &Add Node; Add &Child Node; &Rename Node\tF2; &Delete Node\tDel; "
              "Move &Up; Move D&own;");
}

TEST_F(EditorControlsTest, MenuEntriesAreThoseOfTheirCommands) {
    EXPECT_EQ(controls.cmdRefresh->GetItemLabel(), "&Refresh");
    EXPECT_EQ(controls.cmdExit->GetItemLabel(), "E&xit");
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        const wxMenuItem* const item = editor.frame->GetMenuBar()->FindItem(menuId(i));
        ASSERT_EQ(item != nullptr, command.name != nullptr) << command.toolTip;
        if (item) {
            EXPECT_EQ(utf8Of(item->GetItemLabel()).find(command.caption), 0U);
        }
    }
}

TEST_F(EditorControlsTest, ToolbarHasItsButtonsInTheirOrderAndGroups) {
    std::string tools;
    for (std::size_t i = 0; i < controls.toolNodes->GetToolsCount(); ++i) {
        const wxToolBarToolBase& tool = *controls.toolNodes->GetToolByPos(static_cast<int>(i));
        tools += tool.IsSeparator() ? "|" : utf8Of(tool.GetShortHelp());
        tools += ' ';
    }
    EXPECT_EQ(tools,
              "New Child Node Delete | Cut Copy Paste | Move To Top Move To Bottom Move Up "
              "Move Down ");
}

TEST_F(EditorControlsTest, ToolbarButtonsAreThoseOfTheirCommandsWithPictures) {
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        const wxToolBarToolBase* const tool = controls.toolNodes->FindById(toolId(i));
        ASSERT_EQ(tool != nullptr, command.toolIndex > 0) << i;
        if (!tool) continue;
        EXPECT_EQ(tool->GetShortHelp(), command.toolTip);
        EXPECT_TRUE(tool->GetNormalBitmapBundle().IsOk()) << command.toolTip;
        EXPECT_TRUE(tool->GetDisabledBitmapBundle().IsOk()) << command.toolTip;
    }
}

TEST_F(EditorControlsTest, TagsOfTheToolbarButtons) {
    std::map<int, std::pair<std::string, int>> tags;
    for (const NodeCommand& command : nodeCommands()) {
        if (command.toolIndex > 0) tags[command.toolIndex] = {command.toolTip, command.tag};
    }
    const std::map<int, std::pair<std::string, int>> expected{
        {1, {"New Child Node", 0}}, {2, {"Delete", 1}},  {3, {"Cut", 1}},
        {4, {"Copy", 1}},           {5, {"Paste", 0}},   {6, {"Move To Top", 1}},
        {7, {"Move To Bottom", 1}}, {8, {"Move Up", 1}}, {9, {"Move Down", 1}}};
    EXPECT_EQ(tags, expected);
}

TEST_F(EditorControlsTest, NothingIsTickedOrChosenAndTheTextIsNotUsableAtFirst) {
    for (const auto& boxes : {controls.chkStyle, controls.chkHidden}) {
        for (const auto& [index, box] : boxes)
            EXPECT_FALSE(box->GetValue()) << editor.name(*box);
    }
    EXPECT_FALSE(controls.chkPageBreak->GetValue());
    EXPECT_FALSE(controls.chkColumnBreak->GetValue());
    EXPECT_EQ(controls.lstFormulas->GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(controls.lstImages->GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(controls.txtValue->GetValue(), "");
    EXPECT_FALSE(controls.txtValue->IsEnabled());
    EXPECT_TRUE(controls.Picture1->isEmpty());
}

TEST_F(EditorControlsTest, WhatACaptionDoesNotSayTheNameAndTheToolTipDo) {
    const std::map<std::string, std::string> names{
        {"chkStyle(1)", "Title bold"},
        {"chkStyle(2)", "Title italic"},
        {"chkStyle(4)", "Title underline"},
        {"chkStyle(8)", "Answer bold"},
        {"chkStyle(16)", "Answer italic"},
        {"chkStyle(32)", "Answer underline"},
        {"ChangeColor(0)", "Title color..."},
        {"ChangeColor(1)", "Answer color..."},
        {"cmdChangeFont(0)", "Title font smaller"},
        {"cmdChangeFont(2)", "Title font larger"},
        {"cmdChangeFont(3)", "Answer font smaller"},
        {"cmdChangeFont(5)", "Answer font larger"},
        {"cmdMoveGaps(0)", "Gap above smaller"},
        {"cmdMoveGaps(2)", "Gap above larger"},
        {"cmdMoveGaps(3)", "Gap below smaller"},
        {"cmdMoveGaps(5)", "Gap below larger"},
        {"cmdInsertFormulaAtCursor", "Insert formula at cursor"},
        {"cmdInsertFormulaAtEnd", "Insert formula at end"},
        {"cmdInsertImage", "Insert picture at cursor"},
        {"cmdAppendImage", "Insert picture at end"},
        {"cmdImageOverlay", "Insert picture as overlay at end"},
        {"cmdExternImage", "Insert external picture at cursor"},
    };
    editor.show();
    for (const auto& [control, name] : names) {
        EXPECT_EQ(told(control), name);
        EXPECT_EQ(tip(control), name);
    }
}

TEST_F(EditorControlsTest, ControlsWithoutACaptionAreNamed) {
    editor.show();
    controls.txtValue->Enable();
    controls.lstFormulas->Append("Width");
    controls.lstImages->Append("~front");
    EXPECT_EQ(told("txtValue"), "Information Text");
    EXPECT_EQ(told("lstFormulas"), "Formulas");
    EXPECT_EQ(told("lstImages"), "Pictures");
    EXPECT_EQ(told("TreeXML"), "Help nodes");
    EXPECT_EQ(accessibleName(*controls.Picture1), "Picture preview");
    for (const char* name : {"txtValue", "lstFormulas", "lstImages", "TreeXML", "Picture1"})
        EXPECT_EQ(tip(name), "") << name;
}

TEST_F(EditorControlsTest, CaptionThatSaysAllIsWhatIsTold) {
    editor.show();
    for (const Row& row : rows) {
        if (row.kind == std::string("button") && tip(row.name).empty()) {
            EXPECT_EQ(told(row.name), row.caption);
        }
    }
}

TEST_F(EditorControlsTest, NoTwoButtonsOrBoxesAreToldAlike) {
    editor.show();
    std::set<std::string> names;
    for (const Row& row : rows) {
        if (row.kind == std::string("button") || row.kind == std::string("check box")) {
            EXPECT_TRUE(names.insert(told(row.name)).second) << told(row.name);
        }
    }
}

TEST_F(EditorControlsTest, RemoveFormulaSaysWhereFormulasAreRemoved) {
    editor.show();
    EXPECT_EQ(told("cmdFormulaDel"), "Remove formula");
    EXPECT_EQ(tip("cmdFormulaDel"), "Formulas are removed in the host program");
}

TEST_F(EditorControlsTest, ToolbarButtonsAreToldByTheirToolTips) {
    editor.show();
    EXPECT_EQ(test::toolNames(*controls.toolNodes),
              (std::vector<std::string>{"New Child Node", "Delete", "Cut", "Copy", "Paste",
                                        "Move To Top", "Move To Bottom", "Move Up", "Move Down"}));
    EXPECT_EQ(accessibleName(*controls.toolNodes), "Commands for nodes");
}

}  // namespace
}  // namespace tavisk
