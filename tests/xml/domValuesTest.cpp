// What nodes hold: names, attributes, content, and the memory behind them.
#include <gtest/gtest.h>
#include <set>
#include <string>

#include "base/text.h"
#include "support/errors.h"
#include "support/xml.h"
#include "xml/dom.h"
#include "xml/xmlWriter.h"

namespace tavisk::dom {
namespace {

using test::errorOf;
using test::parsed;

int elementError(std::string_view name) {
    Document document;
    return errorOf([&] { document.createElement(name); });
}

int dataError(NodeType type, std::string_view data, std::string_view name = {}) {
    Document document;
    return errorOf([&] { document.createData(type, data, name); });
}

int attributeError(std::string_view name, std::string_view text) {
    Document document;
    const OwnedNode element = document.createElement("a");
    const int error = errorOf([&] { document.addAttribute(*element, name, text); });
    EXPECT_EQ(element->attributes().size(), error == 0 ? 1U : 0U);
    return error;
}

}  // namespace

TEST(DomValues, AnElementNameThatIsNoNameIsError5) {
    for (const char* name : {"", "-abc", "1abc", "a b", "a<b", "a&b", "a\"", "a/", "a\tb"}) {
        EXPECT_EQ(elementError(name), 5) << name;
    }
    EXPECT_EQ(elementError("a\xED\xA0\x80"), 5);
}

TEST(DomValues, AnElementNameWithAPrefixCannotBeMade) { EXPECT_EQ(elementError("p:a"), 5); }

TEST(DomValues, AnyXmlNameMakesAnElement) {
    for (const char* name : {"a", "_a", "a-1.b", "Größe", "xmlthing"}) {
        EXPECT_EQ(elementError(name), 0) << name;
    }
}

TEST(DomValues, AttributeNamesAreCheckedToo) {
    EXPECT_EQ(attributeError("value", "x"), 0);
    EXPECT_EQ(attributeError("", "x"), 5);
    EXPECT_EQ(attributeError("a b", "x"), 5);
    EXPECT_EQ(attributeError("1", "x"), 5);
}

TEST(DomValues, ForbiddenCharactersInAnAttributeAreError5) {
    using namespace std::string_literals;
    EXPECT_EQ(attributeError("v", "a\x01"), 5);
    EXPECT_EQ(attributeError("v", "a\x1F"), 5);
    EXPECT_EQ(attributeError("v", "a\0b"s), 5);
    EXPECT_EQ(attributeError("v", "\uFFFE"), 5);
    EXPECT_EQ(attributeError("v", "\xED\xA0\x80"), 5);
    EXPECT_EQ(attributeError("v", "\xE9"), 5);
    EXPECT_EQ(attributeError("v", "\t\n\r <>&\"' \x7F é\U0001F600"), 0);
}

TEST(DomValues, ALoneSurrogateNeverReachesTheTree) {
    const auto document = parsed("<r v='old'/>");
    Node& r = *document->lastChild();
    EXPECT_EQ(errorOf([&] { document->setAttributeText(r, 0, toUtf8(u"a\xD800")); }), 5);
    EXPECT_EQ(r.attributes()[0].text(), "old");
}

TEST(DomValues, ARefusedAttributeTextLeavesTheOldOne) {
    const auto document = parsed("<r v='old'/>");
    Node& r = *document->lastChild();
    EXPECT_EQ(errorOf([&] { document->setAttributeText(r, 0, "a\x02"); }), 5);
    EXPECT_EQ(r.attributes()[0].text(), "old");
}

TEST(DomValues, APrefixDeclaredAsNothingIsError5) {
    EXPECT_EQ(attributeError("xmlns:p", ""), 5);
    EXPECT_EQ(attributeError("xmlns:p", "u"), 0);
    const auto document = parsed("<r xmlns:value='u'/>");
    Node& r = *document->lastChild();
    EXPECT_EQ(errorOf([&] { document->setAttributeText(r, 0, ""); }), 5);
    EXPECT_EQ(r.attributes()[0].text(), "u");
}

TEST(DomValues, AnAttributeThatIsNotThereIsError5) {
    const auto document = parsed("<r v='old'/>");
    EXPECT_EQ(errorOf([&] { document->setAttributeText(*document->lastChild(), 1, "x"); }), 5);
}

TEST(DomValues, OnlyElementsTakeAttributes) {
    const auto document = parsed("<r>t</r>");
    Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { document->addAttribute(text, "v", "x"); }), 5);
    EXPECT_TRUE(text.attributes().empty());
}

