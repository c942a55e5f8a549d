#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "editor/nodeOperations.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::EditorSession;

const Message atTop{"This node is already at the top", "Cannot Move", BoxStyle::okInformation};
const Message atBottom{"This node is already at the bottom.", "Cannot Move",
                       BoxStyle::okInformation};

/// Five nodes of which one is current.
struct Five : EditorSession {
    explicit Five(std::string_view current) : EditorSession("<a/><b/><c/><d/><e/>") {
        select(current);
    }
    TreeChange move(int steps) { return moveNode(session, steps, dialogs); }
};

TEST(NodeOperations, MoveUpSwapsWithTheNodeAbove) {
    Five editor("cabinet=>c");
    const TreeChange change = editor.move(1);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><c/><b/><d/><e/></cabinet>");
    EXPECT_EQ(change.kind, TreeChange::Kind::moved);
    EXPECT_EQ(change.node, &editor.row("cabinet=>c"));
    EXPECT_EQ(change.parent, editor.session.file.baseXMLNode);
    EXPECT_EQ(editor.session.currentnode, change.node);
    EXPECT_EQ(editor.session.selectedRow, change.node);
}

TEST(NodeOperations, MoveDownSwapsWithTheNodeBelow) {
    Five editor("cabinet=>c");
    editor.move(-1);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><d/><c/><e/></cabinet>");
}

TEST(NodeOperations, MoveByThreePlacesKeepsTheOthersInOrder) {
    Five editor("cabinet=>d");
    editor.move(3);
    EXPECT_EQ(editor.tree(), "<cabinet><d/><a/><b/><c/><e/></cabinet>");
    editor.move(-2);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><d/><c/><e/></cabinet>");
}

TEST(NodeOperations, MoveToTheBottomOfTheThirdOfFiveIsTwoPlaces) {
    Five editor("cabinet=>c");
    editor.move(moveToBottom);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><d/><e/><c/></cabinet>");
}

TEST(NodeOperations, MoveToTheTop) {
    Five editor("cabinet=>e");
    editor.move(moveToTop);
    EXPECT_EQ(editor.tree(), "<cabinet><e/><a/><b/><c/><d/></cabinet>");
}

TEST(NodeOperations, MoveUpOfTheFirstIsRefused) {
    for (const int steps : {1, moveToTop}) {
        Five editor("cabinet=>a");
        editor.dialogs.expectBox(atTop);
        EXPECT_EQ(editor.move(steps).kind, TreeChange::Kind::none);
        EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><c/><d/><e/></cabinet>");
    }
}

TEST(NodeOperations, MoveDownOfTheLastIsRefused) {
    for (const int steps : {-1, moveToBottom}) {
        Five editor("cabinet=>e");
        editor.dialogs.expectBox(atBottom);
        EXPECT_EQ(editor.move(steps).kind, TreeChange::Kind::none);
        EXPECT_EQ(editor.tree(), "<cabinet><a/><b/><c/><d/><e/></cabinet>");
    }
}

TEST(NodeOperations, MoveByNoStepsDoesNothing) {
    Five editor("cabinet=>a");
    EXPECT_EQ(editor.move(0).kind, TreeChange::Kind::none);
}

TEST(NodeOperations, MoveReachesAtMostTenThousandPlaces) {
    std::string nodes;
    for (int i = 0; i <= 10001; ++i)
        nodes += "<n" + std::to_string(i) + "/>";
    EditorSession editor(nodes);
    moveNode(editor.session, moveToBottom, editor.dialogs);
    EXPECT_EQ(editor.session.currentnode->next()->baseName(), "n10001");
}

TEST(NodeOperations, SiblingsOfEveryTypeArePlaces) {
    EditorSession editor("<a/>words<!--c--><b/>");
    editor.select("cabinet=>b");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/>words<b/><!--c--></cabinet>");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/><b/>words<!--c--></cabinet>");
}

TEST(NodeOperations, MovedSubtreesStayWhole) {
    EditorSession editor(R"(<a x="1"><p>t</p></a><b y="2"><q/></b>)");
    editor.select("cabinet=>b");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><b y="2"><q/></b><a x="1"><p>t</p></a></cabinet>)");
}

