#include "document/xmlParse.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

#include "base/text.h"
#include "support/errors.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using test::element;
using test::errorOf;
using test::parsed;

std::string valueIn(std::string_view xml, std::string_view name) {
    const auto document = parsed(xml);
    return std::string(GetAttributeValue(document->lastChild(), name, "default"));
}

std::string afterSetting(std::string_view xml, std::string_view name, std::string_view value) {
    const auto document = parsed(xml);
    SetAttributeValue(*document, *document->lastChild(), name, value);
    return writeXml(*document);
}

/// An element with attributes "a0", "a1" and so on, each holding its own number.
std::unique_ptr<dom::Document> withAttributes(std::size_t count) {
    auto document = std::make_unique<dom::Document>();
    dom::Node& r = document->append(document->root(), document->createElement("r"));
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        document->addAttribute(r, "a" + number, number);
    }
    return document;
}

std::string repeated(std::string_view what, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += what;
    return text;
}

bool valid(std::string_view name) { return IsValidNodeName(name, nullptr); }

bool validBelow(std::string_view xml, std::string_view name) {
    const auto document = parsed(xml);
    return IsValidNodeName(name, document->lastChild());
}

int nameError(std::string_view name) {
    return errorOf([&] { valid(name); });
}

}  // namespace

TEST(GetAttributeValue, ReadsTheAttribute) { EXPECT_EQ(valueIn("<r v='1'/>", "v"), "1"); }

TEST(GetAttributeValue, AMissingAttributeReadsAsTheDefault) {
    EXPECT_EQ(valueIn("<r v='1'/>", "w"), "default");
    EXPECT_EQ(valueIn("<r/>", "w"), "default");
}

TEST(GetAttributeValue, AnEmptyAttributeIsNotTheDefault) {
    EXPECT_EQ(valueIn("<r v=''/>", "v"), "");
}

TEST(GetAttributeValue, NamesAreCaseSensitive) {
    EXPECT_EQ(valueIn("<r Value='1'/>", "value"), "default");
    EXPECT_EQ(valueIn("<r value='1'/>", "Value"), "default");
}

TEST(GetAttributeValue, NamesAreComparedWhole) {
    EXPECT_EQ(valueIn("<r values='1' val='2'/>", "value"), "default");
}

TEST(GetAttributeValue, APrefixDoesNotCount) {
    EXPECT_EQ(valueIn("<r xmlns:p='u' p:v='1'/>", "v"), "1");
    EXPECT_EQ(valueIn("<r xmlns:p='u' p:v='1'/>", "p:v"), "default");
}

TEST(GetAttributeValue, TheFirstMatchCounts) {
    EXPECT_EQ(valueIn("<r xmlns:p='u' p:v='1' v='2'/>", "v"), "1");
    EXPECT_EQ(valueIn("<r xmlns:p='u' v='2' p:v='1'/>", "v"), "2");
}

TEST(GetAttributeValue, ANamespaceDeclarationIsAnAttributeOfItsPrefix) {
    EXPECT_EQ(valueIn("<r xmlns:v='u' v='1'/>", "v"), "u");
}

TEST(GetAttributeValue, NullReadsAsTheDefault) {
    EXPECT_EQ(GetAttributeValue(nullptr, "v", "default"), "default");
}

TEST(GetAttributeValue, NodesWithoutAttributesReadAsTheDefault) {
    const auto document = parsed("<r>t<!--m--><?p v='1'?><![CDATA[c]]></r>");
    for (const dom::Node* node = document->lastChild()->firstChild(); node != nullptr;
         node = node->next()) {
        EXPECT_EQ(GetAttributeValue(node, "v", "default"), "default");
    }
    EXPECT_EQ(GetAttributeValue(&document->root(), "v", "default"), "default");
}

TEST(GetAttributeValue, Walks32767Attributes) {
    const auto document = withAttributes(32767);
    EXPECT_EQ(GetAttributeValue(document->lastChild(), "a32766", "default"), "32766");
    EXPECT_EQ(GetAttributeValue(document->lastChild(), "none", "default"), "default");
}

TEST(GetAttributeValue, OverflowsWhenMoreThan32767AttributesDoNotMatch) {
    const auto document = withAttributes(32768);
    EXPECT_EQ(errorOf([&] { GetAttributeValue(document->lastChild(), "none", "default"); }), 6);
}

TEST(GetAttributeValue, FindsAMatchBeforeTheCounterOverflows) {
    const auto document = withAttributes(40000);
    EXPECT_EQ(GetAttributeValue(document->lastChild(), "a0", "default"), "0");
    EXPECT_EQ(GetAttributeValue(document->lastChild(), "a32767", "default"), "32767");
    EXPECT_EQ(errorOf([&] { GetAttributeValue(document->lastChild(), "a32768", "default"); }), 6);
}

