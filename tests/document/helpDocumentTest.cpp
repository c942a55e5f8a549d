#include "document/helpDocument.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>

#include "xml/xmlReader.h"
#include "xml/xmlWriter.h"

namespace tavisk {

inline void PrintTo(const Message& message, std::ostream* out) {
    *out << message.title << " [" << static_cast<int>(message.style) << "] " << message.text;
}

namespace {

std::variant<HelpDocument, Refusal> open(std::string_view xml) {
    return openHelpDocument(dom::Source::copy(xml));
}

/// The message of a refused document; an empty one when it opens.
Message refusal(std::string_view xml) {
    const auto opened = open(xml);
    const Refusal* refused = std::get_if<Refusal>(&opened);
    return refused == nullptr ? Message{} : refused->message();
}

const Message none{"No cabinet data found...", "Error", BoxStyle::okCritical};
const Message two{"Multiple sets of cabinet data found...", "Error", BoxStyle::okCritical};
const Message noBase{"Error in XML data:\r\n\r\ncabinetinfo basenode does not exist", "Fatal error",
                     BoxStyle::okCritical};
const Message notOne{
    "Error in XML data:\r\n\r\nThere must be one, and only one, cabinet node per cabinet.",
    "Fatal error", BoxStyle::okCritical};

}  // namespace

TEST(HelpDocument, OpensADocumentWithOneCabinet) {
    const auto opened = open("<cabinetinfo><formula/><cabinet><a/></cabinet></cabinetinfo>");
    const HelpDocument& help = std::get<HelpDocument>(opened);
    EXPECT_EQ(help.cabinet->nodeName(), "cabinet");
    EXPECT_EQ(help.cabinet->parent(), help.articledoc->lastChild());
    EXPECT_EQ(writeXml(*help.articledoc),
              "<cabinetinfo><formula/><cabinet><a/></cabinet></cabinetinfo>");
}

TEST(HelpDocument, TheCabinetMayStandAtAnyDepth) {
    const auto opened = open("<cabinetinfo><a><b><cabinet/></b></a></cabinetinfo>");
    EXPECT_EQ(std::get<HelpDocument>(opened).cabinet->parent()->nodeName(), "b");
}

TEST(HelpDocument, AParseErrorIsShownWithItsLine) {
    const std::string xml = "<cabinetinfo>\n<cabinet>\n</cabinetinfo>";
    EXPECT_EQ(refusal(xml),
              (Message{readXml(xml).refusal.reason + "\r\nline 3", "Tavisk", BoxStyle::ok}));
}

TEST(HelpDocument, ARefusedEntityIsAParseError) {
    EXPECT_EQ(refusal("<!DOCTYPE a [\n<!ENTITY e 'x'>]><cabinetinfo/>"),
              (Message{"Entity declarations are not allowed\r\nline 2", "Tavisk", BoxStyle::ok}));
}

TEST(HelpDocument, EmptyTextIsAParseError) {
    EXPECT_EQ(refusal("").text, readXml("").refusal.reason + "\r\nline 1");
    EXPECT_EQ(refusal("").style, BoxStyle::ok);
}

TEST(HelpDocument, NoCabinetIsRefused) { EXPECT_EQ(refusal("<cabinetinfo/>"), none); }

TEST(HelpDocument, TwoCabinetsAreRefused) {
    EXPECT_EQ(refusal("<cabinetinfo><cabinet/><cabinet/></cabinetinfo>"), two);
}

TEST(HelpDocument, ACabinetInACabinetCounts) {
    EXPECT_EQ(refusal("<cabinetinfo><cabinet><a><cabinet/></a></cabinet></cabinetinfo>"), two);
}

TEST(HelpDocument, ThreeCabinetsAreRefusedWithAnotherMessage) {
    EXPECT_EQ(refusal("<cabinetinfo><cabinet/><cabinet/><cabinet/></cabinetinfo>"), notOne);
    EXPECT_EQ(refusal("<cabinetinfo><cabinet/><cabinet/><cabinet/><cabinet/></cabinetinfo>"),
              notOne);
}

TEST(HelpDocument, ADocumentElementOfAnotherNameIsRefused) {
    EXPECT_EQ(refusal("<info><cabinet/></info>"), noBase);
    EXPECT_EQ(refusal("<cabinetinfos><cabinet/></cabinetinfos>"), noBase);
    EXPECT_EQ(refusal("<cabinet/>"), noBase);
}

TEST(HelpDocument, TheNamesLetterCaseDoesNotMatter) {
    for (const char* name : {"CABINETINFO", "CabinetInfo", "cABINETiNFO"}) {
        const std::string tag = name;
        EXPECT_EQ(refusal("<" + tag + "><cabinet/></" + tag + ">"), Message{}) << name;
    }
}

TEST(HelpDocument, TheNamesPrefixDoesNotMatter) {
    EXPECT_EQ(refusal("<p:cabinetinfo xmlns:p='u'><cabinet/></p:cabinetinfo>"), Message{});
}

TEST(HelpDocument, OneCommentBehindTheDocumentElementIsRefused) {
    EXPECT_EQ(refusal("<cabinetinfo><cabinet/></cabinetinfo><!--m-->"), noBase);
}

TEST(HelpDocument, AnInstructionBehindTheDocumentElementIsRefused) {
    EXPECT_EQ(refusal("<cabinetinfo><cabinet/></cabinetinfo><?p d?>"), noBase);
}

TEST(HelpDocument, AnInstructionNamedLikeTheDocumentElementPassesForIt) {
    EXPECT_EQ(refusal("<info><cabinet/></info><?CabinetInfo?>"), Message{});
}

TEST(HelpDocument, CommentsAndWhiteSpaceAroundAreAccepted) {
    EXPECT_EQ(refusal("<!--m--><?p d?>\n<cabinetinfo><cabinet/></cabinetinfo>\r\n\t "), Message{});
}

TEST(HelpDocument, NoCabinetIsFoundBeforeAWrongDocumentElement) {
    EXPECT_EQ(refusal("<info/>"), none);
}

TEST(HelpDocument, TwoCabinetsAreFoundBeforeAWrongDocumentElement) {
    EXPECT_EQ(refusal("<info><cabinet/><cabinet/></info>"), two);
}

TEST(HelpDocument, AWrongDocumentElementIsFoundBeforeThreeCabinets) {
    EXPECT_EQ(refusal("<info><cabinet/><cabinet/><cabinet/></info>"), noBase);
}

TEST(HelpDocument, AParseErrorIsFoundBeforeEverythingElse) {
    EXPECT_EQ(refusal("<info><cabinet/><cabinet/>").style, BoxStyle::ok);
}

TEST(HelpDocument, CabinetsAreCountedByTheirExactTagName) {
    EXPECT_EQ(refusal("<cabinetinfo><Cabinet/><CABINET/></cabinetinfo>"), none);
    EXPECT_EQ(refusal("<cabinetinfo xmlns:p='u'><p:cabinet/></cabinetinfo>"), none);
    EXPECT_EQ(refusal("<cabinetinfo xmlns:p='u'><p:cabinet/><cabinet/></cabinetinfo>"), Message{});
}

TEST(HelpDocument, UnknownAttributesAndElementsPassThrough) {
    const std::string xml =
        "<cabinetinfo made=\"by hand\"><extra x=\"1\">t</extra><cabinet y=\"2\"/></cabinetinfo>";
    const auto opened = open(xml);
    EXPECT_EQ(writeXml(*std::get<HelpDocument>(opened).articledoc), xml);
}

TEST(HelpDocument, AnIndentedDocumentHasNoEmptyNodes) {
    const auto opened = open("<cabinetinfo>\n  <cabinet>\n    <a/>\n  </cabinet>\n</cabinetinfo>");
    EXPECT_EQ(std::get<HelpDocument>(opened).cabinet->childCount(), 1U);
}

TEST(HelpDocument, FormulasAndPicturesInsideTheCabinetAreItsChildren) {
    const auto opened = open("<cabinetinfo><cabinet><formula/><image/></cabinet></cabinetinfo>");
    EXPECT_EQ(std::get<HelpDocument>(opened).cabinet->childCount(), 2U);
}

}  // namespace tavisk
