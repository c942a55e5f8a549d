// What is read, and how the tree shows it.
#include "xml/xmlReader.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using dom::Node;
using dom::NodeType;
using test::element;
using test::parsed;
using namespace std::string_literals;

/// The document as it is written again.
std::string again(std::string_view xml) { return writeXml(*parsed(xml)); }

std::string_view firstText(const dom::Document& document) {
    return document.lastChild()->firstChild()->data();
}

std::string_view firstAttribute(const dom::Document& document) {
    return document.lastChild()->attributes()[0].text();
}

}  // namespace

TEST(XmlReader, ReadsElementsAttributesAndText) {
    const auto document = parsed("<a x=\"1\" y='2'>text<b/></a>");
    const Node& a = *document->lastChild();
    EXPECT_EQ(a.nodeName(), "a");
    EXPECT_EQ(a.attributes()[1].name(), "y");
    EXPECT_EQ(a.attributes()[1].text(), "2");
    EXPECT_EQ(a.firstChild()->data(), "text");
    EXPECT_EQ(a.lastChild()->nodeName(), "b");
}

TEST(XmlReader, TakesItsSourceAsItIs) {
    const ParseResult result = readXml(dom::Source::copy("<a/>"));
    EXPECT_EQ(result.document->lastChild()->nodeName(), "a");
    EXPECT_EQ(result.refusal, Refusal{});
}

TEST(XmlReader, RemembersWhetherThereWasADeclaration) {
    EXPECT_TRUE(parsed("<?xml version='1.0'?><a/>")->hasDeclaration());
    EXPECT_TRUE(parsed("\xEF\xBB\xBF<?xml version='1.0'?><a/>")->hasDeclaration());
    EXPECT_FALSE(parsed("<a/>")->hasDeclaration());
    EXPECT_FALSE(parsed("<?xml-stylesheet href='a'?><a/>")->hasDeclaration());
}

TEST(XmlReader, ADeclaredEncodingIsIgnored) {
    for (const char* name : {"UTF-8", "utf8", "ISO-8859-1", "US-ASCII", "UTF-16", "UTF-16LE",
                             "UCS-4", "Shift_JIS", "EBCDIC-CP-US", "no-such-encoding"}) {
        const std::string xml =
            "<?xml version=\"1.0\" encoding=\""s + name + "\"?><a v=\"é€\">é\U0001F600</a>";
        const auto document = parsed(xml);
        EXPECT_EQ(firstAttribute(*document), "é€") << name;
        EXPECT_EQ(firstText(*document), "é\U0001F600") << name;
    }
}

TEST(XmlReader, AStandaloneDeclarationIsRead) {
    EXPECT_EQ(again("<?xml version='1.0' encoding='x' standalone='yes'?><a/>"),
              "<?xml version=\"1.0\"?>\r\n<a/>");
}

TEST(XmlReader, AByteOrderMarkAtTheStartIsSkipped) {
    EXPECT_EQ(again("\xEF\xBB\xBF<a>é</a>"), "<a>é</a>");
}

TEST(XmlReader, AByteOrderMarkInsideIsACharacter) {
    EXPECT_EQ(firstText(*parsed("<a>x\uFEFF</a>")), "x\uFEFF");
}

TEST(XmlReader, CharacterReferencesAreResolved) {
    EXPECT_EQ(firstText(*parsed("<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;</a>")),
              "<>&\"'A\U0001F600");
    EXPECT_EQ(firstAttribute(*parsed("<a v='&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;'/>")),
              "<>&\"'A\U0001F600");
}

TEST(XmlReader, LineFeedsInAttributesComeBackFromReferences) {
    EXPECT_EQ(firstAttribute(*parsed("<a v='one&#10;two&#13;&#9;three'/>")), "one\ntwo\r\tthree");
}

TEST(XmlReader, WrittenWhiteSpaceInAttributesIsReadAsSpaces) {
    EXPECT_EQ(firstAttribute(*parsed("<a v='one\ntwo\tthree\r\nfour'/>")), "one two three four");
}