TEST(GetAttributeValues, GiveWhatReadingOneByOneGives) {
    const auto document = parsed("<r xmlns:p='u' c='3' p:a='1' a='2' p:c='4' e=''/>");
    const dom::Node* r = document->lastChild();
    const std::array<AttributeDefault, 5> wanted{
        {{"a", "x"}, {"b", "y"}, {"c", "z"}, {"A", "v"}, {"e", "w"}}};
    const auto values = GetAttributeValues(r->attributes(), wanted);
    EXPECT_EQ(values, (std::array<std::string_view, 5>{"1", "y", "3", "v", ""}));
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(values[i], GetAttributeValue(r, wanted[i].name, wanted[i].defaultValue));
}

TEST(GetAttributeValues, OverflowWhenOneOfThemIsNotFoundInTime) {
    const auto document = withAttributes(32769);
    const auto errorFor = [&](std::string_view second) {
        return errorOf([&] {
            GetAttributeValues(document->lastChild()->attributes(),
                               std::array<AttributeDefault, 2>{{{"a0", ""}, {second, ""}}});
        });
    };
    EXPECT_EQ(errorFor("a32767"), 0);
    EXPECT_EQ(errorFor("a32768"), 6);
    EXPECT_EQ(errorFor("none"), 6);
}

TEST(GetAttributeValues, PassWithoutAMatchUpTo32767Attributes) {
    const auto document = withAttributes(32767);
    const std::array<AttributeDefault, 1> wanted{{{"none", "default"}}};
    EXPECT_EQ(GetAttributeValues(document->lastChild()->attributes(), wanted)[0], "default");
}

TEST(SetAttributeValue, AMissingAttributeGoesLast) {
    EXPECT_EQ(afterSetting("<r b='1' a='2'/>", "c", "3"), "<r b=\"1\" a=\"2\" c=\"3\"/>");
    EXPECT_EQ(afterSetting("<r/>", "c", ""), "<r c=\"\"/>");
}

TEST(SetAttributeValue, AnExistingAttributeKeepsItsPlace) {
    EXPECT_EQ(afterSetting("<r b='1' a='2' c='3'/>", "a", "new"), "<r b=\"1\" a=\"new\" c=\"3\"/>");
}

TEST(SetAttributeValue, NamesAreCaseSensitive) {
    EXPECT_EQ(afterSetting("<r Value='1'/>", "value", "2"), "<r Value=\"1\" value=\"2\"/>");
}

TEST(SetAttributeValue, TheFirstMatchByLocalNameIsChanged) {
    EXPECT_EQ(afterSetting("<r xmlns:p='u' p:v='1' v='2'/>", "v", "3"),
              "<r xmlns:p=\"u\" p:v=\"3\" v=\"2\"/>");
}

TEST(SetAttributeValue, WhatWasSetIsRead) {
    const auto document = parsed("<r/>");
    dom::Node& r = *document->lastChild();
    for (const char* value : {"one", "", "a longer text than before, with <markup> & é"}) {
        SetAttributeValue(*document, r, "v", value);
        EXPECT_EQ(GetAttributeValue(&r, "v", "default"), value);
    }
    EXPECT_EQ(r.attributes().size(), 1U);
}

TEST(SetAttributeValue, ATextThatXmlCannotHoldIsError5) {
    const auto document = parsed("<r v='old'/>");
    dom::Node& r = *document->lastChild();
    EXPECT_EQ(errorOf([&] { SetAttributeValue(*document, r, "v", "a\x01"); }), 5);
    EXPECT_EQ(errorOf([&] { SetAttributeValue(*document, r, "w", "a\x01"); }), 5);
    EXPECT_EQ(writeXml(*document), "<r v=\"old\"/>");
}

TEST(SetAttributeValue, ANodeWithoutAttributesIsError91) {
    const auto document = parsed("<r>t</r>");
    dom::Node& text = *document->lastChild()->firstChild();
    EXPECT_EQ(errorOf([&] { SetAttributeValue(*document, text, "v", "1"); }), 91);
    EXPECT_EQ(errorOf([&] { SetAttributeValue(*document, document->root(), "v", "1"); }), 91);
    EXPECT_EQ(writeXml(*document), "<r>t</r>");
}

TEST(SetAttributeValue, ChangesAnElementOutsideTheTree) {
    dom::Document document;
    const dom::OwnedNode lone = document.createElement("a");
    SetAttributeValue(document, *lone, "v", "1");
    EXPECT_EQ(writeXml(*lone), "<a v=\"1\"/>");
}

TEST(SetAttributeValue, OverflowsWhenMoreThan32767AttributesDoNotMatch) {
    const auto document = withAttributes(32768);
    dom::Node& r = *document->lastChild();
    EXPECT_EQ(errorOf([&] { SetAttributeValue(*document, r, "none", "1"); }), 6);
    EXPECT_EQ(r.attributes().size(), 32768U);
    SetAttributeValue(*document, r, "a32767", "changed");
    EXPECT_EQ(r.attributes()[32767].text(), "changed");
}

