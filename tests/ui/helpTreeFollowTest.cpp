// The rows after each command on nodes: they are those of the document, rows that were expanded
// stay so, and the session's selected row is selected.
#include <stdexcept>

#include "editor/imageCommands.h"
#include "editor/nodeOperations.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using test::TreeWindow;

constexpr const char* branches = "<one><two><three/></two></one><four><five/></four><six/>";

class HelpTreeFollow : public testing::Test {
protected:
    HelpTreeFollow() {
        window.expand("cabinet=>one=>two");
        window.expand("cabinet=>four");
    }

    test::ScriptedDialogs& dialogs() { return window.core.dialogs; }
    void typing(const std::string& prompt, const std::string& unchanged, const std::string& name) {
        dialogs().expectPrompt(prompt, "Rename Node", unchanged, name);
    }
    void removing() {
        dialogs().expectBox(
            "All child nodes will also be deleted. Are you sure you want to do this?", "Warning...",
            BoxStyle::okCancelQuestion);
    }
    static auto moving(int steps) {
        return
            [steps](HelpSession& session, Dialogs& dialogs) { moveNode(session, steps, dialogs); };
    }

    TreeWindow window{branches};
};

TEST_F(HelpTreeFollow, NothingChangesWhenTheUserGivesUp) {
    typing("Enter the name for the new node:", "", "");
    window.run("cabinet=>four", addChild);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n four -\n  five\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>four");
}

TEST_F(HelpTreeFollow, AnAddedSiblingIsTheLastAndSelected) {
    typing("Enter the name for the new node:", "", "new");
    window.run("cabinet=>one", addSibling);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n four -\n  five\n six\n new\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>new");
    EXPECT_EQ(window.selections, 0);
}

TEST_F(HelpTreeFollow, AnAddedChildIsShownBelowItsExpandedParent) {
    typing("Enter the name for the new node:", "", "new");
    window.run("cabinet=>six", addChild);
    EXPECT_EQ(window.rows(),
              "cabinet -\n one -\n  two -\n   three\n four -\n  five\n six -\n  new\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>six=>new");
}

TEST_F(HelpTreeFollow, AnAddedChildOfACollapsedRowExpandsIt) {
    window.collapse("cabinet=>four");
    typing("Enter the name for the new node:", "", "new");
    window.run("cabinet=>four", addChild);
    EXPECT_EQ(window.rows(),
              "cabinet -\n one -\n  two -\n   three\n four -\n  five\n  new\n six\n");
}

TEST_F(HelpTreeFollow, AnAddedRowIsScrolledIntoView) {
    std::string nodes;
    for (int i = 0; i < 100; ++i)
        nodes += "<n" + std::to_string(i) + "/>";
    TreeWindow tall(nodes);
    tall.core.dialogs.expectPrompt("Enter the name for the new node:", "Rename Node", "", "new");
    tall.run("cabinet=>n0", addSibling);
    EXPECT_TRUE(test::pumpUntil([&] { return tall.isVisible("cabinet=>new"); }));
}

TEST_F(HelpTreeFollow, ARenamedRowKeepsWhatIsExpandedBelowIt) {
    typing("Enter the new name for the node:", "one", "uno");
    window.run("cabinet=>one", renameNode);
    EXPECT_EQ(window.rows(), "cabinet -\n uno -\n  two -\n   three\n four -\n  five\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>uno");
    EXPECT_EQ(window.selections, 0);
}

TEST_F(HelpTreeFollow, ARenamedCollapsedRowStaysCollapsed) {
    window.collapse("cabinet=>four");
    typing("Enter the new name for the node:", "four", "vier");
    window.run("cabinet=>four", renameNode);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n vier +\n six\n");
}

