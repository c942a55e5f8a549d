#include "xml/xmlWriter.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using dom::Document;
using dom::Node;
using dom::NodeType;
using dom::OwnedNode;
using test::parsed;

std::string again(std::string_view xml) { return writeXml(*parsed(xml)); }

std::string writtenAttribute(std::string_view text) {
    Document document;
    const OwnedNode element = document.createElement("a");
    document.addAttribute(*element, "v", text);
    return writeXml(*element);
}

std::string writtenText(std::string_view text) {
    Document document;
    const OwnedNode element = document.createElement("a");
    document.append(*element, document.createData(NodeType::text, text));
    return writeXml(*element);
}

/// Any character that XML can hold, those with a meaning of their own above all.
std::string randomText(std::mt19937& random, std::size_t length) {
    static constexpr std::u32string_view special = U"<>&\"'\r\n\t ]-?~`!@é€\U0001F600";
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
        appendUtf8(text, random() % 2 == 0 ? special[random() % special.size()]
                                           : U'!' + static_cast<char32_t>(random() % 90));
    }
    return text;
}

/// An element with attributes and children; texts never stand beside each other.
OwnedNode randomElement(Document& document, std::mt19937& random, int depth) {
    OwnedNode element = document.createElement("e" + std::to_string(random() % 5));
    for (unsigned i = 0; i < random() % 4; ++i) {
        document.addAttribute(*element, "a" + std::to_string(i), randomText(random, random() % 90));
    }
    for (unsigned i = 0; depth > 0 && i < random() % 4; ++i) {
        document.append(*element, randomElement(document, random, depth - 1));
        const std::string text = "x" + randomText(random, random() % 90);
        switch (random() % 4) {
            case 0: document.append(*element, document.createData(NodeType::text, text)); break;
            case 1:
                document.append(*element, document.createData(NodeType::cdata, "c <&> ]]"));
                break;
            case 2:
                document.append(*element, document.createData(NodeType::comment, " c - <&> "));
                break;
            default: break;
        }
    }
    return element;
}

bool equal(const Node& a, const Node& b) {
    if (a.type() != b.type() || a.nodeName() != b.nodeName() || a.data() != b.data()) return false;
    if (a.attributes().size() != b.attributes().size()) return false;
    for (std::size_t i = 0; i < a.attributes().size(); ++i) {
        if (a.attributes()[i].name() != b.attributes()[i].name()) return false;
        if (a.attributes()[i].text() != b.attributes()[i].text()) return false;
    }
    const Node* x = a.firstChild();
    const Node* y = b.firstChild();
    for (; x != nullptr && y != nullptr; x = x->next(), y = y->next()) {
        if (!equal(*x, *y)) return false;
    }
    return x == y;
}

}  // namespace

TEST(XmlWriter, TheDeclarationComesWithCrLfIfTheDocumentCameWithOne) {
    EXPECT_EQ(again("<?xml version='1.0' encoding='ISO-8859-1'?>\n\n<a/>"),
              "<?xml version=\"1.0\"?>\r\n<a/>");
}

TEST(XmlWriter, NoDeclarationIsAddedToADocumentWithoutOne) { EXPECT_EQ(again("<a/>"), "<a/>"); }

TEST(XmlWriter, ANewDocumentHasNoDeclaration) {
    Document document;
    EXPECT_EQ(writeXml(document), "");
    document.append(document.root(), document.createElement("a"));
    EXPECT_EQ(writeXml(document), "<a/>");
}

TEST(XmlWriter, NoWhiteSpaceIsAddedBetweenNodes) {
    EXPECT_EQ(again("<a>\n  <b>\n    <c/>\n  </b>\n</a>\n<!--m-->\n"),
              "<a><b><c/></b></a><!--m-->");
}

TEST(XmlWriter, AnElementWithoutChildrenIsOneTag) {
    EXPECT_EQ(again("<a><b></b><c x='1'></c></a>"), "<a><b/><c x=\"1\"/></a>");
}

TEST(XmlWriter, AttributeValuesStandInDoubleQuotes) {
    EXPECT_EQ(again("<a x='it \"is\"' y=\"it's\"/>"), "<a x=\"it &quot;is&quot;\" y=\"it's\"/>");
}

TEST(XmlWriter, MarkupInAttributesIsEscaped) {
    EXPECT_EQ(writtenAttribute("<a> & \"b\""), "<a v=\"&lt;a&gt; &amp; &quot;b&quot;\"/>");
}

TEST(XmlWriter, WhiteSpaceInAttributesIsWrittenAsReferences) {
    EXPECT_EQ(writtenAttribute("a\nb\r\nc\td e"), "<a v=\"a&#10;b&#13;&#10;c&#9;d e\"/>");
}

