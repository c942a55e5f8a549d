#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "editor/formattingCommands.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;

TEST(NodePanel, DesignTimeCaptions) {
    const NodePanel panel;
    EXPECT_EQ(panel.colourCaptions[0], "Text Color: #000000");
    EXPECT_EQ(panel.colourCaptions[1], "Text Color: #000000");
    EXPECT_EQ(panel.gapCaptions[0], "Gap Above: 0");
    EXPECT_EQ(panel.gapCaptions[1], "Gap Below: 0");
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: +0");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: +0");
    EXPECT_EQ(panel.currentField, "");
    EXPECT_FALSE(panel.textUsable);
}

TEST(NodePanel, NodeWithoutAttributesShowsTheDefaults) {
    EditorSession editor("<a/>");
    const NodePanel& panel = editor.session.panel;
    EXPECT_EQ(panel.text, u"");
    EXPECT_EQ(panel.colourCaptions[0], "Text Color: #000000");
    EXPECT_EQ(panel.colourCaptions[1], "Text Color: #000000");
    EXPECT_EQ(panel.colours, (std::array<Colour, 2>{0, 0}));
    EXPECT_EQ(panel.style, (std::array<bool, 6>{}));
    EXPECT_EQ(panel.gapCaptions[0], "Gap above: 0");
    EXPECT_EQ(panel.gapCaptions[1], "Gap below: 0");
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: +0");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: +0");
    EXPECT_EQ(panel.hidden, (std::array<bool, 2>{}));
    EXPECT_FALSE(panel.columnBreak);
    EXPECT_FALSE(panel.pageBreak);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(NodePanel, CurrentFieldIsTheKeyInShownNames) {
    EditorSession editor("<top_node><my_node/></top_node>");
    editor.select("cabinet=>top node=>my node");
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>top node=>my node");
}

TEST(NodePanel, SelectionSetsRowAndCurrentNode) {
    EditorSession editor("<a/><b/>");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.session.selectedRow, &editor.row("cabinet=>b"));
    EXPECT_EQ(editor.session.currentnode, &editor.row("cabinet=>b"));
    EXPECT_FALSE(editor.session.panel.loading);
}

TEST(NodePanel, ClickOnTheSecondOfTwoEqualNamesLeadsToTheFirst) {
    EditorSession editor(R"(<a n="1"/><a n="2"/>)");
    dom::Node& first = *editor.session.file.baseXMLNode->firstChild();
    selectNode(editor.session, *first.next());
    EXPECT_EQ(editor.session.selectedRow, first.next());
    EXPECT_EQ(editor.session.currentnode, &first);
}

TEST(NodePanel, RowWhoseNamesLeadNowhereIsError91) {
    EditorSession editor("<a><x/></a><a><y/></a>");
    dom::Node& lost = *editor.session.file.baseXMLNode->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { selectNode(editor.session, lost); }), 91);
    EXPECT_EQ(editor.session.currentnode, nullptr);
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>a=>y");
    EXPECT_TRUE(editor.session.panel.loading);
}

TEST(NodePanel, LockedNodeDisablesFramesAndCommandsAndIsNotShown) {
    EditorSession editor(R"(<a value="text" titlecolor="#010203"/>)"
                         R"(<cabinetdata><b value="other" style="x"/></cabinetdata>)");
    editor.select("cabinet=>cabinetdata=>b");
    const NodePanel& panel = editor.session.panel;
    EXPECT_FALSE(panel.framesEnabled);
    EXPECT_FALSE(panel.nodeCommandsEnabled);
    EXPECT_FALSE(panel.loading);
    EXPECT_EQ(panel.currentField, "cabinet=>cabinetdata=>b");
    EXPECT_EQ(panel.text, u"text");
    EXPECT_EQ(panel.colourCaptions[0], "Text Color: #010203");
    EXPECT_EQ(editor.session.currentnode->baseName(), "b");
}

TEST(NodePanel, OrdinaryNodeAfterALockedOneIsUsableAgain) {
    EditorSession editor("<a/><cabinetdata><b/></cabinetdata>");
    editor.select("cabinet=>cabinetdata=>b");
    editor.select("cabinet=>a");
    EXPECT_TRUE(editor.session.panel.framesEnabled);
    EXPECT_TRUE(editor.session.panel.nodeCommandsEnabled);
}