TEST(XmlReader, LineEndsInTextAreReadAsLineFeeds) {
    EXPECT_EQ(firstText(*parsed("<a>one\r\ntwo\rthree\nfour&#13;</a>")), "one\ntwo\nthree\nfour\r");
}

TEST(XmlReader, TextInPiecesIsOneNode) {
    const auto document = parsed("<a>one &amp; two\r\n&#33; three</a>");
    EXPECT_EQ(document->lastChild()->childCount(), 1U);
    EXPECT_EQ(firstText(*document), "one & two\n! three");
}

TEST(XmlReader, WhiteSpaceOnlyTextIsDropped) {
    EXPECT_EQ(again("<a>\n  <b>\t</b>\r\n  <c> </c>\n</a>\n"), "<a><b/><c/></a>");
}

TEST(XmlReader, WhiteSpaceFromReferencesIsDroppedToo) {
    EXPECT_EQ(again("<a> &#32;&#10;&#x9; <b/></a>"), "<a><b/></a>");
}

TEST(XmlReader, WhiteSpaceAroundOtherTextIsKept) {
    EXPECT_EQ(firstText(*parsed("<a>\n  text \n</a>")), "\n  text \n");
    EXPECT_EQ(firstText(*parsed("<a>  &amp;  </a>")), "  &  ");
}

TEST(XmlReader, OtherSpacesAreNoWhiteSpace) {
    EXPECT_EQ(firstText(*parsed("<a>\u00A0</a>")), "\u00A0");
}

TEST(XmlReader, WhiteSpaceBelowSpacePreserveIsKept) {
    EXPECT_EQ(again("<a> <b xml:space=\"preserve\"> <c> </c> </b> <d> </d></a>"),
              "<a><b xml:space=\"preserve\"> <c> </c> </b><d/></a>");
}

TEST(XmlReader, SpaceDefaultBelowSpacePreserveChangesNothing) {
    EXPECT_EQ(again("<a xml:space=\"preserve\"><b xml:space=\"default\"> </b></a>"),
              "<a xml:space=\"preserve\"><b xml:space=\"default\"> </b></a>");
}

TEST(XmlReader, OnlyTheAttributeXmlSpacePreserves) {
    EXPECT_EQ(again("<a space=\"preserve\"> <b/></a>"), "<a space=\"preserve\"><b/></a>");
    EXPECT_EQ(again("<a xml:space=\"default\"> <b/></a>"), "<a xml:space=\"default\"><b/></a>");
}

TEST(XmlReader, WhiteSpaceBetweenCommentsIsDroppedPieceByPiece) {
    EXPECT_EQ(again("<a> <!--m--> <?p?> </a>"), "<a><!--m--><?p?></a>");
}

TEST(XmlReader, CdataSectionsStayCdataSections) {
    const std::string xml = "<a>t<![CDATA[ <b> & ]] > ]]>u<![CDATA[v]]></a>";
    const auto document = parsed(xml);
    EXPECT_EQ(document->lastChild()->childCount(), 4U);
    EXPECT_EQ(document->lastChild()->firstChild()->next()->data(), " <b> & ]] > ");
    EXPECT_EQ(writeXml(*document), xml);
}

TEST(XmlReader, WhiteSpaceInACdataSectionIsKept) {
    EXPECT_EQ(again("<a> <![CDATA[ \n]]> </a>"), "<a><![CDATA[ \n]]></a>");
}

TEST(XmlReader, CommentsAndInstructionsAreKeptEverywhere) {
    const std::string xml =
        "<!-- before --><?one a b?><a><!--in--><?two?></a><!-- after --><?three c?>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, CommentsAndInstructionsKeepTheirText) {
    const auto document = parsed("<a><!-- a - b & <c> --><?p  x=\"1\" & <y> ?></a>");
    const Node& comment = *document->lastChild()->firstChild();
    EXPECT_EQ(comment.data(), " a - b & <c> ");
    EXPECT_EQ(comment.next()->nodeName(), "p");
    EXPECT_EQ(comment.next()->data(), "x=\"1\" & <y> ");
}

TEST(XmlReader, AttributesKeepTheirOrder) {
    EXPECT_EQ(again("<a z='1' m='2' a='3' Z='4'/>"), "<a z=\"1\" m=\"2\" a=\"3\" Z=\"4\"/>");
}