TEST(XmlWriter, MarkupInTextIsEscaped) {
    EXPECT_EQ(writtenText("<a> & \"b\" 'c' ]]>"), "<a>&lt;a&gt; &amp; \"b\" 'c' ]]&gt;</a>");
}

TEST(XmlWriter, OnlyCarriageReturnsInTextAreReferences) {
    EXPECT_EQ(writtenText("a\nb\r\nc\td"), "<a>a\nb&#13;\nc\td</a>");
}

TEST(XmlWriter, OtherCharactersAreWrittenAsTheyAre) {
    EXPECT_EQ(writtenText("é€\U0001F600\x7F\u0085\u00A0"), "<a>é€\U0001F600\x7F\u0085\u00A0</a>");
    EXPECT_EQ(writtenAttribute("é€\U0001F600"), "<a v=\"é€\U0001F600\"/>");
}

TEST(XmlWriter, AnEscapeIsFoundAtEveryPlaceOfALongText) {
    for (std::size_t at = 0; at < 200; ++at) {
        std::string text(200, 'x');
        std::string written = text;
        text.replace(at, 1, "\n");
        written.replace(at, 1, "&#10;");
        ASSERT_EQ(writtenAttribute(text), "<a v=\"" + written + "\"/>") << at;
        text.replace(at, 1, "&");
        written = std::string(200, 'x').replace(at, 1, "&amp;");
        ASSERT_EQ(writtenText(text), "<a>" + written + "</a>") << at;
    }
}

TEST(XmlWriter, InstructionsWithoutDataHaveNoBlank) {
    EXPECT_EQ(again("<a><?p?><?q  d ?></a>"), "<a><?p?><?q d ?></a>");
}

TEST(XmlWriter, CdataCommentsAndDocumentTypeAreWrittenAsTheyWere) {
    const std::string xml =
        "<!DOCTYPE a [\n<!ELEMENT a ANY>\n]><!-- & --><a><![CDATA[<&>]]><!--<--></a>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlWriter, OneNodeIsWrittenWithoutItsSurroundings) {
    const auto document = parsed("<?xml version='1.0'?><r><a><b x='1'/>t</a><c/></r>");
    const Node& a = *document->lastChild()->firstChild();
    EXPECT_EQ(writeXml(a), "<a><b x=\"1\"/>t</a>");
    EXPECT_EQ(writeXml(*a.lastChild()), "t");
}

TEST(XmlWriter, NodesOutsideTheTreeAreWrittenToo) {
    Document document;
    const OwnedNode element = document.createElement("a");
    EXPECT_EQ(writeXml(*element), "<a/>");
}

TEST(XmlWriter, TheDocumentRemembersTheSizeOfItsText) {
    const auto document = parsed("<a>  <b/></a>");
    EXPECT_EQ(document->sizeHint(), 13U);
    const std::string xml = writeXml(*document);
    EXPECT_EQ(document->sizeHint(), xml.size());
}

TEST(XmlWriter, PiecesAreTheWholeText) {
    std::string xml = "<?xml version=\"1.0\"?>\r\n<a>";
    for (int i = 0; i < 3000; ++i)
        xml += "<b v=\"" + std::string(60, 'x') + "&lt;\"/>";
    xml += std::string(200'000, 'y') + "&amp;</a>";
    const auto document = parsed(xml);
    std::string joined;
    std::size_t pieces = 0;
    writeXml(*document, [&](std::string_view piece) {
        joined += piece;
        ++pieces;
    });
    EXPECT_EQ(joined, xml);
    EXPECT_GT(pieces, 4U);
}

TEST(XmlWriter, WhatWasWrittenIsReadAndWrittenTheSame) {
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        Document document;
        document.append(document.root(), randomElement(document, random, 4));
        const std::string xml = writeXml(document);
        const auto read = parsed(xml);
        ASSERT_TRUE(equal(document.root(), read->root())) << xml;
        ASSERT_EQ(writeXml(*read), xml);
    }
}

TEST(XmlWriter, EveryCharacterComesBackFromAttributesAndText) {
    std::string text = "x";
    for (unsigned c = 1; c < 0x3000; ++c) {
        if (c >= 0x20 || c == '\t' || c == '\n' || c == '\r') appendUtf8(text, c);
    }
    Document document;
    Node& a = document.append(document.root(), document.createElement("a"));
    document.addAttribute(a, "v", text);
    document.append(a, document.createData(NodeType::text, text));
    EXPECT_TRUE(equal(document.root(), parsed(writeXml(document))->root()));
}

}  // namespace tavisk