TEST(NodePanel, NodeNamedCabinetdataItselfIsOrdinary) {
    EditorSession editor("<cabinetdata/>");
    EXPECT_TRUE(editor.session.panel.framesEnabled);
}

TEST(NodePanel, LockingNameIsCaseSensitive) {
    EditorSession editor("<CabinetData><b/></CabinetData>");
    editor.select("cabinet=>CabinetData=>b");
    EXPECT_TRUE(editor.session.panel.framesEnabled);
}

TEST(NodePanel, ElementWithoutParentIsTopLevel) {
    EditorSession editor(R"(<a value="text"/>)");
    dom::Node* const base = editor.session.file.baseXMLNode;
    const dom::OwnedNode alone = editor.session.file.articledoc->clone(*base, true);
    editor.session.file.baseXMLNode = alone.get();
    selectNode(editor.session, *alone);
    EXPECT_FALSE(editor.session.panel.framesEnabled);
    EXPECT_FALSE(editor.session.panel.nodeCommandsEnabled);
    EXPECT_EQ(editor.session.panel.text, u"text");
    editor.session.file.baseXMLNode = base;
    editor.session.currentnode = editor.session.selectedRow = base;
}

TEST(NodePanel, TopRowFillsThePanelButItsTextIsUnusable) {
    EditorSession editor("<a/>");
    EXPECT_TRUE(editor.session.panel.textUsable);
    SetAttributeValue(*editor.session.file.articledoc, *editor.session.file.baseXMLNode, "value",
                      "top");
    editor.select("cabinet");
    EXPECT_TRUE(editor.session.panel.framesEnabled);
    EXPECT_FALSE(editor.session.panel.textUsable);
    EXPECT_EQ(editor.session.panel.text, u"top");
}

TEST(NodePanel, ColoursAreShownAsTextAndColour) {
    EditorSession editor(R"(<a titlecolor="#ff8000" answercolor="red"/>)");
    const NodePanel& panel = editor.session.panel;
    EXPECT_EQ(panel.colourCaptions[0], "Text Color: #ff8000");
    EXPECT_EQ(panel.colours[0], 0x000080FFu);
    EXPECT_EQ(panel.colourCaptions[1], "Text Color: red");
    EXPECT_EQ(panel.colours[1], 0x000000EDu);
}

TEST(NodePanel, Style9TicksTheTwoBoldBoxes) {
    EditorSession editor(R"(<a style="9"/>)");
    EXPECT_EQ(editor.session.panel.style,
              (std::array<bool, 6>{true, false, false, true, false, false}));
}

TEST(NodePanel, StyleBitsBeyondTheBoxesAreNotShown) {
    EditorSession editor(R"(<a style="98"/>)");
    EXPECT_EQ(editor.session.panel.style,
              (std::array<bool, 6>{false, true, false, false, false, true}));
}

TEST(NodePanel, NegativeStyleIsTwosComplement) {
    EditorSession editor(R"(<a style="-2"/>)");
    EXPECT_EQ(editor.session.panel.style,
              (std::array<bool, 6>{false, true, true, true, true, true}));
}

TEST(NodePanel, StyleIsReadStrictlyAndRoundedHalfToEven) {
    EditorSession editor(R"(<a style=" 2.5 "/>)");
    EXPECT_EQ(editor.session.panel.style,
              (std::array<bool, 6>{false, true, false, false, false, false}));
}

TEST(NodePanel, StyleThatIsNoNumberIsError13AndLeavesLoadingSet) {
    EditorSession editor(R"(<a/><b titlecolor="#010203" style="3 4" spacebefore="5"/><c/>)");
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 13);
    EXPECT_TRUE(editor.session.panel.loading);
    EXPECT_EQ(editor.session.panel.colourCaptions[0], "Text Color: #010203");
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: 0");
    EXPECT_EQ(editor.session.currentnode->baseName(), "b");
    editor.select("cabinet=>c");
    EXPECT_FALSE(editor.session.panel.loading);
}

TEST(NodePanel, EmptyStyleIsError13) {
    EditorSession editor(R"(<a/><b style=""/>)");
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 13);
}

TEST(NodePanel, StyleOf32BitsPassesAndMoreIsError6) {
    EditorSession editor(R"(<a/><b style="2147483647"/><c style="2147483648"/>)");
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 0);
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>c"); }), 6);
}

TEST(NodePanel, FillingNeverWritesTheStyle) {
    EditorSession editor(R"(<a style=" 9.0"/><b/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a style=" 9.0"/><b/></cabinet>)");
}

