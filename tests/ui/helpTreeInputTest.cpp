// Selecting with the mouse and the keyboard.
#include <wx/menu.h>

#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::TreeWindow;

constexpr const char* twoBranches = "<one><two><three/></two></one><four><five/></four>";

TEST(HelpTreeInput, AClickSelectsAndRunsTheHandlerOnce) {
    TreeWindow window(twoBranches);
    window.click("cabinet=>four");
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    test::pumpPending();
    EXPECT_EQ(window.selections, 1);
    EXPECT_EQ(window.core.selectedKey(), "cabinet=>four");
}

TEST(HelpTreeInput, AClickOnTheSelectedRowRunsNoHandler) {
    TreeWindow window(twoBranches);
    window.click("cabinet=>one");
    window.click("cabinet=>four");
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    EXPECT_EQ(window.selections, 1);
}

TEST(HelpTreeInput, AClickWithTheControlKeyLeavesTheRowSelected) {
    TreeWindow window(twoBranches);
    window.user.KeyDown(WXK_CONTROL);
    window.click("cabinet=>one");
    window.user.KeyUp(WXK_CONTROL);
    window.click("cabinet=>four");
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    window.user.KeyDown(WXK_CONTROL);
    window.click("cabinet=>one");
    window.user.KeyUp(WXK_CONTROL);
    EXPECT_TRUE(window.waitForSelection("cabinet=>one"));
    window.user.KeyDown(WXK_CONTROL);
    window.click("cabinet=>one");
    window.user.KeyUp(WXK_CONTROL);
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet=>one");
    EXPECT_EQ(window.selections, 2);
}

TEST(HelpTreeInput, TheRightButtonSelectsToo) {
    TreeWindow window(twoBranches);
    const wxRect place = window.tree->GetItemRect(window.item("cabinet=>four"), nullptr);
    window.user.MouseMove(window.tree->ClientToScreen(place.GetPosition() + wxPoint(5, 5)));
    window.user.MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    test::pumpPending();
    EXPECT_EQ(window.selections, 1);
}

TEST(HelpTreeInput, UpAndDownSelectTheRowsInOrder) {
    TreeWindow window(twoBranches);
    window.press(WXK_DOWN);
    EXPECT_TRUE(window.waitForSelection("cabinet=>one=>two"));
    window.press(WXK_DOWN);
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    window.press(WXK_UP);
    EXPECT_TRUE(window.waitForSelection("cabinet=>one=>two"));
    test::pumpPending();
    EXPECT_EQ(window.selections, 3);
    EXPECT_EQ(window.core.selectedKey(), "cabinet=>one=>two");
}

TEST(HelpTreeInput, HomeAndEndSelectTheFirstAndTheLastRow) {
    TreeWindow window(twoBranches);
    window.press(WXK_END);
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    window.press(WXK_HOME);
    EXPECT_TRUE(window.waitForSelection("cabinet"));
    test::pumpPending();
    EXPECT_EQ(window.selections, 2);
}

TEST(HelpTreeInput, RightExpandsAndThenGoesToTheFirstChild) {
    TreeWindow window(twoBranches);
    window.tree->choose(window.core.row("cabinet=>four"));
    window.press(WXK_RIGHT);
    EXPECT_TRUE(test::pumpUntil([&] { return window.isExpanded("cabinet=>four"); }));
    EXPECT_EQ(window.selectedKey(), "cabinet=>four");
    window.press(WXK_RIGHT);
    EXPECT_TRUE(window.waitForSelection("cabinet=>four=>five"));
    window.press(WXK_RIGHT);
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet=>four=>five");
    EXPECT_EQ(window.selections, 2);
}

TEST(HelpTreeInput, LeftCollapsesAndThenGoesToTheRowAbove) {
    TreeWindow window(twoBranches);
    window.press(WXK_LEFT);
    EXPECT_TRUE(test::pumpUntil([&] { return !window.isExpanded("cabinet=>one"); }));
    EXPECT_EQ(window.selectedKey(), "cabinet=>one");
    window.press(WXK_LEFT);
    EXPECT_TRUE(window.waitForSelection("cabinet"));
    window.press(WXK_LEFT);
    EXPECT_TRUE(test::pumpUntil([&] { return !window.isExpanded("cabinet"); }));
    window.press(WXK_LEFT);
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet");
    EXPECT_EQ(window.selections, 1);
}

