// What is refused, for which reason and in which line.
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "xml/xmlReader.h"

namespace tavisk {
namespace {

using namespace std::string_literals;

const std::string entityReason = "Entity declarations are not allowed";

/// The line of the error. The reason has to be one line of text.
int errorLine(std::string_view xml) {
    const ParseResult result = readXml(xml);
    EXPECT_EQ(result.document, nullptr);
    const std::string& reason = result.refusal.reason;
    EXPECT_NE(reason, "");
    EXPECT_EQ(reason.find_first_of("\r\n"), std::string::npos) << reason;
    EXPECT_FALSE(reason.ends_with(' ')) << reason;
    return static_cast<int>(result.refusal.place.value_or(Place{0}).line);
}

std::string reasonOf(std::string_view xml) { return readXml(xml).refusal.reason; }

std::string nested(int depth) {
    std::string xml;
    for (int i = 0; i < depth; ++i)
        xml += "<n>\n";
    for (int i = 0; i < depth; ++i)
        xml += "</n>";
    return xml;
}

}  // namespace

TEST(XmlReaderErrors, EmptyTextIsRefused) {
    EXPECT_EQ(errorLine(""), 1);
    EXPECT_EQ(errorLine("\xEF\xBB\xBF"), 1);
}

TEST(XmlReaderErrors, WhiteSpaceAloneIsRefused) { EXPECT_GE(errorLine(" \n "), 1); }

TEST(XmlReaderErrors, ASourceWithoutBytesIsRefused) {
    const ParseResult result = readXml(dom::Source{});
    EXPECT_EQ(result.document, nullptr);
    EXPECT_EQ(result.refusal.reason, readXml("").refusal.reason);
    EXPECT_EQ(result.refusal.place, Place{1});
}

TEST(XmlReaderErrors, PlainTextIsRefused) { EXPECT_EQ(errorLine("hello"), 1); }

TEST(XmlReaderErrors, AMissingEndTagIsRefused) { EXPECT_EQ(errorLine("<a>\n<b>\n"), 3); }

TEST(XmlReaderErrors, AWrongEndTagIsRefusedInItsLine) {
    EXPECT_EQ(errorLine("<a>\n<b>\n</a>"), 3);
    EXPECT_EQ(errorLine("<a>\n</A>"), 2);
}

TEST(XmlReaderErrors, TheFirstErrorCounts) {
    const std::string first = reasonOf("<a>\n<b x='1' x='2'/></a>");
    EXPECT_EQ(reasonOf("<a>\n<b x='1' x='2'/>\n</c>"), first);
    EXPECT_EQ(errorLine("<a>\n<b x='1' x='2'/>\n</c>\n&"), 2);
}

TEST(XmlReaderErrors, TheReasonSaysWhatIsWrong) {
    EXPECT_NE(reasonOf("<a x='1' x='2'/>").find("x"), std::string::npos);
    EXPECT_NE(reasonOf("<a></b>").find("mismatch"), std::string::npos);
}

TEST(XmlReaderErrors, ALineBreakInTheDocumentIsNoneInTheReason) {
    EXPECT_EQ(errorLine("<a xmlns:p='u&#13;&#10;v' xmlns:q='u&#13;&#10;v' p:x='' q:x=''/>"), 1);
}

TEST(XmlReaderErrors, ContentBehindTheDocumentElementIsRefused) {
    EXPECT_EQ(errorLine("<a/>\n<b/>"), 2);
    EXPECT_EQ(errorLine("<a/>\ntext"), 2);
}

TEST(XmlReaderErrors, DuplicateAttributesAreRefused) {
    EXPECT_EQ(errorLine("<a>\n<b x='1' y='2' x='1'/></a>"), 2);
}

TEST(XmlReaderErrors, DuplicateAttributesByNamespaceAreRefused) {
    EXPECT_EQ(errorLine("<a xmlns:p='u' xmlns:q='u'>\n<b p:x='1' q:x='2'/></a>"), 2);
}

TEST(XmlReaderErrors, AnUndeclaredPrefixIsRefused) {
    EXPECT_EQ(errorLine("<a>\n<p:b/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<b p:x='1'/></a>"), 2);
}

TEST(XmlReaderErrors, APrefixDeclaredOnlyBesideIsRefused) {
    EXPECT_EQ(errorLine("<a>\n<b xmlns:p='u'/>\n<p:c/></a>"), 3);
}

TEST(XmlReaderErrors, BareMarkupCharactersAreRefused) {
    EXPECT_EQ(errorLine("<a>\n&</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n& b</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<b x='<'/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n]]></a>"), 2);
}

TEST(XmlReaderErrors, AttributesNeedQuotes) {
    EXPECT_EQ(errorLine("<a>\n<b x=1/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<b x/></a>"), 2);
}

TEST(XmlReaderErrors, ANameThatIsNoneIsRefused) {
    EXPECT_EQ(errorLine("<a>\n<-b/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<1b/></a>"), 2);
}

TEST(XmlReaderErrors, TwoHyphensInACommentAreRefused) {
    EXPECT_EQ(errorLine("<a>\n<!-- a -- b --></a>"), 2);
}

TEST(XmlReaderErrors, ADeclarationAnywhereElseIsRefused) {
    EXPECT_EQ(errorLine("\n<?xml version='1.0'?><a/>"), 2);
    EXPECT_EQ(errorLine("<a>\n<?xml version='1.0'?></a>"), 2);
}

TEST(XmlReaderErrors, ANulIsRefusedInItsLine) {
    EXPECT_EQ(errorLine("<a>\n\n\0</a>"s), 3);
    EXPECT_EQ(errorLine("<a/>\0"s), 1);
    EXPECT_EQ(errorLine("\0"s), 1);
}

TEST(XmlReaderErrors, AControlCharacterIsRefusedInItsLine) {
    EXPECT_EQ(errorLine("<a>\n\n\x01</a>"), 3);
    EXPECT_EQ(errorLine("<a>\n<b v='\x1F'/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<!--\x0B--></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<![CDATA[\x0C]]></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n&#1;</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<b v='&#x0;'/></a>"), 2);
}

TEST(XmlReaderErrors, ALoneSurrogateIsRefusedInItsLine) {
    EXPECT_EQ(errorLine("<a>\n\n\xED\xA0\x80</a>"), 3);
    EXPECT_EQ(errorLine("<a>\n<b v='\xED\xBF\xBF'/></a>"), 2);
    EXPECT_EQ(errorLine("<a>\n&#xD800;</a>"), 2);
}

TEST(XmlReaderErrors, BytesThatAreNoUtf8AreRefusedInTheirLine) {
    EXPECT_EQ(errorLine("<a>\n\xE9</a>"), 2);
    EXPECT_EQ(errorLine("<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\n\xE9</a>"), 3);
    EXPECT_EQ(errorLine("<a>\n\xC0\x80</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n\xF0\x9F</a>"), 2);
}

TEST(XmlReaderErrors, Utf16BytesAreRefused) {
    EXPECT_GE(errorLine("<\0a\0/\0>\0"s), 1);
    EXPECT_GE(errorLine("\xFF\xFE<\0a\0/\0>\0"s), 1);
    EXPECT_GE(errorLine("\xFE\xFF\0<\0a\0/\0>"s), 1);
}

TEST(XmlReaderErrors, TheNoncharactersAreRefused) {
    EXPECT_EQ(errorLine("<a>\n\uFFFE</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n\uFFFF</a>"), 2);
}

TEST(XmlReaderErrors, EntityDeclarationsAreRefused) {
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"), entityReason);
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"), entityReason);
    EXPECT_EQ(errorLine("<!DOCTYPE a [\n\n<!ENTITY e 'x'>]><a/>"), 3);
}

TEST(XmlReaderErrors, ExternalEntitiesAreRefusedAndNotOpened) {
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>"),
              entityReason);
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY e PUBLIC 'p' 'http://192.0.2.1/'>]><a>&e;</a>"),
              entityReason);
}

