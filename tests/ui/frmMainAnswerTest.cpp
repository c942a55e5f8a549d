// The answer text in the editor window: typing, colours, and the insertions.
#include <gtest/gtest.h>

#include "ui/support/answerWindow.h"
#include "ui/support/editorStep.h"
#include "ui/support/editorWindow.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using test::shownColours;

constexpr const char* overflow = "Overflow";
constexpr const char* badArgument = "Invalid procedure call or argument";
constexpr const char* pathPrompt = "Please enter the path to the image (EG: C:\\test.jpg)";
constexpr std::size_t longest = 32767;

/// Two pictures and two formulas; nothing is chosen of the pictures at first.
constexpr const char* lists =
    R"(<image name="pic"/><image name="logo"/><formula name="Rate" standard="1"/>)"
    R"(<formula name="x&lt;y" standard="1"/>)";

struct FrmMainAnswer : testing::Test {
    test::ToolkitComplaints complaints;
};

AnswerBox& box(EditorWindow& editor) { return *editor.controls().txtValue; }

/// Of short words, because laying out a long one takes this toolkit seconds.
std::string words(std::size_t length) {
    std::string text(length, 'x');
    for (std::size_t i = 0; i < length; i += 8)
        text[i] = ' ';
    return text;
}

std::u16string words16(std::size_t length) { return toUtf16(words(length)); }

std::string text(EditorWindow& editor) { return utf8Of(box(editor).GetValue()); }

std::string value(EditorWindow& editor) {
    return std::string(GetAttributeValue(editor.session().currentnode, "value", "(none)"));
}

TEST_F(FrmMainAnswer, MarkersAreColouredByTheirKindAndTheCaretStays) {
    EditorWindow editor("<a/>");
    editor.type(u"a `~pic` b `x` c `!ov` d");
    EXPECT_EQ(shownColours(box(editor)), "..bbbbbb...ooo...ggggg..");
    box(editor).SetInsertionPoint(5);
    box(editor).WriteText("z");
    EXPECT_EQ(text(editor), "a `~pzic` b `x` c `!ov` d");
    EXPECT_EQ(shownColours(box(editor)), "..bbbbbbb...ooo...ggggg..");
    EXPECT_EQ(box(editor).GetInsertionPoint(), 6);
    EXPECT_EQ(value(editor), "a `~pzic` b `x` c `!ov` d");
}

TEST_F(FrmMainAnswer, LoneLastBackquoteStaysBlack) {
    EditorWindow editor("<a/>");
    editor.type(u"`@p.jpg` `");
    EXPECT_EQ(shownColours(box(editor)), "bbbbbbbb..");
}

TEST_F(FrmMainAnswer, EmptyMarkerIsAFormulas) {
    EditorWindow editor("<a/>");
    editor.type(u"a``b");
    EXPECT_EQ(shownColours(box(editor)), ".oo.");
}

TEST_F(FrmMainAnswer, SelectedNodesTextIsColoured) {
    EditorWindow editor("<a value=\"`x`\"/><b value=\"a `~p`\"/>");
    EXPECT_EQ(shownColours(box(editor)), "ooo");
    editor.select("cabinet=>b");
    EXPECT_EQ(shownColours(box(editor)), "..bbbb");
}

TEST_F(FrmMainAnswer, EveryChangeIsWrittenAtOnce) {
    EditorWindow editor("<a/>");
    box(editor).WriteText("o");
    EXPECT_EQ(value(editor), "o");
    box(editor).WriteText("k\n");
    EXPECT_EQ(value(editor), "ok\n");
    box(editor).Remove(0, 3);
    EXPECT_EQ(editor.current(), R"(<a value=""/>)");
}

TEST_F(FrmMainAnswer, EachNodeHasItsOwnText) {
    EditorWindow editor("<a/><b/>");
    editor.type(u"one");
    editor.select("cabinet=>b");
    editor.type(u"two");
    editor.select("cabinet=>a");
    EXPECT_EQ(text(editor), "one");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="one"/><b value="two"/></cabinet>)");
}

