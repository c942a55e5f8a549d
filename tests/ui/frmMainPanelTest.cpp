// What the window shows of the node that is selected, and what may be used of it.
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include "ui/support/editorStep.h"
#include "ui/support/panelNames.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::boxes;
using test::captions;
using test::EditorSession;
using test::EditorWindow;
using test::expectInStep;
using test::inFrames;
using test::Names;
using test::styles;

Names enabledMenuEntries(const wxFrame& frame) {
    Names names;
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const char* const name = nodeCommands()[i].name;
        if (name && frame.GetMenuBar()->IsEnabled(menuId(i))) names.emplace_back(name);
    }
    return names;
}

Names enabledTools(const EditorControls& controls) {
    Names tips;
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        if (command.toolIndex > 0 && controls.toolNodes->GetToolEnabled(toolId(i)))
            tips.emplace_back(command.toolTip);
    }
    return tips;
}

const Names allMenuEntries{"cmdNew", "cmdNewChild", "cmdRename",
                           "cmdDel", "cmdMoveUp",   "cmdMoveDown"};
const Names allTools{"New Child Node", "Delete", "Move Up",     "Move Down",     "Cut",
                     "Copy",           "Paste",  "Move To Top", "Move To Bottom"};

bool canType(const EditorControls& controls) { return controls.txtValue->IsEnabled(); }

struct FrmMainPanel : testing::Test {
    test::ToolkitComplaints complaints;
};

TEST_F(FrmMainPanel, BeforeTheFirstSelectionTheCaptionsAreThoseOfTheForm) {
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "");
    const EditorControls controls = buildEditor(*frame);
    EXPECT_EQ(captions(controls),
              (Names{"Text Color: #000000", "Text Color: #000000", "Gap Above: 0", "Gap Below: 0",
                     "Font Size: +0", "Font Size: +0"}));
    EXPECT_EQ(EditorWindow::label(controls.lblCurrentField), "");
    EXPECT_EQ(styles(controls), std::vector<int>{});
    EXPECT_EQ(boxes(controls), Names{});
    EXPECT_EQ(controls.txtValue->GetValue(), "");
    EXPECT_FALSE(canType(controls));
    EXPECT_EQ(inFrames(controls, false), Names{"txtValue"});
    EXPECT_EQ(enabledMenuEntries(*frame), allMenuEntries);
    EXPECT_EQ(enabledTools(controls), allTools);
    delete frame;
}

TEST_F(FrmMainPanel, NodeWithoutAttributesShowsTheDefaults) {
    EditorWindow editor("<a/>");
    const EditorControls& controls = editor.controls();
    EXPECT_EQ(captions(controls),
              (Names{"Text Color: #000000", "Text Color: #000000", "Gap above: 0", "Gap below: 0",
                     "Font Size: +0", "Font Size: +0"}));
    EXPECT_EQ(controls.lblColor.at(0)->GetForegroundColour(), *wxBLACK);
    EXPECT_EQ(controls.lblColor.at(1)->GetForegroundColour(), *wxBLACK);
    EXPECT_EQ(styles(controls), std::vector<int>{});
    EXPECT_EQ(boxes(controls), Names{});
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST_F(FrmMainPanel, OrdinaryNodeMakesEverythingUsable) {
    EditorWindow editor("<a/>");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{});
    EXPECT_EQ(enabledMenuEntries(*editor.window), allMenuEntries);
    EXPECT_EQ(enabledTools(editor.controls()), allTools);
    EXPECT_TRUE(canType(editor.controls()));
}

TEST_F(FrmMainPanel, CurrentFieldIsTheKeyOfTheSelectedRow) {
    EditorWindow editor("<top_node><my_node/></top_node>");
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>top node");
    editor.select("cabinet=>top node=>my node");
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>top node=>my node");
}

constexpr const char* lockedB =
    R"(<a value="text" titlecolor="#010203" style="9" spacebefore="4" titlefontsize="-3")"
    R"( pagebreak="1"/><cabinetdata><b value="other" style="x"/></cabinetdata>)";
constexpr const char* lockedKey = "cabinet=>cabinetdata=>b";

