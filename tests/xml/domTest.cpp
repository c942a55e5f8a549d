// The tree's structure: navigation, edits, ownership, limits.
#include "xml/dom.h"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/errors.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk::dom {
namespace {

using test::element;
using test::errorOf;
using test::parsed;

std::string tagNames(const std::vector<Node*>& nodes) {
    std::string names;
    for (const Node* node : nodes)
        names.append(node->nodeName()).append(" ");
    return names;
}

/// A chain of elements below each other, outside the tree.
OwnedNode chain(Document& document, std::size_t length) {
    OwnedNode top = document.createElement("n");
    Node* last = top.get();
    for (std::size_t i = 1; i < length; ++i)
        last = &document.append(*last, document.createElement("n"));
    return top;
}

}  // namespace

TEST(Dom, ANewDocumentIsEmpty) {
    const Document document;
    EXPECT_EQ(document.lastChild(), nullptr);
    EXPECT_EQ(document.root().type(), NodeType::document);
    EXPECT_EQ(document.root().nodeName(), "#document");
    EXPECT_FALSE(document.hasDeclaration());
}

TEST(Dom, NodesKnowTheirNeighbours) {
    const auto document = parsed("<a><b/>text<c/></a>");
    const Node& a = *document->lastChild();
    const Node& b = *a.firstChild();
    const Node& c = *a.lastChild();
    EXPECT_EQ(a.parent(), &document->root());
    EXPECT_EQ(b.parent(), &a);
    EXPECT_EQ(b.previous(), nullptr);
    EXPECT_EQ(b.next()->next(), &c);
    EXPECT_EQ(c.previous(), b.next());
    EXPECT_EQ(c.next(), nullptr);
    EXPECT_EQ(a.childCount(), 3U);
    EXPECT_TRUE(a.hasChildren());
    EXPECT_FALSE(b.hasChildren());
}

TEST(Dom, EveryKindOfNodeHasItsNames) {
    const auto document =
        parsed("<!DOCTYPE a><a xmlns:p='u'>t<![CDATA[c]]><!--m--><?target d?><p:e/></a>");
    const Node* node = document->root().firstChild();
    EXPECT_EQ(node->type(), NodeType::documentType);
    EXPECT_EQ(node->nodeName(), "a");
    EXPECT_EQ(node->baseName(), "");
    node = document->lastChild()->firstChild();
    EXPECT_EQ(node->type(), NodeType::text);
    EXPECT_EQ(node->nodeName(), "#text");
    EXPECT_EQ(node->baseName(), "");
    node = node->next();
    EXPECT_EQ(node->type(), NodeType::cdata);
    EXPECT_EQ(node->nodeName(), "#cdata-section");
    EXPECT_EQ(node->baseName(), "");
    node = node->next();
    EXPECT_EQ(node->type(), NodeType::comment);
    EXPECT_EQ(node->nodeName(), "#comment");
    EXPECT_EQ(node->baseName(), "");
    node = node->next();
    EXPECT_EQ(node->type(), NodeType::instruction);
    EXPECT_EQ(node->nodeName(), "target");
    EXPECT_EQ(node->baseName(), "target");
    node = node->next();
    EXPECT_TRUE(node->isElement());
    EXPECT_EQ(node->nodeName(), "p:e");
    EXPECT_EQ(node->baseName(), "e");
}

TEST(Dom, TagNamesAreFoundInDocumentOrderAtAnyDepth) {
    const auto document = parsed("<r><x n='1'/><y><x n='2'><x n='3'/></x></y><x n='4'/></r>");
    std::string order;
    for (const Node* node : document->elementsByTagName("x"))
        order += node->attributes()[0].text();
    EXPECT_EQ(order, "1234");
}

TEST(Dom, TagNamesIncludeTheDocumentElement) {
    EXPECT_EQ(parsed("<r><r/></r>")->elementsByTagName("r").size(), 2U);
}

TEST(Dom, TagNamesAreComparedExactlyWithTheirPrefix) {
    const auto document = parsed("<r xmlns:p='u'><X/><p:x/><x/><?x ?></r>");
    EXPECT_EQ(tagNames(document->elementsByTagName("x")), "x ");
    EXPECT_EQ(tagNames(document->elementsByTagName("p:x")), "p:x ");
    EXPECT_EQ(tagNames(document->elementsByTagName("unknown")), "");
}