TEST_F(FrmMainAnswer, WithoutANodeTypingColoursTheTextAndWritesNothing) {
    EditorWindow editor("<a/>");
    editor.session().currentnode = nullptr;
    editor.type(u"`x` y");
    EXPECT_EQ(shownColours(box(editor)), "ooo..");
    EXPECT_EQ(text(editor), "`x` y");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, ImageAtTheCursorReplacesTheSelection) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    editor.choose(editor.controls().lstImages, 0);
    box(editor).SetSelection(3, 5);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(text(editor), "hel`~pic`");
    EXPECT_EQ(shownColours(box(editor)), "...bbbbbb");
    EXPECT_EQ(value(editor), "hel`~pic`");
}

TEST_F(FrmMainAnswer, ImageAtTheCursorBetweenCharactersThatTakeTwoUnits) {
    EditorWindow editor("<a value=\"\U0001F600\U0001F600\"/>", lists);
    editor.choose(editor.controls().lstImages, 0);
    test::selectCharacters(box(editor), 1, 1);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(text(editor), "\U0001F600`~pic`\U0001F600");
    EXPECT_EQ(shownColours(box(editor)), ".bbbbbb.");
    EXPECT_EQ(box(editor).selection().start, 8u);
    EXPECT_EQ(box(editor).selection().length, 0u);
}

TEST_F(FrmMainAnswer, ImageAtTheEndLeavesTheSelectedTextWhereItIs) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    editor.choose(editor.controls().lstImages, 1);
    box(editor).SetSelection(0, 5);
    editor.click(editor.controls().cmdAppendImage);
    EXPECT_EQ(text(editor), "hello`~logo`");
    EXPECT_EQ(value(editor), "hello`~logo`");
    EXPECT_EQ(shownColours(box(editor)), ".....bbbbbbb");
}

TEST_F(FrmMainAnswer, OverlayIsAppendedWhereverTheCursorIs) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    editor.choose(editor.controls().lstImages, 1);
    box(editor).SetInsertionPoint(0);
    editor.click(editor.controls().cmdImageOverlay);
    EXPECT_EQ(text(editor), "hello`!logo`");
    EXPECT_EQ(value(editor), "hello`!logo`");
    EXPECT_EQ(shownColours(box(editor)), ".....ggggggg");
}

TEST_F(FrmMainAnswer, FormulaAtTheCursorReplacesTheSelection) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    box(editor).SetSelection(1, 4);
    editor.click(editor.controls().cmdInsertFormulaAtCursor);
    EXPECT_EQ(text(editor), "h`Rate`o");
    EXPECT_EQ(value(editor), "h`Rate`o");
    EXPECT_EQ(shownColours(box(editor)), ".oooooo.");
}

TEST_F(FrmMainAnswer, FormulaAtTheEnd) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    editor.choose(editor.controls().lstFormulas, 1);
    editor.click(editor.controls().cmdInsertFormulaAtEnd);
    EXPECT_EQ(text(editor), "hello`x<y`");
    EXPECT_EQ(value(editor), "hello`x<y`");
}

TEST_F(FrmMainAnswer, ExternalImageAtTheCursorReplacesTheSelection) {
    EditorWindow editor(R"(<a value="hello"/>)");
    box(editor).SetSelection(3, 5);
    editor.dialogs.expectPrompt(pathPrompt, "External image", "", "C:\\a b.jpg");
    editor.click(editor.controls().cmdExternImage);
    EXPECT_EQ(text(editor), "hel`@C:\\a b.jpg`");
    EXPECT_EQ(value(editor), "hel`@C:\\a b.jpg`");
    EXPECT_EQ(shownColours(box(editor)), "...bbbbbbbbbbbbb");
}

TEST_F(FrmMainAnswer, ExternalImageWithoutAnAnswerChangesAndWritesNothing) {
    EditorWindow editor("<a/>");
    editor.dialogs.expectPrompt(pathPrompt, "External image", "", "");
    editor.click(editor.controls().cmdExternImage);
    EXPECT_EQ(text(editor), "");
    EXPECT_EQ(editor.current(), "<a/>");
}