TEST(DomValues, AttributesKeepTheirOrderAndNewOnesGoLast) {
    const auto document = parsed("<r z='1' a='2' m='3'/>");
    Node& r = *document->lastChild();
    document->addAttribute(r, "b", "4");
    document->setAttributeText(r, 1, "changed");
    document->addAttribute(r, "c", "5");
    EXPECT_EQ(writeXml(r), "<r z=\"1\" a=\"changed\" m=\"3\" b=\"4\" c=\"5\"/>");
}

TEST(DomValues, AnElementTakesManyAttributes) {
    Document document;
    const OwnedNode element = document.createElement("a");
    for (int i = 0; i < 1000; ++i)
        document.addAttribute(*element, "n" + std::to_string(i), std::to_string(i));
    ASSERT_EQ(element->attributes().size(), 1000U);
    for (std::size_t i = 0; i < 1000; ++i)
        EXPECT_EQ(element->attributes()[i].text(), std::to_string(i));
}

TEST(DomValues, AttributeNamesKnowTheirPrefix) {
    const auto document = parsed("<r xmlns:p='u' p:v='1'/>");
    const Attribute& attribute = document->lastChild()->attributes()[1];
    EXPECT_EQ(attribute.name(), "p:v");
    EXPECT_EQ(attribute.baseName(), "v");
}

TEST(DomValues, AnAttributeTextCanBeSetFromItself) {
    const auto document = parsed("<r v='old'/>");
    Node& r = *document->lastChild();
    const auto text = [&] { return r.attributes()[0].text(); };
    document->setAttributeText(r, 0, text().substr(1));
    EXPECT_EQ(text(), "ld");
    document->setAttributeText(r, 0, "a text of more than sixteen bytes");
    document->setAttributeText(r, 0, text().substr(10, 9));
    EXPECT_EQ(text(), "more than");
    document->setAttributeText(r, 0, text());
    EXPECT_EQ(text(), "more than");
}

TEST(DomValues, AnAttributeTextCanBeEmptiedAndFilledAgain) {
    const auto document = parsed("<r v='old'/>");
    Node& r = *document->lastChild();
    document->setAttributeText(r, 0, "");
    EXPECT_EQ(r.attributes()[0].text(), "");
    document->setAttributeText(r, 0, "new");
    EXPECT_EQ(r.attributes()[0].text(), "new");
}

TEST(DomValues, AChangedTextKeepsItsMemoryWhileItFits) {
    const auto document = parsed("<r v='old'/>");
    Node& r = *document->lastChild();
    document->setAttributeText(r, 0, "twenty characters !!");
    const char* const memory = r.attributes()[0].text().data();
    document->setAttributeText(r, 0, "short");
    EXPECT_EQ(r.attributes()[0].text().data(), memory);
    document->setAttributeText(r, 0, std::string(32, 'x'));
    EXPECT_EQ(r.attributes()[0].text().data(), memory);
}

TEST(DomValues, TheMemoryOfAnOutgrownTextIsUsedAgain) {
    const auto document = parsed("<r v='old' w='old'/>");
    Node& r = *document->lastChild();
    document->setAttributeText(r, 0, "sixteen or fewer");
    const char* const memory = r.attributes()[0].text().data();
    document->setAttributeText(r, 0, "more than sixteen");
    document->setAttributeText(r, 1, "another");
    EXPECT_EQ(r.attributes()[1].text().data(), memory);
}

TEST(DomValues, TypingALongAnswerUsesFewBlocks) {
    const auto document = parsed("<r v=''/>");
    Node& r = *document->lastChild();
    std::set<const char*> blocks;
    std::string answer;
    for (int i = 0; i < 5000; ++i) {
        answer += 'x';
        document->setAttributeText(r, 0, answer);
        blocks.insert(r.attributes()[0].text().data());
    }
    EXPECT_LE(blocks.size(), 14U);
}

TEST(DomValues, TextsOfTheDocumentAreViewsOfItsSource) {
    Source source = Source::copy("<r v=\"value\">content</r>");
    const char* const bytes = source.bytes.get();
    const auto document = readXml(std::move(source)).document;
    const Node& r = *document->lastChild();
    EXPECT_EQ(r.attributes()[0].text().data(), bytes + 6);
    EXPECT_EQ(r.firstChild()->data().data(), bytes + 13);
}