TEST(NodeOperations, MoveKeepsThePanel) {
    EditorSession editor(R"(<a/><b value="text"/>)");
    editor.select("cabinet=>b");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.session.panel.text, u"text");
    EXPECT_EQ(editor.tree(), R"(<cabinet><b value="text"/><a/></cabinet>)");
}

TEST(NodeOperations, BaseNodeMovesAmongItsSiblings) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><formula name="f"/><cabinet><a/></cabinet></cabinetinfo>)");
    editor.select("cabinet");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.session.file.baseXMLNode, editor.session.currentnode);
    EXPECT_EQ(editor.session.selectedRow, editor.session.currentnode);
    EXPECT_EQ(editor.document().find("<cabinetinfo><cabinet><a/></cabinet><formula"), 0u);
}

TEST(NodeOperations, MoveInADocumentWithOtherKeysKeepsTheSelection) {
    EditorSession editor;
    editor.load("<CabinetInfo><cabinet><a/><b/></cabinet></CabinetInfo>");
    moveNode(editor.session, -1, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><b/><a/></cabinet>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(NodeOperations, AfterAMoveTheLastOfEqualNamesIsSelectedAndTheMovedOneCurrent) {
    EditorSession editor(R"(<x/><a n="1"/><a n="2"/>)");
    editor.select("cabinet=>a");
    moveNode(editor.session, 1, editor.dialogs);
    EXPECT_EQ(editor.tree(), R"(<cabinet><a n="1"/><x/><a n="2"/></cabinet>)");
    EXPECT_EQ(editor.current(), R"(<a n="1"/>)");
    EXPECT_EQ(editor.session.selectedRow, editor.session.file.baseXMLNode->lastChild());
}

/// The move as it is defined: one swap of deep copies per step.
dom::Node& moveBySwaps(dom::Document& document, dom::Node& node, int steps) {
    dom::Node* element = &node;
    const bool up = steps > 0;
    for (int left = up ? steps : -steps; left > 0; --left) {
        dom::Node* const beside = up ? element->previous() : element->next();
        if (!beside) break;
        dom::OwnedNode clone = document.clone(*element, true);
        dom::Node* const fresh = clone.get();
        dom::OwnedNode neighbour = document.clone(*beside, true);
        const dom::OwnedNode oldElement = document.replace(*element, std::move(neighbour));
        const dom::OwnedNode oldNeighbour = document.replace(*beside, std::move(clone));
        element = fresh;
    }
    return *element;
}

TEST(NodeOperations, EveryMoveGivesTheOrderOfItsSwaps) {
    const std::string xml =
        "<cabinetinfo><cabinet><a><p/>t<q/></a>words<b v='1'/><!--c--><d><e><f/></e></d><g/>"
        "</cabinet></cabinetinfo>";
    for (std::size_t child = 0; child < 6; ++child) {
        for (int steps = -7; steps <= 7; ++steps) {
            EditorSession editor;
            editor.load(xml);
            dom::Node* node = editor.session.file.baseXMLNode->firstChild();
            const auto reference = test::parsed(xml);
            dom::Node& cabinet = test::element(*reference, "cabinet");
            dom::Node* referenceNode = cabinet.firstChild();
            for (std::size_t i = 0; i < child; ++i) {
                node = node->next();
                referenceNode = referenceNode->next();
            }
            editor.session.currentnode = editor.session.selectedRow = node;
            const dom::Node& moved = moveBySwaps(*reference, *referenceNode, steps);
            if (steps > 0 && !node->previous()) editor.dialogs.expectBox(atTop);
            if (steps < 0 && !node->next()) editor.dialogs.expectBox(atBottom);
            moveNode(editor.session, steps, editor.dialogs);
            EXPECT_EQ(editor.tree(), writeXml(cabinet)) << child << " by " << steps;
            EXPECT_EQ(editor.current(), writeXml(moved));
        }
    }
}

}  // namespace
}  // namespace tavisk