TEST_F(FrmMainAnswer, WithNoImageChosenTwoBackquotesAreInserted) {
    EditorWindow editor(R"(<a value="ab"/>)", lists);
    box(editor).SetInsertionPoint(1);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(value(editor), "a``b");
    editor.click(editor.controls().cmdAppendImage);
    EXPECT_EQ(value(editor), "a``b``");
    EXPECT_EQ(shownColours(box(editor)), ".oo.oo");
}

TEST_F(FrmMainAnswer, WithNoImageChosenTheOverlayIsReportedAndNothingChanges) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    box(editor).SetSelection(1, 3);
    editor.expectReport(5, badArgument);
    editor.click(editor.controls().cmdImageOverlay);
    EXPECT_EQ(text(editor), "hello");
    EXPECT_EQ(box(editor).GetStringSelection(), "el");
    EXPECT_EQ(editor.current(), R"(<a value="hello"/>)");
    EXPECT_TRUE(editor.window->IsShown());
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, AnInsertionRunsNoHandlerOfTheBox) {
    EditorWindow editor(R"(<a value="hello"/>)", lists);
    int changes = 0;
    box(editor).Bind(wxEVT_TEXT, [&](wxCommandEvent& event) {
        ++changes;
        event.Skip();
    });
    box(editor).SetSelection(1, 3);
    editor.click(editor.controls().cmdInsertImage);
    editor.click(editor.controls().cmdInsertFormulaAtEnd);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(value(editor), "h``lo`Rate`");
    box(editor).WriteText("x");
    EXPECT_EQ(changes, 1);
}

TEST_F(FrmMainAnswer, InsertionsOneAfterTheOtherStandInTheirOrder) {
    EditorWindow editor("<a/>", lists);
    editor.choose(editor.controls().lstImages, 0);
    editor.click(editor.controls().cmdInsertImage);
    editor.click(editor.controls().cmdInsertFormulaAtCursor);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(value(editor), "`~pic``Rate``~pic`");
}

TEST_F(FrmMainAnswer, LockedNodesTextCannotBeTouched) {
    EditorWindow editor("<a/><cabinetdata><b/></cabinetdata>", lists);
    editor.select("cabinet=>cabinetdata=>b");
    const EditorControls& controls = editor.controls();
    EXPECT_FALSE(controls.txtValue->IsEnabled());
    EXPECT_FALSE(controls.lstImages->IsEnabled());
    EXPECT_FALSE(controls.lstFormulas->IsEnabled());
    for (const wxButton* button :
         {controls.cmdInsertImage, controls.cmdAppendImage, controls.cmdImageOverlay,
          controls.cmdExternImage, controls.cmdInsertFormulaAtCursor,
          controls.cmdInsertFormulaAtEnd})
        EXPECT_FALSE(button->IsEnabled()) << button->GetName();
}

TEST_F(FrmMainAnswer, LongestTextIsWritten) {
    EditorWindow editor("<a/>");
    editor.type(words16(longest));
    EXPECT_EQ(value(editor), words(longest));
}

TEST_F(FrmMainAnswer, OneCharacterMoreIsReportedAndTheNodeKeepsItsText) {
    EditorWindow editor("<a/>");
    editor.type(words16(longest));
    box(editor).SetInsertionPointEnd();
    editor.expectReport(6, overflow);
    box(editor).WriteText("y");
    EXPECT_EQ(value(editor), words(longest));
    EXPECT_EQ(text(editor), words(longest) + "y");
    EXPECT_TRUE(editor.window->IsShown());
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, AShortenedTextIsWrittenAndColouredAgain) {
    EditorWindow editor(R"(<a value="before"/>)");
    editor.expectReport(6, overflow);
    editor.type(u"`x`" + words16(longest - 2));
    EXPECT_EQ(value(editor), "before");
    EXPECT_EQ(text(editor).size(), longest + 1);
    box(editor).Remove(10, static_cast<long>(longest) + 1);
    EXPECT_EQ(value(editor), "`x` xxxxxx");
    EXPECT_EQ(shownColours(box(editor)), "ooo.......");
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, EveryChangeOfATextThatIsTooLongIsReported) {
    EditorWindow editor("<a/>");
    editor.expectReport(6, overflow);
    editor.type(words16(longest + 2));
    editor.expectReport(6, overflow);
    box(editor).Remove(0, 1);
    EXPECT_EQ(value(editor), "(none)");
    box(editor).Remove(0, 1);
    EXPECT_EQ(value(editor).size(), longest);
}