TEST(HelpTreeInput, CollapsingARowAboveTheSelectedOneSelectsIt) {
    TreeWindow window(twoBranches);
    window.tree->choose(window.core.row("cabinet=>one=>two=>three"));
    window.selections = 0;
    window.collapse("cabinet=>one");
    EXPECT_TRUE(window.waitForSelection("cabinet=>one"));
    test::pumpPending();
    EXPECT_EQ(window.selections, 1);
    EXPECT_EQ(window.core.selectedKey(), "cabinet=>one");
}

TEST(HelpTreeInput, EnterOpensAndClosesARow) {
    TreeWindow window(twoBranches);
    window.press(WXK_RETURN);
    EXPECT_TRUE(test::pumpUntil([&] { return !window.isExpanded("cabinet=>one"); }));
    window.press(WXK_RETURN);
    EXPECT_TRUE(test::pumpUntil([&] { return window.isExpanded("cabinet=>one"); }));
}

TEST(HelpTreeInput, ADoubleClickOpensAndClosesARow) {
    TreeWindow window(twoBranches);
    window.click("cabinet=>four");
    EXPECT_TRUE(window.waitForSelection("cabinet=>four"));
    window.user.MouseDblClick();
    EXPECT_TRUE(test::pumpUntil([&] { return window.isExpanded("cabinet=>four"); }));
    EXPECT_EQ(window.selections, 1);
}

TEST(HelpTreeInput, TypingANameSelectsIt) {
    TreeWindow window("<one/><two/><three/><Four_more/>");
    window.user.Text("thr");
    EXPECT_TRUE(window.waitForSelection("cabinet=>three"));
    EXPECT_EQ(window.core.selectedKey(), "cabinet=>three");
}

TEST(HelpTreeInput, TypingLooksForNamesAsShownInAnyLetterCase) {
    TreeWindow window("<one/><four/><Four_more/>");
    window.user.Text("four m");
    EXPECT_TRUE(window.waitForSelection("cabinet=>Four more"));
}

TEST(HelpTreeInput, OneLetterAgainAndAgainGoesThroughItsNames) {
    TreeWindow window("<one/><two/><three/>");
    window.user.Text("t");
    EXPECT_TRUE(window.waitForSelection("cabinet=>two"));
    window.user.Text("t");
    EXPECT_TRUE(window.waitForSelection("cabinet=>three"));
    window.user.Text("t");
    EXPECT_TRUE(window.waitForSelection("cabinet=>two"));
}

TEST(HelpTreeInput, TypingFindsNoRowThatIsHidden) {
    TreeWindow window("<one/><two><three/></two>");
    window.user.Text("th");
    EXPECT_TRUE(window.waitForSelection("cabinet=>two"));
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet=>two");
}

TEST(HelpTreeInput, KeysOfTheMenuWorkWhileANameIsTyped) {
    TreeWindow window("<one/><two/><three/>");
    auto* const menu = new wxMenu;
    constexpr int rename = 1001;
    constexpr int remove = 1002;
    menu->Append(rename, "&Rename\tF2");
    menu->Append(remove, "&Delete\tDel");
    auto* const bar = new wxMenuBar;
    bar->Append(menu, "&Nodes");
    window.frame->SetMenuBar(bar);
    int chosen = 0;
    window.frame->Bind(wxEVT_MENU, [&](wxCommandEvent& event) { chosen = event.GetId(); });
    window.user.Text("th");
    EXPECT_TRUE(window.waitForSelection("cabinet=>three"));
    window.press(WXK_F2);
    EXPECT_TRUE(test::pumpUntil([&] { return chosen == rename; }));
    window.press(WXK_DELETE);
    EXPECT_TRUE(test::pumpUntil([&] { return chosen == remove; }));
}

TEST(HelpTreeInput, AnErrorInTheHandlerLeavesTheClickedRowSelected) {
    TreeWindow window("<one/><two style='bold'/>");
    window.click("cabinet=>two");
    EXPECT_TRUE(window.waitForSelection("cabinet=>two"));
    EXPECT_EQ(window.error, 13);
}

}  // namespace
}  // namespace tavisk