TEST(Dom, NodesOutsideTheTreeAreNotFoundByTagName) {
    const auto document = parsed("<r><x/></r>");
    const OwnedNode removed = document->remove(element(*document, "x"));
    const OwnedNode fresh = document->createElement("x");
    EXPECT_TRUE(document->elementsByTagName("x").empty());
}

TEST(Dom, DocumentOrderVisitsEveryNodeBelow) {
    const auto document = parsed("<r><a><b/></a>t<c/></r>");
    const Node& r = *document->lastChild();
    std::string order;
    for (const Node* node = nextInDocument(r, r); node != nullptr; node = nextInDocument(*node, r))
        order.append(node->nodeName()).append(" ");
    EXPECT_EQ(order, "a b #text c ");
}

TEST(Dom, DocumentOrderEndsBelowTheTop) {
    const auto document = parsed("<r><a><b/></a><c/></r>");
    const Node& a = element(*document, "a");
    EXPECT_EQ(nextInDocument(element(*document, "b"), a), nullptr);
    EXPECT_EQ(nextAfterSubtree(a, *document->lastChild()), &element(*document, "c"));
    EXPECT_EQ(nextInDocument(element(*document, "c"), element(*document, "c")), nullptr);
}

TEST(Dom, AppendAddsTheLastChild) {
    const auto document = parsed("<r><a/></r>");
    Node& b = document->append(*document->lastChild(), document->createElement("b"));
    EXPECT_EQ(&b, document->lastChild()->lastChild());
    EXPECT_EQ(writeXml(*document), "<r><a/><b/></r>");
}

TEST(Dom, RemoveTakesTheNodeWithEverythingBelow) {
    const auto document = parsed("<r><a><x/></a><b><y/></b><c/></r>");
    const OwnedNode removed = document->remove(element(*document, "b"));
    EXPECT_EQ(writeXml(*document), "<r><a><x/></a><c/></r>");
    EXPECT_EQ(writeXml(*removed), "<b><y/></b>");
    EXPECT_EQ(removed->parent(), nullptr);
    EXPECT_EQ(removed->next(), nullptr);
    EXPECT_EQ(removed->previous(), nullptr);
}

TEST(Dom, RemoveWorksAtBothEndsAndForAnOnlyChild) {
    const auto document = parsed("<r><a/><b/><c/></r>");
    for (const char* name : {"a", "c", "b"})
        document->remove(element(*document, name));
    EXPECT_EQ(document->lastChild()->firstChild(), nullptr);
    EXPECT_EQ(document->lastChild()->lastChild(), nullptr);
    EXPECT_EQ(writeXml(*document), "<r/>");
}

TEST(Dom, ARemovedNodeCanBeAppendedElsewhere) {
    const auto document = parsed("<r><a/><b><c/></b></r>");
    OwnedNode removed = document->remove(element(*document, "b"));
    document->append(element(*document, "a"), std::move(removed));
    EXPECT_FALSE(removed);
    EXPECT_EQ(writeXml(*document), "<r><a><b><c/></b></a></r>");
}

TEST(Dom, AnOwnedNodeFreesItsNodeWhenItEnds) {
    Document document;
    Node* freed = nullptr;
    {
        const OwnedNode owned = document.createElement("a");
        freed = owned.get();
    }
    EXPECT_EQ(document.createElement("b").get(), freed);
}

TEST(Dom, FreeingANodeFreesEverythingBelow) {
    Document document;
    std::set<Node*> freed;
    {
        const OwnedNode top = document.createElement("a");
        freed.insert(top.get());
        for (int i = 0; i < 3; ++i) {
            Node& child = document.append(*top, document.createElement("b"));
            freed.insert(&child);
            freed.insert(&document.append(child, document.createData(NodeType::text, "t")));
        }
    }
    std::vector<OwnedNode> fresh;
    for (std::size_t i = 0; i < 7; ++i) {
        fresh.push_back(document.createElement("c"));
        EXPECT_EQ(freed.count(fresh.back().get()), 1U);
    }
}

TEST(Dom, MovingAnOwnedNodeLeavesTheOldHolderEmpty) {
    Document document;
    OwnedNode first = document.createElement("a");
    Node* const node = first.get();
    OwnedNode second = std::move(first);
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), node);
    first = std::move(second);
    EXPECT_EQ(first.get(), node);
    EXPECT_FALSE(second);
}

