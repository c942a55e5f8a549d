// Selecting with the mouse and the keyboard.
#include "windows/support/treeWindow.h"

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

TEST(HelpTreeInput, TypingANameSelectsIt) {
    TreeWindow window("<one/><two/><three/><four/>");
    window.user.Text("thr");
    EXPECT_TRUE(window.waitForSelection("cabinet=>three"));
    EXPECT_EQ(window.core.selectedKey(), "cabinet=>three");
}

TEST(HelpTreeInput, AnErrorInTheHandlerLeavesTheClickedRowSelected) {
    TreeWindow window("<one/><two style='bold'/>");
    window.click("cabinet=>two");
    EXPECT_TRUE(window.waitForSelection("cabinet=>two"));
    EXPECT_EQ(window.error, 13);
}

}  // namespace
}  // namespace tavisk
