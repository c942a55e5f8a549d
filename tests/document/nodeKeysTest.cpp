#include "document/nodeKeys.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using dom::Node;
using test::element;
using test::errorOf;
using test::parsed;

constexpr std::string_view sample =
    "<cabinetinfo><cabinet><first_node><a_b/></first_node><second>text<c/></second></cabinet>"
    "</cabinetinfo>";

std::string keyOf(std::string_view xml, std::string_view name) {
    const auto document = parsed(xml);
    return KeyOfElement(element(*document, name), keySeparator, true);
}

/// The `n` attribute of the node that a build with this start key leaves selected.
std::string startNode(std::string_view xml, std::string_view key) {
    const auto document = parsed(xml);
    const Node* found = findStartNode(element(*document, "cabinet"), key);
    if (found == nullptr) return "none";
    return found->attributes().empty() ? "unnumbered" : std::string(found->attributes()[0].text());
}

/// The `n` attribute of the node that a key leads to.
std::string treeNode(std::string_view xml, std::string_view key) {
    const auto document = parsed(xml);
    const Node* found = findTreeNode(element(*document, "cabinet"), key);
    if (found == nullptr) return "none";
    return found->attributes().empty() ? "unnumbered" : std::string(found->attributes()[0].text());
}

/// The parent of `count` children named "x", below the base.
std::unique_ptr<dom::Document> withChildren(std::size_t count, std::string_view last) {
    std::string xml = "<cabinetinfo><cabinet><many>";
    for (std::size_t i = 1; i < count; ++i)
        xml += "<x/>";
    return parsed(xml.append(last) + "</many></cabinet></cabinetinfo>");
}

Node* literalStartNode(Node& node, const std::string& startKey) {
    Node* found = nullptr;
    for (Node* child = node.firstChild(); child != nullptr; child = child->next()) {
        if (Node* below = literalStartNode(*child, startKey)) found = below;
        if (KeyOfElement(*child, "=>", true) == startKey && !startKey.empty()) found = child;
    }
    return found;
}

void literalKeys(const Node& node, std::vector<std::string>& keys) {
    keys.push_back(KeyOfElement(node, "=>", true));
    for (const Node* child = node.firstChild(); child != nullptr; child = child->next())
        literalKeys(*child, keys);
}

/// A tree in which names are few, so that keys meet, and keys may start afresh.
void fill(dom::Document& document, Node& parent, std::mt19937& random, int depth) {
    static constexpr const char* names[] = {"a", "a_b", "b", "cabinetinfo", "cabinet"};
    for (unsigned i = 0; depth > 0 && i < random() % 4; ++i) {
        if (random() % 5 == 0) {
            document.append(parent, document.createData(dom::NodeType::comment, "m"));
        } else {
            Node& child = document.append(parent, document.createElement(names[random() % 5]));
            fill(document, child, random, depth - 1);
        }
    }
}

}  // namespace

TEST(KeyOfElement, TheCabinetsKeyIsItsOwnName) { EXPECT_EQ(keyOf(sample, "cabinet"), "cabinet"); }

TEST(KeyOfElement, NamesAreJoinedFromTheCabinetDown) {
    EXPECT_EQ(keyOf(sample, "a_b"), "cabinet=>first node=>a b");
}

TEST(KeyOfElement, ATextHasAnEmptyName) {
    const auto document = parsed(sample);
    const Node& text = *element(*document, "second").firstChild();
    EXPECT_EQ(KeyOfElement(text, "=>", true), "cabinet=>second=>");
}

TEST(KeyOfElement, OnlyTheLastStepHonoursSeparatorAndRawNames) {
    const auto document = parsed(sample);
    const Node& node = element(*document, "a_b");
    EXPECT_EQ(KeyOfElement(node, "/", false), "cabinet=>first node/a_b");
    EXPECT_EQ(KeyOfElement(node, "/", true), "cabinet=>first node/a b");
    EXPECT_EQ(KeyOfElement(node, "=>", false), "cabinet=>first node=>a_b");
}