TEST_F(FrmMainPanel, LockedNodeDisablesFramesAndCommandsAndLeavesNewChildAndPaste) {
    EditorWindow editor(lockedB);
    editor.select(lockedKey);
    EXPECT_EQ(inFrames(editor.controls(), true), Names{});
    EXPECT_EQ(enabledMenuEntries(*editor.window), Names{"cmdNewChild"});
    EXPECT_EQ(enabledTools(editor.controls()), (Names{"New Child Node", "Paste"}));
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), lockedKey);
}

TEST_F(FrmMainPanel, LockedNodeLeavesWhatStandsOutsideTheFramesUsable) {
    EditorWindow editor(lockedB);
    editor.select(lockedKey);
    const EditorControls& controls = editor.controls();
    for (const wxWindow* control : {static_cast<const wxWindow*>(controls.cmdOK),
                                    static_cast<const wxWindow*>(controls.cmdCancel),
                                    static_cast<const wxWindow*>(controls.cmdRefreshButton),
                                    static_cast<const wxWindow*>(controls.cmdPreview),
                                    static_cast<const wxWindow*>(controls.TreeXML)})
        EXPECT_TRUE(control->IsEnabled()) << control->GetName();
    EXPECT_TRUE(controls.cmdRefresh->IsEnabled());
    EXPECT_TRUE(controls.cmdExit->IsEnabled());
}

TEST_F(FrmMainPanel, LockedNodeIsCurrentWhileThePanelShowsTheNodeBefore) {
    EditorWindow editor(lockedB);
    const EditorControls& controls = editor.controls();
    const Names before = captions(controls);
    editor.select(lockedKey);
    EXPECT_EQ(editor.current(), R"(<b value="other" style="x"/>)");
    EXPECT_EQ(captions(controls), before);
    EXPECT_EQ(captions(controls),
              (Names{"Text Color: #010203", "Text Color: #000000", "Gap above: 4", "Gap below: 0",
                     "Font Size: -3", "Font Size: +0"}));
    EXPECT_EQ(controls.lblColor.at(0)->GetForegroundColour(), wxColour(1, 2, 3));
    EXPECT_EQ(styles(controls), (std::vector<int>{1, 8}));
    EXPECT_EQ(boxes(controls), Names{"chkPageBreak"});
    EXPECT_EQ(controls.txtValue->GetValue(), "text");
    expectInStep(editor);
}

TEST_F(FrmMainPanel, OrdinaryNodeAfterALockedOneIsUsableAndFilled) {
    EditorWindow editor(lockedB);
    editor.select(lockedKey);
    editor.select("cabinet=>cabinetdata");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{});
    EXPECT_EQ(enabledMenuEntries(*editor.window), allMenuEntries);
    EXPECT_EQ(enabledTools(editor.controls()), allTools);
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{});
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "");
}

TEST_F(FrmMainPanel, OnlyTheExactNameCabinetdataLocks) {
    EditorWindow editor(
        "<CabinetData><b/></CabinetData><p:cabinetdata xmlns:p=\"u\"><c/>"
        "</p:cabinetdata>");
    editor.select("cabinet=>CabinetData=>b");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{});
    editor.select("cabinet=>cabinetdata=>c");
    EXPECT_EQ(inFrames(editor.controls(), true), Names{});
}

TEST_F(FrmMainPanel, NodeBelowALockedOneIsOrdinary) {
    EditorWindow editor("<a/><cabinetdata><b><c value=\"deep\"/></b></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b=>c");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{});
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "deep");
}

TEST_F(FrmMainPanel, ElementWithoutParentIsLockedToo) {
    EditorWindow editor(R"(<a value="text"/>)");
    dom::Node* const base = editor.session().file.baseXMLNode;
    const dom::OwnedNode alone = editor.session().file.articledoc->clone(*base, true);
    editor.session().file.baseXMLNode = alone.get();
    selectNode(editor.session(), *alone);
    editor.choose(editor.controls().lstImages, 0);  // brings the window into step
    EXPECT_EQ(inFrames(editor.controls(), true), Names{});
    EXPECT_EQ(enabledMenuEntries(*editor.window), Names{"cmdNewChild"});
    EXPECT_EQ(enabledTools(editor.controls()), (Names{"New Child Node", "Paste"}));
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "text");
    editor.session().file.baseXMLNode = base;
    editor.session().currentnode = editor.session().selectedRow = base;
}