TEST(Dom, AssigningToAnOwnedNodeFreesWhatItHeld) {
    Document document;
    OwnedNode holder = document.createElement("a");
    Node* const freed = holder.get();
    holder = document.createElement("b");
    EXPECT_EQ(holder->nodeName(), "b");
    EXPECT_EQ(document.createElement("c").get(), freed);
}

TEST(Dom, AReleasedNodeIsNotFreed) {
    Document document;
    OwnedNode holder = document.createElement("a");
    Node* const node = holder.release();
    EXPECT_FALSE(holder);
    EXPECT_NE(document.createElement("b").get(), node);
    EXPECT_EQ(node->nodeName(), "a");
    holder = OwnedNode(document, node);
}

TEST(Dom, ReplaceTakesTheSamePlace) {
    const auto document = parsed("<r><a/><b><c/></b><d/></r>");
    const OwnedNode old =
        document->replace(element(*document, "b"), document->createElement("fresh"));
    EXPECT_EQ(writeXml(*document), "<r><a/><fresh/><d/></r>");
    EXPECT_EQ(writeXml(*old), "<b><c/></b>");
    EXPECT_EQ(old->parent(), nullptr);
}

TEST(Dom, ReplaceWorksForFirstLastAndOnlyChild) {
    const auto document = parsed("<r><a/><b/></r>");
    document->replace(element(*document, "b"), document->createElement("y"));
    document->replace(element(*document, "a"), document->createElement("x"));
    EXPECT_EQ(writeXml(*document), "<r><x/><y/></r>");
    document->remove(element(*document, "x"));
    document->replace(element(*document, "y"), document->createElement("z"));
    EXPECT_EQ(writeXml(*document), "<r><z/></r>");
    EXPECT_EQ(document->lastChild()->firstChild(), document->lastChild()->lastChild());
}

TEST(Dom, TheDocumentElementCanBeReplaced) {
    const auto document = parsed("<r/>");
    document->replace(*document->lastChild(), document->createElement("s"));
    EXPECT_EQ(writeXml(*document), "<s/>");
}

TEST(Dom, ReplacingANodeOutsideTheTreeIsError5) {
    Document document;
    const OwnedNode lone = document.createElement("a");
    EXPECT_EQ(errorOf([&] { document.replace(*lone, document.createElement("b")); }), 5);
}

TEST(Dom, AShallowCloneHasAttributesButNoChildren) {
    const auto document = parsed("<r x='1' y='2'><a/></r>");
    const OwnedNode copy = document->clone(*document->lastChild(), false);
    EXPECT_EQ(writeXml(*copy), "<r x=\"1\" y=\"2\"/>");
}

TEST(Dom, ADeepCloneHasEverythingInOrder) {
    const std::string xml =
        "<r x=\"1\"><a><b/><b y=\"2\">t</b></a><!--m--><![CDATA[c]]><?p d?><z/></r>";
    const auto document = parsed(xml);
    const OwnedNode copy = document->clone(*document->lastChild(), true);
    EXPECT_EQ(writeXml(*copy), xml);
    EXPECT_EQ(copy->parent(), nullptr);
}

TEST(Dom, ACloneOfOneNodeLeavesItsSiblingsOut) {
    const auto document = parsed("<r><a><b/></a><c/></r>");
    EXPECT_EQ(writeXml(*document->clone(element(*document, "a"), true)), "<a><b/></a>");
}

TEST(Dom, ACloneIsIndependentOfTheOriginal) {
    const auto document = parsed("<r x='1'>t</r>");
    Node& original = *document->lastChild();
    document->setAttributeText(original, 0, "changed before");
    const OwnedNode copy = document->clone(original, true);
    document->setAttributeText(original, 0, "changed after, and longer than it was");
    document->setContent(original, "u");
    EXPECT_EQ(writeXml(*copy), "<r x=\"changed before\">t</r>");
    document->setAttributeText(*copy, 0, "copy");
    EXPECT_EQ(original.attributes()[0].text(), "changed after, and longer than it was");
}

