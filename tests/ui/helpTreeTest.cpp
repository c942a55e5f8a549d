#include <vector>

#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::TreeWindow;

constexpr const char* twoBranches = "<one><two><three/></two></one><four><five/></four>";

/// Every row, shown or not, as the control gets it when it asks the model: level and name.
std::vector<std::string> modelRows(const HelpTree& tree) {
    std::vector<std::string> rows;
    for (const test::ModelRow& row : test::modelRows(tree))
        rows.push_back(std::to_string(row.level) + " " + row.name);
    return rows;
}

TEST(HelpTree, HasARowForEveryNodeBelowCabinet) {
    TreeWindow window("<one><two/>text<!--note--><?do it?></one><my_node/>");
    EXPECT_EQ(modelRows(*window.tree), (std::vector<std::string>{"0 cabinet", "1 one", "2 two",
                                                                 "2 ", "2 ", "2 do", "1 my node"}));
}

TEST(HelpTree, ShowsTheTopRowAndTheStartNodeExpanded) {
    TreeWindow window(twoBranches);
    EXPECT_EQ(window.rows(),
              "cabinet -\n"
              " one -\n"
              "  two +\n"
              " four +\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>one");
    EXPECT_EQ(window.selections, 0);
}

TEST(HelpTree, ExpandsTheRowsAboveTheStartNode) {
    TreeWindow window("<a/>");
    window.tree->detach();
    window.core.load(
        "<cabinetinfo><cabinet><one><two><three><four/></three></two></one></cabinet>"
        "<location value='cabinet=>one=>two=>three'/></cabinetinfo>");
    window.tree->attach(window.core.session);
    test::pumpPending();
    EXPECT_EQ(window.rows(),
              "cabinet -\n"
              " one -\n"
              "  two -\n"
              "   three -\n"
              "    four\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>one=>two=>three");
}

TEST(HelpTree, ScrollsToTheStartNode) {
    std::string nodes;
    for (int i = 0; i < 200; ++i)
        nodes += "<n" + std::to_string(i) + "/>";
    TreeWindow window("<a/>");
    window.tree->detach();
    window.core.load("<cabinetinfo><cabinet>" + nodes +
                     "</cabinet><location value='cabinet=>n150'/></cabinetinfo>");
    window.tree->attach(window.core.session);
    EXPECT_TRUE(test::pumpUntil(
        [&] { return window.isVisible("cabinet=>n150") && !window.isVisible("cabinet=>n0"); }));
}

TEST(HelpTree, AMarkerAmongTheRowsIsNoRowAfterLoading) {
    // Loading selects the marker, its row, and then takes it out of the document.
    TreeWindow window("<one/><location value='cabinet=>location'/><two/>");
    EXPECT_EQ(window.rows(), "cabinet -\n one\n two\n");
    EXPECT_EQ(window.selectedKey(), "");
}

TEST(HelpTree, ATextNodeIsARowWithoutText) {
    TreeWindow window("<one>some text</one>");
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  \n");
    window.tree->choose(*window.core.row("cabinet=>one").firstChild());
    EXPECT_EQ(window.selectedKey(), "cabinet=>one=>");
}

TEST(HelpTree, UnderscoresAreShownAsSpaces) {
    TreeWindow window("<my_long_node/>");
    EXPECT_EQ(window.rows(), "cabinet -\n my long node\n");
}

TEST(HelpTree, ShowsNamesOfAnyScript) {
    TreeWindow window("<übung/><номер/><名前/>");
    EXPECT_EQ(window.rows(), "cabinet -\n übung\n номер\n 名前\n");
}

TEST(HelpTree, OfTwoRowsOfOneNameTheClickedOneIsSelected) {
    TreeWindow window("<same id='1'/><same id='2'/>");
    dom::Node& second = *window.core.session.file.baseXMLNode->lastChild();
    window.tree->choose(second);
    EXPECT_EQ(window.tree->selected(), &second);
    EXPECT_EQ(window.core.session.selectedRow, &second);
    EXPECT_EQ(window.core.session.currentnode, window.core.session.file.baseXMLNode->firstChild());
}

TEST(HelpTree, SelectingFromCodeRunsNoHandler) {
    TreeWindow window(twoBranches);
    window.tree->select(window.core.row("cabinet=>four=>five"));
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet=>four=>five");
    EXPECT_TRUE(window.isExpanded("cabinet=>four"));
    EXPECT_EQ(window.selections, 0);
}

TEST(HelpTree, ShowsNothingWhenDetached) {
    TreeWindow window(twoBranches);
    window.tree->detach();
    window.core.session.unload();
    test::pumpPending();
    EXPECT_EQ(window.rows(), "");
    EXPECT_EQ(window.tree->selected(), nullptr);
}

TEST(HelpTree, ShowsAnotherDocumentAfterwards) {
    TreeWindow window(twoBranches);
    window.tree->detach();
    window.core.loadNodes("<other/>");
    window.tree->attach(window.core.session);
    test::pumpPending();
    EXPECT_EQ(window.rows(), "cabinet -\n other\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>other");
}

TEST(HelpTree, AttachingAgainShowsTheSelectedRow) {
    TreeWindow window(twoBranches);
    window.core.select("cabinet=>four=>five");
    window.tree->attach(window.core.session);
    test::pumpPending();
    EXPECT_EQ(window.selectedKey(), "cabinet=>four=>five");
}

TEST(HelpTree, ADeepRowIsScrolledIntoViewFromTheSide) {
    std::string open;
    std::string close;
    std::string key = "cabinet";
    for (int i = 0; i < 60; ++i) {
        open += "<level>";
        close += "</level>";
        key += "=>level";
    }
    TreeWindow window(open + close);
    window.tree->select(window.core.row(key));
    const auto isInside = [&] {
        const wxRect row = window.tree->GetItemRect(window.item(key), nullptr);
        return row.x > 0 && row.x < window.tree->GetClientSize().x;
    };
    EXPECT_TRUE(test::pumpUntil(isInside));
}

TEST(HelpTree, ALongNameMakesRoomForItself) {
    const std::string name(300, 'n');
    TreeWindow window("<" + name + "/>");
    EXPECT_TRUE(test::pumpUntil([&] { return test::hiddenWidth(*window.tree) > 0; }));
}

TEST(HelpTree, FindsTheRowUnderThePointer) {
    TreeWindow window(twoBranches);
    wxDataViewItem item;
    wxDataViewColumn* column = nullptr;
    const wxRect place = window.tree->GetItemRect(window.item("cabinet=>four"), nullptr);
    window.tree->HitTest(place.GetPosition() + wxPoint(3, 3), item, column);
    EXPECT_EQ(item, window.item("cabinet=>four"));
    window.tree->HitTest(wxPoint(3, 450), item, column);
    EXPECT_FALSE(item.IsOk());
}

TEST(HelpTree, AScreenReaderHasTheRowsAsATree) {
    TreeWindow window(twoBranches);
    EXPECT_EQ(test::toldRows(*window.tree), "tree: cabinet|one|two|four|");
}

}  // namespace
}  // namespace tavisk