TEST(XmlReader, NamespaceDeclarationsKeepTheirPlaceAmongAttributes) {
    const std::string xml =
        "<a x=\"1\" xmlns:q=\"u2\" p:y=\"2\" xmlns=\"u\" z=\"3\" xmlns:p=\"u1\" q:y=\"4\"/>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, OddlyWrittenTagsKeepTheirAttributeOrderToo) {
    EXPECT_EQ(again("<p:a\n x = '1>/' \t xmlns:p\r\n=\n'u' y='xmlns:q=\"2\"'\n p:z=\"'\" />"),
              "<p:a x=\"1&gt;/\" xmlns:p=\"u\" y=\"xmlns:q=&quot;2&quot;\" p:z=\"'\"/>");
}

TEST(XmlReader, PrefixesAreKeptAsWritten) {
    const std::string xml =
        "<p:a xmlns:p=\"u\"><q:b xmlns:q=\"u\" p:x=\"1\"/><b xmlns=\"u\"><c xmlns=\"\"/></b></p:a>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, EqualNamesWithDifferentPrefixesAreToldApart) {
    const auto document = parsed("<a xmlns:p='u' xmlns:q='v' p:x='1' q:x='2' x='3'/>");
    const auto attributes = document->lastChild()->attributes();
    EXPECT_EQ(attributes[2].name(), "p:x");
    EXPECT_EQ(attributes[3].name(), "q:x");
    EXPECT_EQ(attributes[4].name(), "x");
    EXPECT_EQ(attributes[4].text(), "3");
}

TEST(XmlReader, AnOddNamespaceAddressIsNoError) {
    EXPECT_EQ(again("<a xmlns:p=\"not a:// uri %\"/>"), "<a xmlns:p=\"not a:// uri %\"/>");
    EXPECT_EQ(again("<a xmlns=\"relative\"/>"), "<a xmlns=\"relative\"/>");
}

TEST(XmlReader, ADocumentTypeIsKeptAsWritten) {
    for (const char* type :
         {"<!DOCTYPE a>", "<!DOCTYPE  a  SYSTEM 'no such file.dtd' >",
          "<!DOCTYPE a PUBLIC \"-//x//EN\" \"http://192.0.2.1/x.dtd\">",
          "<!DOCTYPE a [\n <!ELEMENT a (b?) >\r\n <!-- <!ENTITY e 'x'> > ] -->\n <?p ]> ?>]>",
          "<!DOCTYPE a [<!ATTLIST a v CDATA #IMPLIED><!NOTATION n SYSTEM 'x'>] >"}) {
        EXPECT_EQ(again(type + "<a/>"s), type + "<a/>"s);
    }
}

TEST(XmlReader, ADocumentTypeKeepsItsPlaceBehindCommentsAndInstructions) {
    EXPECT_EQ(again("<?xml version='1.0'?>\n<!-- <!DOCTYPE b> -->\n<?p <!DOCTYPE c>?>\n"
                    "<!DOCTYPE a>\n<!--m-->\n<a/>"),
              "<?xml version=\"1.0\"?>\r\n<!-- <!DOCTYPE b> --><?p <!DOCTYPE c>?>"
              "<!DOCTYPE a><!--m--><a/>");
}

TEST(XmlReader, ADocumentTypesFileIsNotOpened) {
    const std::string file = ::testing::TempDir() + "xmlReaderTest.dtd";
    std::ofstream(file) << "<!ATTLIST a v CDATA 'from the file'>";
    const std::string xml = "<!DOCTYPE a SYSTEM \"file://" + file + "\"><a/>";
    EXPECT_EQ(again(xml), xml);
    std::remove(file.c_str());
}

TEST(XmlReader, DefaultsOfADocumentTypeFillMissingAttributes) {
    const auto document = parsed("<!DOCTYPE a [<!ATTLIST a v CDATA 'd'>]><a w='1'/>");
    EXPECT_EQ(document->lastChild()->attributes().size(), 2U);
    EXPECT_EQ(document->lastChild()->attributes()[1].name(), "v");
    EXPECT_EQ(document->lastChild()->attributes()[1].text(), "d");
}