TEST(Dom, ACloneOfEachKindOfNodeKeepsItsData) {
    const auto document = parsed("<!DOCTYPE r [<!ELEMENT r ANY>]><r>t<?p d?></r>");
    const Node& type = *document->root().firstChild();
    EXPECT_EQ(document->clone(type, true)->data(), "<!DOCTYPE r [<!ELEMENT r ANY>]>");
    const Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(document->clone(text, false)->data(), "t");
    const OwnedNode instruction = document->clone(*text.next(), false);
    EXPECT_EQ(instruction->nodeName(), "p");
    EXPECT_EQ(instruction->data(), "d");
}

TEST(Dom, ANodeBelowItselfIsError5) {
    const auto document = parsed("<r><a><b/></a></r>");
    OwnedNode a = document->remove(element(*document, "a"));
    Node& b = *a->firstChild();
    EXPECT_EQ(errorOf([&] { document->append(b, std::move(a)); }), 5);
    EXPECT_EQ(writeXml(*document), "<r/>");
}

TEST(Dom, ANodeInPlaceOfOneBelowItselfIsError5) {
    const auto document = parsed("<r><a><b/></a></r>");
    OwnedNode a = document->remove(element(*document, "a"));
    Node& b = *a->firstChild();
    EXPECT_EQ(errorOf([&] { document->replace(b, std::move(a)); }), 5);
}

TEST(Dom, ARefusedNodeIsFreed) {
    const auto document = parsed("<r>t</r>");
    OwnedNode refused = document->createElement("a");
    Node* const freed = refused.get();
    Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { document->append(text, std::move(refused)); }), 5);
    EXPECT_EQ(document->createElement("b").get(), freed);
}

TEST(Dom, OnlyElementsTakeChildren) {
    const auto document = parsed("<r>t<!--m--></r>");
    Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { document->append(text, document->createElement("a")); }), 5);
    EXPECT_EQ(errorOf([&] { document->append(*text.next(), document->createElement("a")); }), 5);
    EXPECT_EQ(writeXml(*document), "<r>t<!--m--></r>");
}

TEST(Dom, TheDocumentTakesNoText) {
    const auto document = parsed("<r/>");
    for (const NodeType type : {NodeType::text, NodeType::cdata}) {
        EXPECT_EQ(
            errorOf([&] { document->append(document->root(), document->createData(type, "t")); }),
            5);
    }
    document->append(document->root(), document->createData(NodeType::comment, "m"));
    EXPECT_EQ(writeXml(*document), "<r/><!--m-->");
}

TEST(Dom, ATreeOf1000LevelsIsTheDeepest) {
    Document document;
    Node& top = document.append(document.root(), chain(document, 1000));
    Node* last = &top;
    while (last->hasChildren())
        last = last->firstChild();
    document.append(*last, document.createData(NodeType::text, "t"));
    EXPECT_EQ(errorOf([&] { document.append(*last, document.createElement("n")); }), 5);
    EXPECT_EQ(last->childCount(), 1U);
}

TEST(Dom, TheDepthLimitCountsWhatIsBelowTheInsertedNode) {
    Document document;
    document.append(document.root(), document.createElement("r"));
    Node& r = *document.lastChild();
    EXPECT_EQ(errorOf([&] { document.append(r, chain(document, 1000)); }), 5);
    EXPECT_FALSE(r.hasChildren());
    Node& child = document.append(r, chain(document, 999));
    EXPECT_EQ(errorOf([&] { document.replace(child, chain(document, 1000)); }), 5);
    EXPECT_EQ(r.firstChild(), &child);
}

TEST(Dom, TheDepthLimitHoldsOutsideTheTreeToo) {
    Document document;
    const OwnedNode top = chain(document, 2);
    EXPECT_EQ(errorOf([&] { document.append(*top->firstChild(), chain(document, 999)); }), 5);
}

TEST(Dom, ATreeOf1000LevelsIsClonedSearchedAndFreed) {
    Document document;
    const OwnedNode top = chain(document, 1000);
    OwnedNode copy = document.clone(*top, true);
    document.append(document.root(), std::move(copy));
    EXPECT_EQ(document.elementsByTagName("n").size(), 1000U);
}

TEST(Dom, ManyNodesComeAndGoInTheSameMemory) {
    const auto document = parsed("<r><a x='1'>text</a></r>");
    std::set<const Node*> places;
    for (int i = 0; i < 10'000; ++i) {
        const OwnedNode copy = document->clone(*document->lastChild(), true);
        places.insert(copy.get());
    }
    EXPECT_LE(places.size(), 3U);
}

}  // namespace tavisk::dom