TEST(XmlReaderErrors, ParameterEntitiesAreRefused) {
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///etc/passwd'> %p;]><a/>"),
              entityReason);
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY % p '<!ELEMENT a ANY>'> %p;]><a/>"), entityReason);
}

TEST(XmlReaderErrors, UnparsedEntitiesAreRefused) {
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!NOTATION n SYSTEM 'x'><!ENTITY e SYSTEM 'y' NDATA n>]><a/>"),
              entityReason);
}

TEST(XmlReaderErrors, PredefinedEntitiesMayNotBeDeclaredEither) {
    EXPECT_EQ(reasonOf("<!DOCTYPE a [<!ENTITY lt '&#38;#60;'>]><a/>"), entityReason);
}

TEST(XmlReaderErrors, AnEntityBombIsRefusedAtItsFirstDeclaration) {
    std::string xml = "<!DOCTYPE a [\n<!ENTITY e0 'ha'>\n";
    for (int i = 1; i < 30; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + "'>\n";
    }
    xml += "]><a>&e29;</a>";
    EXPECT_EQ(reasonOf(xml), entityReason);
    EXPECT_EQ(errorLine(xml), 2);
}

TEST(XmlReaderErrors, UndeclaredEntitiesAreRefused) {
    EXPECT_EQ(errorLine("<a>\n&nbsp;</a>"), 2);
    EXPECT_EQ(errorLine("<a>\n<b v='&nbsp;'/></a>"), 2);
}