TEST(KeyOfElement, TheTopHonoursRawNamesToo) {
    const auto document = parsed("<cabinetinfo><my_top><a/></my_top></cabinetinfo>");
    EXPECT_EQ(KeyOfElement(element(*document, "my_top"), "/", false), "my_top");
    EXPECT_EQ(KeyOfElement(element(*document, "my_top"), "/", true), "my top");
}

TEST(KeyOfElement, ClimbingStopsBelowAnyElementOfThatName) {
    EXPECT_EQ(keyOf("<cabinetinfo><cabinet><cabinetinfo><x><y/></x></cabinetinfo></cabinet>"
                    "</cabinetinfo>",
                    "y"),
              "x=>y");
}

TEST(KeyOfElement, APrefixOfThatElementDoesNotCount) {
    EXPECT_EQ(keyOf("<p:cabinetinfo xmlns:p='u'><cabinet><x/></cabinet></p:cabinetinfo>", "x"),
              "cabinet=>x");
}

TEST(KeyOfElement, ACabinetFurtherDownHasALongerKey) {
    EXPECT_EQ(keyOf("<cabinetinfo><shelf><cabinet><x/></cabinet></shelf></cabinetinfo>", "x"),
              "shelf=>cabinet=>x");
}

TEST(KeyOfElement, ADocumentElementInAnotherLetterCaseStartsTheKey) {
    EXPECT_EQ(keyOf("<CabinetInfo><cabinet><x/></cabinet></CabinetInfo>", "x"),
              "CabinetInfo=>cabinet=>x");
    EXPECT_EQ(keyOf("<CABINETINFO><cabinet/></CABINETINFO>", "cabinet"), "CABINETINFO=>cabinet");
}

TEST(KeyOfElement, TheDocumentElementsKeyIsItsName) {
    EXPECT_EQ(keyOf(sample, "cabinetinfo"), "cabinetinfo");
}

TEST(KeyOfElement, ANodeOutsideTheTreeStartsItsKey) {
    dom::Document document;
    const dom::OwnedNode top = document.createElement("a_b");
    document.append(*top, document.createElement("c"));
    EXPECT_EQ(KeyOfElement(*top->firstChild(), "=>", true), "a b=>c");
}

TEST(KeyOfTreeNode, JoinsShownNamesFromTheTopRow) {
    const auto document = parsed(sample);
    const Node& base = element(*document, "cabinet");
    EXPECT_EQ(KeyOfTreeNode(base, element(*document, "a_b"), "=>"), "cabinet=>first node=>a b");
    EXPECT_EQ(KeyOfTreeNode(base, base, "=>"), "cabinet");
}

TEST(KeyOfTreeNode, TheSeparatorCountsOnEveryLevel) {
    const auto document = parsed(sample);
    EXPECT_EQ(KeyOfTreeNode(element(*document, "cabinet"), element(*document, "a_b"), "/"),
              "cabinet/first node/a b");
}

TEST(KeyOfTreeNode, TheTopRowIsTheCabinetWhateverStandsAbove) {
    const auto document = parsed("<CabinetInfo><my_s><cabinet><x/></cabinet></my_s></CabinetInfo>");
    EXPECT_EQ(KeyOfTreeNode(element(*document, "cabinet"), element(*document, "x"), "=>"),
              "cabinet=>x");
}

TEST(ElementOfTreeNode, TheTopRowIsTheBase) {
    const auto document = parsed(sample);
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, base), &base);
}

TEST(ElementOfTreeNode, ARowLeadsToItsElement) {
    const auto document = parsed(sample);
    Node& base = element(*document, "cabinet");
    Node& row = element(*document, "a_b");
    EXPECT_EQ(ElementOfTreeNode(base, row), &row);
}