TEST(SetAttributeValue, Adds32768thAttribute) {
    const auto document = withAttributes(32767);
    SetAttributeValue(*document, *document->lastChild(), "new", "1");
    EXPECT_EQ(GetAttributeValue(document->lastChild(), "new", "default"), "1");
}

TEST(IsValidNodeName, LettersDigitsSpacesAndHyphensAreAllowed) {
    EXPECT_TRUE(valid("abcxyzABCXYZ"));
    EXPECT_TRUE(valid("a0123456789"));
    EXPECT_TRUE(valid("How to open - part 2"));
    EXPECT_TRUE(valid("a "));
}

TEST(IsValidNodeName, EveryOtherAsciiCharacterIsRefused) {
    const std::string_view allowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890 -";
    for (char c = 0; c >= 0 && c < 127; ++c) {
        EXPECT_EQ(valid(std::string("a") + c), allowed.find(c) != std::string_view::npos) << int{c};
    }
}

TEST(IsValidNodeName, ADigitAtTheStartIsRefused) {
    for (char c = '0'; c <= '9'; ++c)
        EXPECT_FALSE(valid(std::string(1, c) + "a")) << c;
}

TEST(IsValidNodeName, ASpaceAtTheStartIsRefused) {
    EXPECT_FALSE(valid(" a"));
    EXPECT_FALSE(valid(" "));
}

TEST(IsValidNodeName, AHyphenAtTheStartIsAccepted) {
    EXPECT_TRUE(valid("-abc"));
    EXPECT_TRUE(valid("-"));
}

TEST(IsValidNodeName, AnUnderscoreIsRefused) { EXPECT_FALSE(valid("a_b")); }

TEST(IsValidNodeName, LettersOutsideTheAlphabetAreRefused) {
    EXPECT_FALSE(valid("é"));
    EXPECT_FALSE(valid("größe"));
    EXPECT_FALSE(valid("aж"));
    EXPECT_FALSE(
        valid("a\u00A0"
              "b"));
    EXPECT_FALSE(valid("１"));
}

TEST(IsValidNodeName, TheEmptyNameIsValid) {
    EXPECT_TRUE(valid(""));
    EXPECT_TRUE(validBelow("<r><a/></r>", ""));
}

TEST(IsValidNodeName, TheEmptyNameClashesWithATextBelow) {
    EXPECT_FALSE(validBelow("<r>t</r>", ""));
    EXPECT_FALSE(validBelow("<r><a/><!--m--></r>", ""));
}

TEST(IsValidNodeName, ANameOfASiblingIsRefused) {
    EXPECT_FALSE(validBelow("<r><a/><b/></r>", "a"));
    EXPECT_FALSE(validBelow("<r><a/><b/></r>", "b"));
    EXPECT_TRUE(validBelow("<r><a/><b/></r>", "c"));
}

TEST(IsValidNodeName, SiblingsAreComparedCaseSensitively) {
    EXPECT_TRUE(validBelow("<r><a/></r>", "A"));
}

TEST(IsValidNodeName, SiblingsAreComparedByLocalName) {
    EXPECT_FALSE(validBelow("<r xmlns:p='u'><p:a/></r>", "a"));
}

TEST(IsValidNodeName, AnInstructionsTargetCountsAsASibling) {
    EXPECT_FALSE(validBelow("<r><?a d?></r>", "a"));
}

TEST(IsValidNodeName, NodesFurtherBelowAreNoSiblings) {
    EXPECT_TRUE(validBelow("<r><a><b/></a></r>", "b"));
    EXPECT_TRUE(validBelow("<r><a/></r>", "r"));
}

TEST(IsValidNodeName, ANameWithASpaceIsComparedAsItIs) {
    EXPECT_TRUE(validBelow("<r><a_b/></r>", "a b"));
}

TEST(IsValidNodeName, WithoutAParentSiblingsAreNotCompared) { EXPECT_TRUE(valid("a")); }

TEST(IsValidNodeName, ANameOf32767CharactersIsWalked) {
    EXPECT_TRUE(valid(std::string(32767, 'a')));
    EXPECT_FALSE(valid(repeated("é", 32767)));
}

TEST(IsValidNodeName, ANameOf32768CharactersOverflows) {
    EXPECT_EQ(nameError(std::string(32768, 'a')), 6);
    EXPECT_EQ(nameError(repeated("é", 32768)), 6);
    EXPECT_EQ(nameError(repeated("\U0001F600", 16384)), 6);
}

TEST(IsValidNodeName, ALongNameOverflowsBehindAForbiddenCharacterToo) {
    EXPECT_EQ(nameError("_" + std::string(32767, 'a')), 6);
}

TEST(IsValidNodeName, ALongNameThatBeginsWrongIsRefusedBeforeItIsWalked) {
    EXPECT_FALSE(valid("1" + std::string(40000, 'a')));
    EXPECT_FALSE(valid(" " + std::string(40000, 'a')));
}

}  // namespace tavisk
