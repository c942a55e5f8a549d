#include "check/sourcePlaces.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/xml.h"

namespace tavisk {
namespace {

/// The place of the first element of the name.
Place placeOf(std::string_view xml, std::string_view element, std::string_view attribute = "",
              std::optional<std::size_t> position = std::nullopt) {
    const auto document = test::parsed(xml);
    return SourcePlaces(xml).of(test::element(*document, element), attribute, position);
}

TEST(SourcePlaces, TheTagOfAnElement) {
    EXPECT_EQ(placeOf("<a><b/></a>", "a"), (Place{1, 1}));
    EXPECT_EQ(placeOf("<a><b/></a>", "b"), (Place{1, 4}));
    EXPECT_EQ(placeOf("<a>\n\n  <b/></a>", "b"), (Place{3, 3}));
}

TEST(SourcePlaces, LinesEndWithALineFeed) {
    EXPECT_EQ(placeOf("<a>\r\n<b/>\r\n<c/></a>", "c"), (Place{3, 1}));
}

TEST(SourcePlaces, WhatIsNoElementIsPassed) {
    EXPECT_EQ(placeOf("<?xml version='1.0'?><!--<b>--><?i <b>?><a><![CDATA[<b>]]></a>", "a"),
              (Place{1, 41}));
    EXPECT_EQ(placeOf("<a><!--<b>--><?i <b>?><![CDATA[<b>]]><c></c>x<b/></a>", "b"),
              (Place{1, 46}));
}

TEST(SourcePlaces, ADocumentTypeIsPassed) {
    EXPECT_EQ(placeOf("<!DOCTYPE a SYSTEM 'x>'><a/>", "a"), (Place{1, 25}));
    EXPECT_EQ(placeOf("<!DOCTYPE a [<!ELEMENT b ANY><!-- ]> --><?p ]>?>\n"
                      "<!ATTLIST b c CDATA ']>'>]><a><b/></a>",
                      "b"),
              (Place{2, 31}));
}

TEST(SourcePlaces, AGreaterThanSignInAnAttributeEndsNoTag) {
    EXPECT_EQ(placeOf("<a x='>&lt;b' y=\"'>\"><b/></a>", "b"), (Place{1, 22}));
}

TEST(SourcePlaces, CommentsAndInstructions) {
    const std::string_view xml = "<a><b/><!--c--><?d e?></a>";
    const auto document = test::parsed(xml);
    SourcePlaces places(xml);
    const dom::Node* comment = test::element(*document, "b").next();
    EXPECT_EQ(places.of(*comment, "", std::nullopt), (Place{1, 8}));
    EXPECT_EQ(places.of(*comment->next(), "", std::nullopt), (Place{1, 16}));
}

TEST(SourcePlaces, ATextIsWhereItsElementIs) {
    const std::string_view xml = "<a><b>text</b></a>";
    const auto document = test::parsed(xml);
    EXPECT_EQ(SourcePlaces(xml).of(*test::element(*document, "b").firstChild(), "", std::nullopt),
              (Place{1, 4}));
}

TEST(SourcePlaces, TheTextOfAnAttribute) {
    EXPECT_EQ(placeOf("<a b='1' c = \"2\"/>", "a", "b"), (Place{1, 7}));
    EXPECT_EQ(placeOf("<a b='1' c = \"2\"/>", "a", "c"), (Place{1, 15}));
    EXPECT_EQ(placeOf("<a\nb='c=\"1\"'\nc='2'/>", "a", "c"), (Place{3, 4}));
}

TEST(SourcePlaces, APrefixIsNoPartOfTheName) {
    EXPECT_EQ(placeOf("<a xmlns:p='u' p:b='1'/>", "a", "b"), (Place{1, 21}));
}

TEST(SourcePlaces, AnAttributeThatIsNotWrittenIsWhereItsTagIs) {
    EXPECT_EQ(placeOf("<x><a b='1'/></x>", "a", "c"), (Place{1, 4}));
    EXPECT_EQ(placeOf("<x><a>b='1'</a></x>", "a", "b"), (Place{1, 4}));
    EXPECT_EQ(placeOf("<!DOCTYPE a [<!ATTLIST a b CDATA '1'>]>\n<a/>", "a", "b"), (Place{2, 1}));
}

TEST(SourcePlaces, APositionInAPlainText) {
    EXPECT_EQ(placeOf("<a b='012345'/>", "a", "b", 0), (Place{1, 7}));
    EXPECT_EQ(placeOf("<a b='012345'/>", "a", "b", 4), (Place{1, 11}));
}

TEST(SourcePlaces, ReferencesAreOneCharacterOfTheText) {
    EXPECT_EQ(placeOf("<a b='&amp;&#10;&#x41;x'/>", "a", "b", 3), (Place{1, 23}));
}

TEST(SourcePlaces, CodeUnitsAreCounted) {
    // Two units each: as a reference, and as it is.
    EXPECT_EQ(placeOf("<a b='&#x1F600;x'/>", "a", "b", 2), (Place{1, 16}));
    EXPECT_EQ(placeOf("<a b='\xF0\x9F\x98\x80x'/>", "a", "b", 2), (Place{1, 9}));
    EXPECT_EQ(placeOf("<a b='\xC3\xA4x'/>", "a", "b", 1), (Place{1, 8}));
}

TEST(SourcePlaces, ALineEndOfTwoCharactersIsOneInTheText) {
    EXPECT_EQ(placeOf("<a b='1\r\n2\n3'/>", "a", "b", 2), (Place{2, 1}));
    EXPECT_EQ(placeOf("<a b='1\r\n2\n3'/>", "a", "b", 4), (Place{3, 1}));
}

TEST(SourcePlaces, AByteOrderMarkHasNoColumn) {
    EXPECT_EQ(placeOf("\xEF\xBB\xBF<?xml version='1.0'?><a/>", "a"), (Place{1, 22}));
}

TEST(SourcePlaces, PlacesMayBeAskedForInAnyOrder) {
    const std::string_view xml = "<a>\n<b/>\n<c/><d/></a>";
    const auto document = test::parsed(xml);
    SourcePlaces places(xml);
    const auto of = [&](std::string_view name) {
        return places.of(test::element(*document, name), "", std::nullopt);
    };
    EXPECT_EQ(of("d"), (Place{3, 5}));
    EXPECT_EQ(of("b"), (Place{2, 1}));
    EXPECT_EQ(of("b"), (Place{2, 1}));
    EXPECT_EQ(of("c"), (Place{3, 1}));
}

TEST(SourcePlaces, EveryElementIsFoundAmongEverythingElse) {
    const std::string xml =
        "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <a> --><?p <a>?>\n"
        "<!DOCTYPE a [<!-- ]> --><!ATTLIST b c CDATA \"]>\">]>\n"
        "<!----><a x=\"'>\"><![CDATA[]]><b/>text<?q?>&lt;b><c\n d = '&#62;>'\n/><![CDATA[<b>]]]]>"
        "<![CDATA[>]]><b>\xF0\x9F\x98\x80<d/></b>\r\n<e ></e ><f/></a><!-- <f/> --><?r?>\n";
    const auto document = test::parsed(xml);
    SourcePlaces places(xml);
    std::size_t count = 0;
    const dom::Node& root = document->root();
    for (const dom::Node* node = nextInDocument(root, root); node != nullptr;
         node = nextInDocument(*node, root)) {
        if (!node->isElement()) continue;
        ++count;
        const Place place = places.of(*node, "", std::nullopt);
        std::string_view line = xml;
        for (std::size_t i = 1; i < place.line; ++i)
            line.remove_prefix(line.find('\n') + 1);
        // The only character of two units, and of four bytes, stands before "d".
        const std::size_t more = node->nodeName() == "d" ? 2 : 0;
        const std::string tag = '<' + std::string(node->nodeName());
        EXPECT_EQ(line.substr(*place.column - 1 + more, tag.size()), tag);
    }
    EXPECT_EQ(count, 7u);
}

}  // namespace
}  // namespace tavisk