TEST(ElementOfTreeNode, ARowOfATextLeadsToTheFirstChildWithoutName) {
    const auto document = parsed("<cabinetinfo><cabinet><a/><!--m-->text</cabinet></cabinetinfo>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, *base.lastChild()), base.firstChild()->next());
}

TEST(ElementOfTreeNode, OfTwoEqualNamesTheFirstIsFound) {
    const auto document =
        parsed("<cabinetinfo><cabinet><a n='1'/><a n='2'/></cabinet></cabinetinfo>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, *base.lastChild()), base.firstChild());
}

TEST(ElementOfTreeNode, NamesThatAreShownAlikeAreEqual) {
    // A name with a space cannot come from a document; two prefixes can.
    const auto document =
        parsed("<cabinetinfo xmlns:p='u'><cabinet><p:a_b/><a_b/></cabinet></cabinetinfo>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, *base.lastChild()), base.firstChild());
}

TEST(ElementOfTreeNode, BelowTheFirstOfTwoEqualNamesThereMayBeNothing) {
    const auto document = parsed(
        "<cabinetinfo><cabinet><a/><a><b><c/></b></a><d><e/></d><d><f/></d></cabinet>"
        "</cabinetinfo>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, element(*document, "b")), nullptr);
    EXPECT_EQ(ElementOfTreeNode(base, element(*document, "c")), nullptr);
    EXPECT_EQ(ElementOfTreeNode(base, element(*document, "f")), nullptr);
}

TEST(ElementOfTreeNode, OverflowsWhenMoreThan32767ChildrenDoNotMatch) {
    const auto document = parsed("<cabinetinfo><cabinet><a/><a/></cabinet></cabinetinfo>");
    Node& base = element(*document, "cabinet");
    Node& first = *base.firstChild();
    Node& second = *base.lastChild();
    Node& wanted = document->append(second, document->createElement("y"));
    for (int i = 0; i < 32767; ++i)
        document->append(first, document->createElement("x"));
    EXPECT_EQ(ElementOfTreeNode(base, wanted), nullptr);
    document->append(first, document->createElement("x"));
    EXPECT_EQ(errorOf([&] { ElementOfTreeNode(base, wanted); }), 6);
}

TEST(ElementOfTreeNode, FindsAMatchBeforeTheCounterOverflows) {
    const auto document = withChildren(32768, "<y/>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(ElementOfTreeNode(base, element(*document, "y")), &element(*document, "y"));
}

TEST(FindStartNode, FindsTheNodeOfAKey) {
    EXPECT_EQ(startNode("<cabinetinfo><cabinet><a><b_c n='1'/></a></cabinet></cabinetinfo>",
                        "cabinet=>a=>b c"),
              "1");
}

TEST(FindStartNode, KeysAreComparedExactly) {
    const std::string xml = "<cabinetinfo><cabinet><a_b n='1'/></cabinet></cabinetinfo>";
    EXPECT_EQ(startNode(xml, "cabinet=>a b"), "1");
    EXPECT_EQ(startNode(xml, "cabinet=>A b"), "none");
    EXPECT_EQ(startNode(xml, "cabinet=>a_b"), "none");
    EXPECT_EQ(startNode(xml, "cabinet=>a"), "none");
    EXPECT_EQ(startNode(xml, "cabinet=>a b=>"), "none");
    EXPECT_EQ(startNode(xml, "cabinet=>a b "), "none");
    EXPECT_EQ(startNode(xml, "a b"), "none");
}

TEST(FindStartNode, TheEmptyKeySelectsNothing) {
    EXPECT_EQ(startNode("<cabinetinfo><cabinet>text<a/></cabinet></cabinetinfo>", ""), "none");
}

TEST(FindStartNode, TheEmptyKeySelectsNoNodeWhoseKeyIsEmpty) {
    EXPECT_EQ(
        startNode("<cabinetinfo><cabinet><cabinetinfo>t</cabinetinfo></cabinet></cabinetinfo>", ""),
        "none");
}

TEST(FindStartNode, TheCabinetItselfIsNeverSelected) {
    EXPECT_EQ(startNode("<cabinetinfo><cabinet n='1'><a/></cabinet></cabinetinfo>", "cabinet"),
              "none");
}

TEST(FindStartNode, OfSeveralMatchesTheLastIsSelected) {
    EXPECT_EQ(startNode("<cabinetinfo><cabinet><a n='1'/><b/><a n='2'/></cabinet></cabinetinfo>",
                        "cabinet=>a"),
              "2");
    EXPECT_EQ(startNode("<cabinetinfo><cabinet><a><x n='1'/></a><a><x n='2'/></a><a/></cabinet>"
                        "</cabinetinfo>",
                        "cabinet=>a=>x"),
              "2");
}

TEST(FindStartNode, ATextIsSelectedByItsEmptyName) {
    EXPECT_EQ(
        startNode("<cabinetinfo><cabinet><a>text</a></cabinet></cabinetinfo>", "cabinet=>a=>"),
        "unnumbered");
}

TEST(FindStartNode, KeysStartAfreshBelowAnElementNamedCabinetinfo) {
    const std::string xml =
        "<cabinetinfo><cabinet><cabinetinfo n='1'><x n='2'/></cabinetinfo></cabinet></cabinetinfo>";
    EXPECT_EQ(startNode(xml, "x"), "2");
    EXPECT_EQ(startNode(xml, "cabinet=>cabinetinfo"), "1");
    EXPECT_EQ(startNode(xml, "cabinet=>cabinetinfo=>x"), "none");
}

TEST(FindStartNode, ANodeIsSelectedAfterANodeBelowItOfTheSameKey) {
    EXPECT_EQ(startNode("<cabinetinfo><cabinet><cabinetinfo><cabinetinfo n='1'><cabinetinfo "
                        "n='2'/></cabinetinfo></cabinetinfo></cabinet></cabinetinfo>",
                        "cabinetinfo"),
              "1");
}

TEST(FindStartNode, ADocumentElementInAnotherLetterCaseBelongsToTheKey) {
    const std::string xml = "<CabinetInfo><cabinet><a n='1'/></cabinet></CabinetInfo>";
    EXPECT_EQ(startNode(xml, "CabinetInfo=>cabinet=>a"), "1");
    EXPECT_EQ(startNode(xml, "cabinet=>a"), "none");
}

TEST(FindStartNode, ACabinetFurtherDownBelongsToTheKeyWithWhatIsAboveIt) {
    const std::string xml = "<cabinetinfo><s_t><cabinet><a n='1'/></cabinet></s_t></cabinetinfo>";
    EXPECT_EQ(startNode(xml, "s t=>cabinet=>a"), "1");
    EXPECT_EQ(startNode(xml, "cabinet=>a"), "none");
}

TEST(FindStartNode, ACabinetThatIsTheDocumentElementWorks) {
    EXPECT_EQ(startNode("<cabinet><a n='1'/></cabinet>", "cabinet=>a"), "1");
}

TEST(FindStartNode, A32767thChildIsFound) {
    const auto document = withChildren(32767, "<y/>");
    EXPECT_EQ(findStartNode(element(*document, "cabinet"), "cabinet=>many=>y"),
              &element(*document, "y"));
}

TEST(FindStartNode, MoreThan32767ChildrenOfAnyNodeOverflow) {
    const auto document = withChildren(32768, "<y/>");
    Node& base = element(*document, "cabinet");
    EXPECT_EQ(errorOf([&] { findStartNode(base, "cabinet=>many=>y"); }), 6);
    EXPECT_EQ(errorOf([&] { findStartNode(base, "elsewhere"); }), 6);
    EXPECT_EQ(errorOf([&] { findStartNode(base, ""); }), 6);
}

TEST(FindStartNode, ChildrenOutsideTheCabinetDoNotCount) {
    std::string xml = "<cabinetinfo><cabinet><a n='1'/></cabinet>";
    for (int i = 0; i < 40000; ++i)
        xml += "<x/>";
    EXPECT_EQ(startNode(xml + "</cabinetinfo>", "cabinet=>a"), "1");
}

TEST(FindStartNode, GivesWhatComputingEveryKeyGives) {
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto document = parsed(
            i % 3 == 0 ? "<cabinetinfo><top/></cabinetinfo>"
            : i % 3 == 1
                ? "<CabinetInfo><top/></CabinetInfo>"
                : "<cabinetinfo><a_b><cabinetinfo><b><top/></b></cabinetinfo></a_b></cabinetinfo>");
        Node& base = element(*document, "top");
        fill(*document, base, random, 5);
        std::vector<std::string> keys;
        literalKeys(base, keys);
        keys.insert(keys.end(), {"", "=>", "top=>", "top=>a=>", "a", "nothing"});
        for (const std::string& key : keys)
            ASSERT_EQ(findStartNode(base, key), literalStartNode(base, key)) << key;
    }
}

TEST(FindTreeNode, FollowsTheNamesOfAKey) {
    const std::string xml =
        "<cabinetinfo><cabinet n='1'><a n='2'><b_c n='3'/></a></cabinet></cabinetinfo>";
    EXPECT_EQ(treeNode(xml, "cabinet"), "1");
    EXPECT_EQ(treeNode(xml, "cabinet=>a"), "2");
    EXPECT_EQ(treeNode(xml, "cabinet=>a=>b c"), "3");
}

TEST(FindTreeNode, ANameThatIsNotThereLeadsNowhere) {
    const std::string xml = "<cabinetinfo><cabinet><a n='1'/></cabinet></cabinetinfo>";
    for (const char* key : {"", "b", "cabinet=>b", "cabinet=>a=>b", "cabinet=>", "cabinet=>a=>",
                            "cabinet=>A", "cabinet=>a ", "cabineta", "cabinet=>aa", "=>a"}) {
        EXPECT_EQ(treeNode(xml, key), "none") << key;
    }
}

TEST(FindTreeNode, TheFirstMatchOnEveryLevelCounts) {
    const std::string xml =
        "<cabinetinfo><cabinet><a n='1'><x n='2'/></a><a n='3'><y n='4'/></a></cabinet>"
        "</cabinetinfo>";
    EXPECT_EQ(treeNode(xml, "cabinet=>a"), "1");
    EXPECT_EQ(treeNode(xml, "cabinet=>a=>x"), "2");
    EXPECT_EQ(treeNode(xml, "cabinet=>a=>y"), "none");
}

TEST(FindTreeNode, ALongerNameThatBeginsAlikeIsPassed) {
    EXPECT_EQ(
        treeNode("<cabinetinfo><cabinet><ab/><a n='1'/></cabinet></cabinetinfo>", "cabinet=>a"),
        "1");
    EXPECT_EQ(
        treeNode("<cabinetinfo><cabinet><a/><ab n='1'/></cabinet></cabinetinfo>", "cabinet=>ab"),
        "1");
}

TEST(FindTreeNode, ATextIsFoundByItsEmptyName) {
    EXPECT_EQ(treeNode("<cabinetinfo><cabinet><a>text</a></cabinet></cabinetinfo>", "cabinet=>a=>"),
              "unnumbered");
}

TEST(AllKeys, ComeInDocumentOrder) {
    const auto document = parsed(sample);
    EXPECT_EQ(
        allKeys(element(*document, "cabinet")),
        (std::vector<std::string>{"cabinet", "cabinet=>first node", "cabinet=>first node=>a b",
                                  "cabinet=>second", "cabinet=>second=>", "cabinet=>second=>c"}));
}

TEST(AllKeys, OfANodeWithoutChildrenAreItsOwn) {
    const auto document = parsed(sample);
    EXPECT_EQ(allKeys(element(*document, "c")), std::vector<std::string>{"cabinet=>second=>c"});
}

TEST(AllKeys, AreTheKeysOfTheElements) {
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        const auto document = parsed(i % 2 == 0 ? "<cabinetinfo><top/></cabinetinfo>"
                                                : "<Cabinetinfo><a_b><top/></a_b></Cabinetinfo>");
        Node& base = element(*document, "top");
        fill(*document, base, random, 5);
        std::vector<std::string> keys;
        literalKeys(base, keys);
        ASSERT_EQ(allKeys(base), keys);
    }
}

TEST(AllKeys, OfATreeOf1000LevelsAreFound) {
    dom::Document document;
    Node* last = &document.append(document.root(), document.createElement("a"));
    for (int i = 1; i < 1000; ++i)
        last = &document.append(*last, document.createElement("a"));
    const std::vector<std::string> keys = allKeys(*document.lastChild());
    EXPECT_EQ(keys.size(), 1000U);
    EXPECT_EQ(keys.back(), KeyOfElement(*last, "=>", true));
    EXPECT_EQ(findStartNode(*document.lastChild(), keys.back()), last);
}

}  // namespace tavisk