TEST(DomValues, ASourceIsACopyWithANulBehindIt) {
    const Source source = Source::copy("abc");
    EXPECT_EQ(source.size, 3U);
    EXPECT_STREQ(source.bytes.get(), "abc");
}

TEST(DomValues, DataNodesHoldTheirData) {
    Document document;
    EXPECT_EQ(document.createData(NodeType::text, "a <b> & c")->data(), "a <b> & c");
    EXPECT_EQ(document.createData(NodeType::cdata, "a <b>")->data(), "a <b>");
    EXPECT_EQ(document.createData(NodeType::comment, " m ")->data(), " m ");
    const OwnedNode instruction = document.createData(NodeType::instruction, "d", "target");
    EXPECT_EQ(instruction->data(), "d");
    EXPECT_EQ(instruction->nodeName(), "target");
}

TEST(DomValues, ForbiddenCharactersInDataAreError5) {
    for (const NodeType type : {NodeType::text, NodeType::cdata, NodeType::comment}) {
        EXPECT_EQ(dataError(type, "a\x0B"), 5);
        EXPECT_EQ(dataError(type, "a\xED\xBF\xBF"), 5);
    }
    EXPECT_EQ(dataError(NodeType::instruction, "a\x0B", "p"), 5);
}

TEST(DomValues, TwoHyphensInACommentAreError5) {
    EXPECT_EQ(dataError(NodeType::comment, "a--b"), 5);
    EXPECT_EQ(dataError(NodeType::comment, "--"), 5);
    EXPECT_EQ(dataError(NodeType::comment, "a-b"), 0);
}

TEST(DomValues, AHyphenAtTheEndOfACommentIsError5) {
    EXPECT_EQ(dataError(NodeType::comment, "a-"), 5);
    EXPECT_EQ(dataError(NodeType::comment, "-"), 5);
    EXPECT_EQ(dataError(NodeType::comment, "-a"), 0);
}

TEST(DomValues, TheEndOfAnInstructionInsideItIsError5) {
    EXPECT_EQ(dataError(NodeType::instruction, "a?>b", "p"), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "a? >b", "p"), 0);
}

TEST(DomValues, AnInstructionsTargetIsANameButNotXml) {
    EXPECT_EQ(dataError(NodeType::instruction, "d", ""), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "d", "1"), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "d", "a b"), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "d", "xml"), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "d", "XML"), 5);
    EXPECT_EQ(dataError(NodeType::instruction, "d", "xml-stylesheet"), 0);
}

TEST(DomValues, TheEndOfACdataSectionInsideItIsError5) {
    EXPECT_EQ(dataError(NodeType::cdata, "a]]>b"), 5);
    EXPECT_EQ(dataError(NodeType::cdata, "a]]b>"), 0);
}

TEST(DomValues, ElementsAndDocumentTypesAreNotMadeAsData) {
    EXPECT_EQ(dataError(NodeType::element, "a"), 5);
    EXPECT_EQ(dataError(NodeType::document, ""), 5);
    EXPECT_EQ(dataError(NodeType::documentType, "<!DOCTYPE a>", "a"), 5);
}

TEST(DomValues, SetContentReplacesAllChildrenByOneText) {
    const auto document = parsed("<r><a/>t<b><c/></b></r>");
    Node& r = *document->lastChild();
    document->setContent(r, "new & <fresh>");
    EXPECT_EQ(writeXml(r), "<r>new &amp; &lt;fresh&gt;</r>");
    EXPECT_EQ(r.childCount(), 1U);
}

TEST(DomValues, SetContentToNothingLeavesNoChild) {
    const auto document = parsed("<r><a/>t</r>");
    document->setContent(*document->lastChild(), "");
    EXPECT_FALSE(document->lastChild()->hasChildren());
}

TEST(DomValues, ARefusedContentLeavesTheChildren) {
    const auto document = parsed("<r><a/>t</r>");
    EXPECT_EQ(errorOf([&] { document->setContent(*document->lastChild(), "a\x01"); }), 5);
    EXPECT_EQ(writeXml(*document), "<r><a/>t</r>");
}

TEST(DomValues, OnlyElementsHaveContentToSet) {
    const auto document = parsed("<r>t</r>");
    Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { document->setContent(text, "u"); }), 5);
}

}  // namespace tavisk::dom