TEST_F(FrmMainAnswer, SelectingAnotherNodeDropsATextThatIsTooLong) {
    EditorWindow editor(R"(<a value="last good"/><b/>)");
    editor.expectReport(6, overflow);
    editor.type(words16(longest + 1));
    editor.select("cabinet=>b");
    EXPECT_EQ(text(editor), "");
    editor.select("cabinet=>a");
    EXPECT_EQ(text(editor), "last good");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a value="last good"/><b value=""/></cabinet>)");
}

TEST_F(FrmMainAnswer, InsertionBeyondTheLongestTextIsReportedAndTheNodeKeepsItsText) {
    const std::string most = words(longest - 1);
    EditorWindow editor("<a value=\"" + most + "\"/>");
    box(editor).SetInsertionPoint(0);
    editor.expectReport(6, overflow);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(value(editor), most);
    EXPECT_EQ(text(editor), "``" + most);
    box(editor).Remove(0, 1);
    EXPECT_EQ(value(editor), "`" + most);
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, InsertionBehindTheLastPositionIsReportedAndChangesNothing) {
    const std::string most = words(longest);
    EditorWindow editor("<a value=\"" + most + "\"/>");
    box(editor).SetInsertionPointEnd();
    editor.expectReport(6, overflow);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(text(editor), most);
    EXPECT_EQ(value(editor), most);
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, ForbiddenCharacterIsReportedAndStaysInTheBoxUntilItIsTakenOut) {
    EditorWindow editor(R"(<a value="ab"/>)");
    box(editor).SetInsertionPoint(1);
    editor.expectReport(5, badArgument);
    box(editor).WriteText("\x01`x`");
    EXPECT_EQ(value(editor), "ab");
    EXPECT_EQ(text(editor), "a\x01`x`b");
    box(editor).Remove(1, 2);
    EXPECT_EQ(value(editor), "a`x`b");
    EXPECT_EQ(shownColours(box(editor)), ".ooo.");
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, InsertionIntoATextWithAForbiddenCharacterIsReportedAndNothingIsLost) {
    EditorWindow editor(R"(<a value="ab"/>)");
    box(editor).SetInsertionPointEnd();
    editor.expectReport(5, badArgument);
    box(editor).WriteText("\x01");
    editor.expectReport(5, badArgument);
    editor.click(editor.controls().cmdInsertImage);
    EXPECT_EQ(text(editor), "ab\x01``");
    EXPECT_EQ(value(editor), "ab");
    box(editor).Remove(2, 3);
    EXPECT_EQ(value(editor), "ab``");
    expectInStep(editor);
}

TEST_F(FrmMainAnswer, WhileAnErrorIsReportedTheBoxKeepsWhatWasTyped) {
    EditorWindow editor("<a/>");
    std::string shown;
    editor.expectReport(5, badArgument);
    editor.dialogs.during([&] { shown = text(editor); });
    box(editor).WriteText("\x02 ");
    EXPECT_EQ(shown, "\x02 ");
}

TEST_F(FrmMainAnswer, FormattingAfterAFailedChangeLeavesTheTextInTheBox) {
    EditorWindow editor(R"(<a value="ab"/>)");
    editor.expectReport(5, badArgument);
    editor.type(u"ab\u0001");
    editor.tick(editor.controls().chkStyle.at(1), true);
    EXPECT_EQ(text(editor), "ab\x01");
    EXPECT_EQ(editor.current(), R"(<a value="ab" style="1"/>)");
    expectInStep(editor);
}

}  // namespace
}  // namespace tavisk