TEST(XmlReader, ATreeOf1000LevelsIsRead) {
    std::string xml;
    for (int i = 0; i < 1000; ++i)
        xml += "<n>";
    xml += "t";
    for (int i = 0; i < 1000; ++i)
        xml += "</n>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, AnAttributeMayBeVeryLong) {
    const std::string text(12'000'000, 'x');
    EXPECT_EQ(firstAttribute(*parsed("<a v=\"" + text + "\"/>")), text);
}

TEST(XmlReader, ATextMayBeVeryLong) {
    const std::string text(12'000'000, 'x');
    const auto document = parsed("<a>" + text + "</a>");
    EXPECT_EQ(document->lastChild()->childCount(), 1U);
    EXPECT_EQ(firstText(*document), text);
}

TEST(XmlReader, ALongTextWithReferencesIsOneNode) {
    std::string xml;
    std::string text;
    for (int i = 0; i < 200'000; ++i) {
        xml += "some text &amp; more\r\n";
        text += "some text & more\n";
    }
    const auto document = parsed("<a>" + xml + "</a>");
    EXPECT_EQ(document->lastChild()->childCount(), 1U);
    EXPECT_EQ(firstText(*document), text);
}

TEST(XmlReader, CommentsAndCdataMayBeVeryLong) {
    const std::string text(12'000'000, 'x');
    const auto document = parsed("<a><!--" + text + "--><![CDATA[" + text + "]]></a>");
    EXPECT_EQ(firstText(*document), text);
    EXPECT_EQ(document->lastChild()->lastChild()->data(), text);
}

TEST(XmlReader, ManyAttributesAndDeclarationsAreRead) {
    std::string xml = "<a";
    for (int i = 0; i < 8000; ++i) {
        const std::string number = std::to_string(i);
        xml.append(" n").append(number).append("=\"").append(number).append("\"");
        if (i % 8 == 0) xml.append(" xmlns:p").append(number).append("=\"u").append(number + "\"");
    }
    xml += "/>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, DefaultsOfADocumentTypeGoBehindTheWrittenAttributes) {
    const std::string type =
        "<!DOCTYPE a [<!ATTLIST a v CDATA 'd' xmlns:q CDATA 'w' z CDATA 'e'>]>";
    EXPECT_EQ(again(type + "<a z='1' xmlns='u' y='2'/>"),
              type + "<a z=\"1\" xmlns=\"u\" y=\"2\" xmlns:q=\"w\" v=\"d\"/>");
}

TEST(XmlReader, NodesTellWhereTheyStood) {
    const std::string xml =
        "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <a> --><!DOCTYPE a [<!-- <a> -->]>\n<?p <a>?>"
        "<a x='>' xmlns='u'><![CDATA[<b>]]><![CDATA[]]>text<b/>&lt;<c></c ><?q?><!----></a><?r?>";
    const auto document = parsed(xml);
    const Node& root = document->root();
    std::string found;
    for (const Node* node = nextInDocument(root, root); node != nullptr;
         node = nextInDocument(*node, root)) {
        if (node->type() == NodeType::text) {
            EXPECT_EQ(node->sourceOffset(), 0U);
        } else {
            found += xml.substr(node->sourceOffset(), 5) + '|';
        }
    }
    EXPECT_EQ(found, "<!-- |<!DOC|<?p <|<a x=|<![CD|<![CD|<b/>&|<c></|<?q?>|<!---|<?r?>|");
}

TEST(XmlReader, ManyDifferentNamesAreRead) {
    std::string xml = "<a>";
    for (int i = 0; i < 20'000; ++i)
        xml.append("<n").append(std::to_string(i)).append("/>");
    xml += "</a>";
    EXPECT_EQ(again(xml), xml);
}

TEST(XmlReader, NamesOfOtherScriptsAreRead) {
    EXPECT_EQ(again("<größe höhe=\"1\"><жук/></größe>"), "<größe höhe=\"1\"><жук/></größe>");
}

}  // namespace tavisk