TEST(XmlReaderErrors, UndeclaredEntitiesAreRefusedBehindADocumentTypeToo) {
    EXPECT_EQ(errorLine("<!DOCTYPE a SYSTEM 'x.dtd'>\n<a>\n&nbsp;</a>"), 3);
    EXPECT_EQ(errorLine("<!DOCTYPE a SYSTEM 'x.dtd'>\n<a>\n<b v='&nbsp;'/></a>"), 3);
    EXPECT_EQ(errorLine("<!DOCTYPE a [\n%p;\n]>\n<a>&e;</a>"), 2);
}

TEST(XmlReaderErrors, DeeperThan1000LevelsIsRefusedInItsLine) {
    EXPECT_NE(readXml(nested(1000)).document, nullptr);
    EXPECT_EQ(errorLine(nested(1001)), 1001);
    EXPECT_EQ(reasonOf(nested(1001)), "Nesting deeper than 1,000 elements");
}

TEST(XmlReaderErrors, VeryDeepNestingIsRefusedLikewise) {
    EXPECT_EQ(errorLine(nested(100'000)), 1001);
}

TEST(XmlReaderErrors, LinesBeyond65535AreCountedRight) {
    const std::string lines(70'000, '\n');
    EXPECT_EQ(errorLine("<a>" + lines + "<b></a>"), 70'001);
    EXPECT_EQ(errorLine("<a>" + lines + "\x01</a>"), 70'001);
    EXPECT_EQ(errorLine("<a>" + lines + "\xED\xA0\x80</a>"), 70'001);
    EXPECT_EQ(errorLine("<!DOCTYPE a [" + lines + "<!ENTITY e 'x'>]><a/>"), 70'001);
    EXPECT_EQ(errorLine("<a>" + lines + "<p:b/></a>"), 70'001);
}

TEST(XmlReaderErrors, LinesAreCountedInsideTagsAndComments) {
    EXPECT_EQ(errorLine("<a\nx='1'\ny='\n'><!--\n\n--><b></a>"), 6);
}

TEST(XmlReaderErrors, ATruncatedDocumentIsRefusedAtEveryPlace) {
    const std::string xml =
        "<?xml version='1.0'?><!DOCTYPE a [<!ELEMENT a ANY>]><a v='&amp;'><!--m--><?p d?>"
        "<![CDATA[c]]>t&lt;<b/></a>";
    ASSERT_NE(readXml(xml).document, nullptr);
    for (std::size_t length = 0; length < xml.size(); ++length) {
        EXPECT_GE(errorLine(std::string_view(xml).substr(0, length)), 1) << length;
    }
}

TEST(XmlReaderErrors, AReaderStartsAfreshAfterAnError) {
    EXPECT_EQ(errorLine("<a>"), 1);
    const ParseResult result = readXml("<a/>");
    EXPECT_NE(result.document, nullptr);
    EXPECT_EQ(result.refusal, Refusal{});
}

}  // namespace tavisk
