// Nodes of which the window cannot show everything: what it tells, shows and writes then.
#include <gtest/gtest.h>

#include "ui/support/editorStep.h"
#include "ui/support/panelNames.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::boxes;
using test::captions;
using test::EditorWindow;
using test::expectInStep;
using test::inFrames;
using test::Names;
using test::styles;

constexpr const char* mismatch = "Type mismatch";

struct FrmMainPanelErrors : testing::Test {
    test::ToolkitComplaints complaints;
};

TEST_F(FrmMainPanelErrors, StyleThatIsNoNumberIsReportedAndWhatCameBeforeIsShown) {
    EditorWindow editor(R"(<a style="1" spacebefore="2" titlefontsize="3" pagebreak="1"/>)"
                        R"(<b value="`x`" titlecolor="#010203" answercolor="#040506" style="abc")"
                        R"( spacebefore="7" titlefontsize="8" columnbreak="1"/>)");
    editor.expectReport(13, mismatch);
    editor.select("cabinet=>b");
    const EditorControls& controls = editor.controls();
    EXPECT_TRUE(editor.dialogs.finished());
    EXPECT_EQ(editor.label(controls.lblCurrentField), "cabinet=>b");
    EXPECT_EQ(controls.txtValue->GetValue(), "`x`");
    EXPECT_EQ(captions(controls),
              (Names{"Text Color: #010203", "Text Color: #040506", "Gap above: 2", "Gap below: 0",
                     "Font Size: +3", "Font Size: +0"}));
    EXPECT_EQ(controls.lblColor.at(0)->GetForegroundColour(), wxColour(1, 2, 3));
    EXPECT_EQ(controls.lblColor.at(1)->GetForegroundColour(), wxColour(4, 5, 6));
    EXPECT_EQ(styles(controls), std::vector<int>{1});
    EXPECT_EQ(boxes(controls), Names{"chkPageBreak"});
    expectInStep(editor);
}

TEST_F(FrmMainPanelErrors, WhileTheErrorIsReportedThePanelIsInStepAlready) {
    EditorWindow editor(R"(<a/><b value="text" style="abc"/>)");
    std::string shown;
    editor.expectReport(13, mismatch);
    editor.dialogs.during([&] { shown = utf8Of(editor.controls().txtValue->GetValue()); });
    editor.select("cabinet=>b");
    EXPECT_EQ(shown, "text");
}

TEST_F(FrmMainPanelErrors, AfterAnErrorTheWindowIsUsableAndTheNextSelectionFillsIt) {
    EditorWindow editor(R"(<a/><b style="abc"/><c style="2" spaceafter="4"/>)");
    editor.expectReport(13, mismatch);
    editor.select("cabinet=>b");
    EXPECT_TRUE(editor.window->IsShown());
    EXPECT_EQ(inFrames(editor.controls(), false), Names{});
    editor.type(u"typed");
    EXPECT_EQ(editor.current(), R"(<b style="abc" value="typed"/>)");
    editor.select("cabinet=>c");
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{2});
    EXPECT_EQ(editor.label(editor.controls().lblGap.at(1)), "Gap below: 4");
    editor.tick(editor.controls().chkStyle.at(1), true);
    EXPECT_EQ(editor.current(), R"(<c style="3" spaceafter="4" value=""/>)");
}

TEST_F(FrmMainPanelErrors, AfterAnErrorStyleBoxesIgnoreClicksUntilASelectionIsComplete) {
    EditorWindow editor(R"(<a/><b style="abc"/>)");
    editor.expectReport(13, mismatch);
    editor.select("cabinet=>b");
    editor.tick(editor.controls().chkStyle.at(4), true);
    editor.tick(editor.controls().chkHidden.at(0), true);
    EXPECT_EQ(editor.current(), R"(<b style="abc" titlehidden="1"/>)");
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{4});
    expectInStep(editor);
}

TEST_F(FrmMainPanelErrors, StyleBeyond32BitsIsReported) {
    EditorWindow editor(R"(<a/><b style="2147483648"/>)");
    editor.expectReport(6, "Overflow");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b style="2147483648"/>)");
    expectInStep(editor);
}

TEST_F(FrmMainPanelErrors, TextThatIsTooLongIsShownAndReportedAndLost) {
    std::string value;
    while (value.size() < 32768)
        value += "xxxxxxx ";  // laying out one long word takes this toolkit seconds
    EditorWindow editor(R"(<a style="1"/><b style="2" value=")" + value + "\"/><c/>");
    editor.expectReport(6, "Overflow");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.controls().txtValue->GetValue(), value);
    EXPECT_EQ(styles(editor.controls()), std::vector<int>{1});
    EXPECT_EQ(editor.current(), R"(<b style="2" value=")" + value + "\"/>");
    expectInStep(editor);
    editor.select("cabinet=>c");
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "");
    EXPECT_EQ(editor.current(), R"(<c value=""/>)");
}

TEST_F(FrmMainPanelErrors, RowWhoseNamesLeadNowhereIsReportedAndNothingCanBeWritten) {
    EditorWindow editor("<a><x/></a><a><y/></a>");
    dom::Node& lost = *editor.session().file.baseXMLNode->lastChild()->firstChild();
    editor.expectReport(91, "Object variable or With block variable not set");
    editor.controls().TreeXML->choose(lost);
    test::pumpPending();
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>a=>y");
    editor.type(u"typed");
    editor.click(editor.controls().cmdChangeFont.at(2));
    EXPECT_EQ(editor.tree(), "<cabinet><a><x/></a><a><y/></a></cabinet>");
    expectInStep(editor);
    editor.select("cabinet=>a");
    EXPECT_EQ(editor.current(), R"(<a value=""><x/></a>)");
}

TEST_F(FrmMainPanelErrors, TextRowIsReportedWhenItCannotTakeTheEmptyText) {
    EditorWindow editor(R"(<a value="text"/>words)");
    dom::Node& words = *editor.session().file.baseXMLNode->lastChild();
    editor.expectReport(91, "Object variable or With block variable not set");
    editor.controls().TreeXML->choose(words);
    test::pumpPending();
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="text"/>words</cabinet>)");
    expectInStep(editor);
    editor.select("cabinet=>a");
    EXPECT_EQ(editor.controls().txtValue->GetValue(), "text");
}

}  // namespace
}  // namespace tavisk