TEST_F(FrmMainPanel, TopRowFillsThePanelButTakesNoText) {
    EditorWindow editor("<a/>");
    dom::Document& document = *editor.session().file.articledoc;
    SetAttributeValue(document, *editor.session().file.baseXMLNode, "value", "top `x`");
    SetAttributeValue(document, *editor.session().file.baseXMLNode, "style", "2");
    editor.select("cabinet");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{"txtValue"});
    EXPECT_FALSE(canType(editor.controls()));
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "top `x`");
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{2});
    EXPECT_EQ(enabledMenuEntries(*editor.window), allMenuEntries);
    EXPECT_EQ(enabledTools(editor.controls()), allTools);
    expectInStep(editor);
}

TEST_F(FrmMainPanel, NodeAfterTheTopRowTakesTextAgain) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    editor.select("cabinet=>a");
    EXPECT_TRUE(canType(editor.controls()));
}

TEST_F(FrmMainPanel, LockedNodeAfterTheTopRowTakesNoText) {
    EditorWindow editor("<a/><cabinetdata><b/></cabinetdata>");
    editor.select("cabinet");
    editor.select(lockedKey);
    EXPECT_FALSE(canType(editor.controls()));
    editor.select("cabinet");
    EXPECT_EQ(inFrames(editor.controls(), false), Names{"txtValue"});
}