TEST_F(HelpTreeFollow, TheTopRowCanBeRenamed) {
    typing("Enter the new name for the node:", "cabinet", "cupboard");
    window.run("cabinet", renameNode);
    EXPECT_EQ(window.rows(), "cupboard -\n one -\n  two -\n   three\n four -\n  five\n six\n");
    EXPECT_EQ(window.tree->selected(), window.core.session.file.baseXMLNode);
}

TEST_F(HelpTreeFollow, BelowARenamedTopRowTheTreeWorksOn) {
    typing("Enter the new name for the node:", "cabinet", "cupboard");
    window.run("cabinet", renameNode);
    window.run("cupboard=>six", moving(moveToTop));
    EXPECT_EQ(window.rows(), "cupboard -\n six\n one -\n  two -\n   three\n four -\n  five\n");
}

TEST_F(HelpTreeFollow, ADeletedRowIsGoneAndItsParentSelected) {
    removing();
    window.run("cabinet=>one=>two", deleteNode);
    EXPECT_EQ(window.rows(), "cabinet -\n one\n four -\n  five\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>one");
    EXPECT_EQ(window.selections, 0);
}

TEST_F(HelpTreeFollow, ADeletedBranchTakesItsRowsAlong) {
    removing();
    window.run("cabinet=>one", deleteNode);
    EXPECT_EQ(window.rows(), "cabinet -\n four -\n  five\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet");
}

TEST_F(HelpTreeFollow, TheLastRowCanBeDeleted) {
    window.run("cabinet=>six", deleteNode);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n four -\n  five\n");
}

TEST_F(HelpTreeFollow, OfTwoRowsOfOneNameTheOneThatWasDeletedGoes) {
    TreeWindow twins("<same><a/></same><same><b/></same><last/>");
    dom::Node& second = *twins.core.row("cabinet=>same").next();
    twins.tree->Expand(wxDataViewItem(&second));
    selectNode(twins.core.session, second);
    // A click on the second leads to the first.
    twins.core.dialogs.expectBox(
        "All child nodes will also be deleted. Are you sure you want to do this?", "Warning...",
        BoxStyle::okCancelQuestion);
    twins.tree->run([&] { deleteNode(twins.core.session, twins.core.dialogs); });
    test::pumpPending();
    EXPECT_EQ(twins.rows(), "cabinet -\n same -\n  b\n last\n");
}

TEST_F(HelpTreeFollow, AMovedRowIsExpandedAndTheOthersStay) {
    window.collapse("cabinet=>four");
    window.run("cabinet=>four", moving(1));
    EXPECT_EQ(window.rows(), "cabinet -\n four -\n  five\n one -\n  two -\n   three\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>four");
    EXPECT_EQ(window.selections, 0);
}

TEST_F(HelpTreeFollow, AMovedRowKeepsWhatIsExpandedBelowIt) {
    window.run("cabinet=>one", moving(-1));
    EXPECT_EQ(window.rows(), "cabinet -\n four -\n  five\n one -\n  two -\n   three\n six\n");
}

TEST_F(HelpTreeFollow, ARowCanBeMovedToTheTopAndToTheBottom) {
    window.run("cabinet=>six", moving(moveToTop));
    EXPECT_EQ(window.rows(), "cabinet -\n six\n one -\n  two -\n   three\n four -\n  five\n");
    window.run("cabinet=>one", moving(moveToBottom));
    EXPECT_EQ(window.rows(), "cabinet -\n six\n four -\n  five\n one -\n  two -\n   three\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>one");
}

TEST_F(HelpTreeFollow, ARowThatCannotMoveStaysAsItIs) {
    dialogs().expectBox("This node is already at the top", "Cannot Move", BoxStyle::okInformation);
    window.collapse("cabinet=>one");
    window.run("cabinet=>one", moving(1));
    EXPECT_EQ(window.rows(), "cabinet -\n one +\n four -\n  five\n six\n");
}