TEST(NodePanel, GapsShowTheTextAsItStands) {
    EditorSession editor(R"(<a spacebefore="abc" spaceafter=""/>)");
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: abc");
    EXPECT_EQ(editor.session.panel.gapCaptions[1], "Gap below: ");
}

TEST(NodePanel, FontSizesAreReadLenientlyAndRoundedDown) {
    EditorSession editor(R"(<a titlefontsize="-3" answerfontsize="2.7"/>)"
                         R"(<b titlefontsize="abc" answerfontsize="-0.5"/>)"
                         R"(<c titlefontsize=" 3" answerfontsize="1e3"/>)"
                         R"(<d titlefontsize="+4" answerfontsize="70000"/>)");
    const NodePanel& panel = editor.session.panel;
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: -3");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: +2");
    editor.select("cabinet=>b");
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: +0");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: -1");
    editor.select("cabinet=>c");
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: +3");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: +1000");
    editor.select("cabinet=>d");
    EXPECT_EQ(panel.fontSizeCaptions[0], "Font Size: +4");
    EXPECT_EQ(panel.fontSizeCaptions[1], "Font Size: +70000");
}

TEST(NodePanel, AnythingButZeroTicksABox) {
    EditorSession editor(
        R"(<a titlehidden="yes" answerhidden="" columnbreak="00" pagebreak="false"/>)");
    EXPECT_EQ(editor.session.panel.hidden, (std::array<bool, 2>{true, true}));
    EXPECT_TRUE(editor.session.panel.columnBreak);
    EXPECT_TRUE(editor.session.panel.pageBreak);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a titlehidden="1" answerhidden="1" columnbreak="1")"
                             R"( pagebreak="1"/></cabinet>)");
}

TEST(NodePanel, BoxThatIsClearedByASelectionAddsItsAttribute) {
    EditorSession editor(
        R"(<a titlehidden="1" answerhidden="1" columnbreak="1" pagebreak="1"/><b/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(),
              R"(<b titlehidden="0" answerhidden="0" columnbreak="0" pagebreak="0"/>)");
}

TEST(NodePanel, BoxThatKeepsItsStateWritesNothing) {
    EditorSession editor(R"(<a titlehidden="1"/><b titlehidden="yes"/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b titlehidden="yes"/>)");
}

TEST(NodePanel, EmptyTextAfterATextAddsAnEmptyValue) {
    EditorSession editor(R"(<a value="text"/><b/>)");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), R"(<b value=""/>)");
}

TEST(NodePanel, EmptyTextAfterAnEmptyTextAddsNothing) {
    EditorSession editor("<a/><b/>");
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.current(), "<b/>");
}

TEST(NodePanel, TextIsShownWithItsColouredRuns) {
    EditorSession editor("<a value=\"x `~p` y\"/><b/>");
    EXPECT_EQ(editor.session.panel.text, u"x `~p` y");
    EXPECT_EQ(editor.session.panel.tokens, (std::vector<Token>{{2, 4, TokenKind::image}}));
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.session.panel.tokens, std::vector<Token>{});
}

TEST(NodePanel, OverlongTextIsError6AndLeavesLoadingSet) {
    EditorSession editor("<a/><b value=\"" + std::string(32768, 'x') + "\"/>");
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 6);
    EXPECT_TRUE(editor.session.panel.loading);
}

TEST(NodePanel, TextThatTheBoxShowsAlreadyRunsNoHandler) {
    const std::string value(32768, 'x');
    EditorSession editor("<a/><b value=\"" + value + "\"/>");
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 6);
    EXPECT_EQ(errorOf([&] { editor.select("cabinet=>b"); }), 0);
    EXPECT_FALSE(editor.session.panel.loading);
}

TEST(NodePanel, TextRowShowsTheDefaults) {
    EditorSession editor("<a/>words");
    selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild());
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>");
    EXPECT_EQ(editor.session.currentnode, editor.session.file.baseXMLNode->lastChild());
    EXPECT_EQ(editor.session.panel.gapCaptions[0], "Gap above: 0");
}

TEST(NodePanel, TextRowAfterATextCannotTakeItsValue) {
    EditorSession editor(R"(<a value="text"/>words)");
    EXPECT_EQ(
        errorOf([&] { selectNode(editor.session, *editor.session.file.baseXMLNode->lastChild()); }),
        91);
}

}  // namespace
}  // namespace tavisk