TEST_F(FrmMainPanel, TitleFontSizeMinus3ShowsMinus3) {
    EditorWindow editor(R"(<a titlefontsize="-3"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblFontSize.at(0)), "Font Size: -3");
}

TEST_F(FrmMainPanel, TitleFontSizeIsRoundedDown) {
    EditorWindow editor(R"(<a titlefontsize="2.7"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblFontSize.at(0)), "Font Size: +2");
}

TEST_F(FrmMainPanel, TitleFontSizeThatIsNoNumberShowsPlus0) {
    EditorWindow editor(R"(<a titlefontsize="abc"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblFontSize.at(0)), "Font Size: +0");
}

TEST_F(FrmMainPanel, AnswerFontSizeHasItsOwnLabel) {
    EditorWindow editor(R"(<a answerfontsize="7"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblFontSize.at(0)), "Font Size: +0");
    EXPECT_EQ(editor.label(editor.controls().lblFontSize.at(1)), "Font Size: +7");
}

TEST_F(FrmMainPanel, GapLabelsShowTheTextAsItStands) {
    EditorWindow editor(R"(<a spacebefore="abc" spaceafter="&amp;1 &amp;&amp;2"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblGap.at(0)), "Gap above: abc");
    EXPECT_EQ(editor.controls().lblGap.at(1)->GetLabelText(), "Gap below: &1 &&2");
}

TEST_F(FrmMainPanel, TitleHiddenYesTicksHideTitle) {
    EditorWindow editor(R"(<a titlehidden="yes"/>)");
    EXPECT_EQ(boxes(editor.controls()), Names{"chkHidden(0)"});
    EXPECT_EQ(editor.label(editor.controls().chkHidden.at(0)), "Hide Title");
}

TEST_F(FrmMainPanel, AnythingButZeroTicksABox) {
    EditorWindow editor(R"(<a answerhidden="" columnbreak="00" pagebreak="false"/>)");
    EXPECT_EQ(boxes(editor.controls()), (Names{"chkHidden(1)", "chkColumnBreak", "chkPageBreak"}));
}

TEST_F(FrmMainPanel, Style9TicksTheFirstBoxOfTitleAndAnswer) {
    EditorWindow editor(R"(<a style="9"/>)");
    EXPECT_EQ(styles(editor.controls()), (std::vector<int>{1, 8}));
    EXPECT_EQ(editor.label(editor.controls().chkStyle.at(1)), "B");
    EXPECT_EQ(editor.label(editor.controls().chkStyle.at(8)), "B");
}

TEST_F(FrmMainPanel, Style63TicksAllBoxesAndTheNextNodeClearsThem) {
    EditorWindow editor(R"(<a style="63"/><b/>)");
    EXPECT_EQ(styles(editor.controls()), (std::vector<int>{1, 2, 4, 8, 16, 32}));
    editor.select("cabinet=>b");
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{});
}

TEST_F(FrmMainPanel, ColourInLowerCaseDigitsIsShown) {
    EditorWindow editor(R"(<a titlecolor="#ff8000"/>)");
    const wxStaticText* const label = editor.controls().lblColor.at(0);
    EXPECT_EQ(label->GetForegroundColour(), wxColour(255, 128, 0));
    EXPECT_EQ(editor.label(label), "Text Color: #ff8000");
}

TEST_F(FrmMainPanel, ColourTextThatIsTooShortShowsAsItStands) {
    EditorWindow editor(R"(<a titlecolor="" answercolor="#1"/><b answercolor="#FF"/>)");
    EXPECT_EQ(editor.label(editor.controls().lblColor.at(0)), "Text Color: ");
    EXPECT_EQ(editor.controls().lblColor.at(0)->GetForegroundColour(), *wxBLACK);
    EXPECT_EQ(editor.controls().lblColor.at(1)->GetForegroundColour(), wxColour(1, 0, 0));
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.controls().lblColor.at(1)->GetForegroundColour(), wxColour(255, 0, 0));
}

TEST_F(FrmMainPanel, BoxThatChangesItsStateWritesItAndOneThatKeepsItDoesNot) {
    EditorWindow editor(R"(<a titlehidden="1" pagebreak="1"/><b pagebreak="yes"/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b pagebreak="yes" titlehidden="0"/>)");
    EXPECT_EQ(boxes(editor.controls()), Names{"chkPageBreak"});
}

TEST_F(FrmMainPanel, WhatFillingWritesIsWrittenInItsOrder) {
    EditorWindow editor(R"(<a pagebreak="1" columnbreak="1" answerhidden="1" titlehidden="1")"
                        R"( value="text"/><b/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b value="" titlehidden="0" answerhidden="0" columnbreak="0")"
                                R"( pagebreak="0"/>)");
    EXPECT_EQ(boxes(editor.controls()), Names{});
}

TEST_F(FrmMainPanel, StyleBoxesThatAreFilledWriteNothing) {
    EditorWindow editor(R"(<a style=" 9.0"/><b style="32"/><c/>)");
    editor.select("cabinet=>b");
    editor.select("cabinet=>c");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a style=" 9.0"/><b style="32"/><c/></cabinet>)");
}

TEST_F(FrmMainPanel, TextThatEmptiesTheBoxAddsAnEmptyValue) {
    EditorWindow editor(R"(<a value="text"/><b/><c/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b value=""/>)");
    editor.select("cabinet=>c");
    EXPECT_EQ(editor.current(), "<c/>");
}

/// Counts what a handler of the window would be called for.
struct Events {
    explicit Events(EditorControls& controls) {
        const auto count = [this](wxCommandEvent& event) {
            ++handled;
            event.Skip();
        };
        controls.txtValue->Bind(wxEVT_TEXT, count);
        for (const auto* array : {&controls.chkStyle, &controls.chkHidden}) {
            for (const auto& [index, box] : *array)
                box->Bind(wxEVT_CHECKBOX, count);
        }
        controls.chkColumnBreak->Bind(wxEVT_CHECKBOX, count);
        controls.chkPageBreak->Bind(wxEVT_CHECKBOX, count);
        controls.lstFormulas->Bind(wxEVT_CHOICE, count);
        controls.lstImages->Bind(wxEVT_CHOICE, count);
    }
    int handled = 0;
};

TEST_F(FrmMainPanel, FillingRunsNoHandlerOfTheControls) {
    const std::string nodes = R"(<a value="text" style="63" titlehidden="1" answerhidden="yes")"
                              R"( columnbreak="1" pagebreak="x"/><b/><c value="text"/><d style="5")"
                              R"( titlehidden="no" value="`x`"/>)";
    EditorWindow editor(nodes);
    EditorSession alone(nodes);
    Events events(editor.controls());
    for (const char* key : {"cabinet=>b", "cabinet=>c", "cabinet=>d", "cabinet", "cabinet=>a"}) {
        editor.select(key);
        alone.select(key);
        EXPECT_EQ(editor.tree(), alone.tree()) << key;
    }
    EXPECT_EQ(events.handled, 0);
}

TEST_F(FrmMainPanel, EventsOfTheUserAreCounted) {
    EditorWindow editor("<a/>");
    Events events(editor.controls());
    editor.tick(editor.controls().chkStyle.at(1), true);
    editor.type(u"x");
    EXPECT_EQ(events.handled, 2);
}

}  // namespace
}  // namespace tavisk