TEST_F(HelpTreeFollow, APastedBranchIsCollapsedAndTheSelectionStays) {
    window.core.select("cabinet=>one");
    copyNode(window.core.session);
    window.run("cabinet=>four", pasteNode);
    EXPECT_EQ(window.rows(),
              "cabinet -\n one -\n  two -\n   three\n four -\n  five\n  one +\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet=>four");
}

TEST_F(HelpTreeFollow, APastedBranchCanBeOpened) {
    window.core.select("cabinet=>one");
    copyNode(window.core.session);
    window.run("cabinet=>six", pasteNode);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n four -\n  five\n six +\n");
    window.expand("cabinet=>six=>one=>two");
    test::pumpPending();
    EXPECT_EQ(window.rows(),
              "cabinet -\n one -\n  two -\n   three\n four -\n  five\n"
              " six -\n  one -\n   two -\n    three\n");
}

TEST_F(HelpTreeFollow, ACutRowIsGone) {
    removing();
    window.run("cabinet=>four", cutNode);
    EXPECT_EQ(window.rows(), "cabinet -\n one -\n  two -\n   three\n six\n");
    EXPECT_EQ(window.selectedKey(), "cabinet");
}

TEST_F(HelpTreeFollow, WhatAnOperationDidBeforeItsErrorIsShown) {
    TreeWindow broken("<one><two/></one><three style='bold'><four/><five><six/></five></three>");
    broken.expand("cabinet=>three=>five");
    broken.tree->choose(broken.core.row("cabinet=>three=>four"));
    // The parent, which is selected next, has a style that is no number.
    EXPECT_THROW(broken.tree->run([&] { deleteNode(broken.core.session, broken.core.dialogs); }),
                 RunTimeError);
    test::pumpPending();
    EXPECT_EQ(broken.rows(), "cabinet -\n one -\n  two\n three -\n  five -\n   six\n");
    EXPECT_EQ(broken.selectedKey(), "cabinet=>three");
}

TEST_F(HelpTreeFollow, APictureAmongTheRowsLeavesAtOnceWhenItIsRemoved) {
    TreeWindow pictured("<one><two/></one><image name='p'><x/></image><three><four/></three>");
    pictured.expand("cabinet=>image");
    pictured.expand("cabinet=>three");
    HelpSession& session = pictured.core.session;
    session.lstImages.choose("~p");
    std::string whileTold;
    pictured.core.dialogs.expectBox({"Image removed", "Delete Image"}).during([&] {
        test::pumpPending();
        whileTold = pictured.rows();
    });
    removeImage(session, pictured.core.dialogs);
    EXPECT_EQ(whileTold, "cabinet -\n one -\n  two\n three -\n  four\n");
    EXPECT_EQ(pictured.selectedKey(), "cabinet=>one");
}

TEST_F(HelpTreeFollow, WithTheSelectedPictureTheSelectionGoes) {
    TreeWindow pictured("<one/><image name='p'/>");
    HelpSession& session = pictured.core.session;
    pictured.tree->choose(pictured.core.row("cabinet=>image"));
    session.lstImages.choose("~p");
    pictured.core.dialogs.expectBox({"Image removed", "Delete Image"});
    removeImage(session, pictured.core.dialogs);
    test::pumpPending();
    EXPECT_EQ(pictured.rows(), "cabinet -\n one\n");
    EXPECT_EQ(pictured.selectedKey(), "");
}

TEST_F(HelpTreeFollow, APictureBesideTheTreeIsNoRow) {
    window.tree->detach();
    window.core.load("<cabinetinfo><image name='p'/><cabinet><one/><two/></cabinet></cabinetinfo>");
    window.tree->attach(window.core.session);
    window.core.session.lstImages.choose("~p");
    dialogs().expectBox({"Image removed", "Delete Image"});
    removeImage(window.core.session, dialogs());
    test::pumpPending();
    EXPECT_EQ(window.rows(), "cabinet -\n one\n two\n");
}

}  // namespace
}  // namespace tavisk
