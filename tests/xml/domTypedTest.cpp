#include "xml/domTyped.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/errors.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk::dom {
namespace {

using test::element;
using test::errorOf;
using test::parsed;

std::string valueOf(std::string_view xml) {
    const auto document = parsed(xml);
    std::string bytes = "left over";
    base64Value(*document->lastChild(), bytes);
    return bytes;
}

int valueError(std::string_view xml) {
    return errorOf([&] { valueOf(xml); });
}

std::string typed(std::string_view contentXml) {
    return "<a xmlns:dt=\"urn:schemas-microsoft-com:datatypes\" dt:dt=\"bin.base64\">" +
           std::string(contentXml) + "</a>";
}

}  // namespace

TEST(DomTyped, SettingBytesDeclaresTheDataTypeAndWritesBase64) {
    Document document;
    const OwnedNode image = document.createElement("image");
    setBase64Value(document, *image, "foob");
    EXPECT_EQ(writeXml(*image),
              "<image xmlns:dt=\"urn:schemas-microsoft-com:datatypes\" dt:dt=\"bin.base64\">"
              "Zm9vYg==</image>");
}

TEST(DomTyped, SettingNoBytesLeavesAnEmptyElementOfThatType) {
    Document document;
    const OwnedNode image = document.createElement("image");
    setBase64Value(document, *image, "");
    EXPECT_EQ(writeXml(*image),
              "<image xmlns:dt=\"urn:schemas-microsoft-com:datatypes\" dt:dt=\"bin.base64\"/>");
}

TEST(DomTyped, SettingBytesAgainReplacesTheContentOnly) {
    Document document;
    const OwnedNode image = document.createElement("image");
    setBase64Value(document, *image, "foob");
    setBase64Value(document, *image, "f");
    EXPECT_EQ(writeXml(*image),
              "<image xmlns:dt=\"urn:schemas-microsoft-com:datatypes\" dt:dt=\"bin.base64\">"
              "Zg==</image>");
}

TEST(DomTyped, ATypeOfAnotherPrefixCounts) {
    const auto document =
        parsed("<r xmlns:x='urn:schemas-microsoft-com:datatypes'><a x:dt='bin.base64'>old</a></r>");
    setBase64Value(*document, element(*document, "a"), "f");
    EXPECT_EQ(writeXml(element(*document, "a")), "<a x:dt=\"bin.base64\">Zg==</a>");
}

TEST(DomTyped, AnElementThatDeclaresThePrefixAlreadyIsNotGivenItTwice) {
    const auto document =
        parsed("<a xmlns:dt='urn:schemas-microsoft-com:datatypes' dt:dt='string'/>");
    setBase64Value(*document, *document->lastChild(), "f");
    EXPECT_EQ(writeXml(*document), typed("Zg=="));
}

TEST(DomTyped, BytesComeBackAfterWritingAndReading) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i)
        bytes += static_cast<char>(i * 7);
    Document document;
    Node& image = document.append(document.root(), document.createElement("image"));
    setBase64Value(document, image, bytes);
    EXPECT_EQ(valueOf(writeXml(document)), bytes);
}

TEST(DomTyped, WhiteSpaceInsideIsSkipped) {
    EXPECT_EQ(valueOf(typed("\n  Zm9v\r\n\tYg==\n")), "foob");
}

TEST(DomTyped, BadBase64IsError13) {
    EXPECT_EQ(valueError(typed("Zm9")), 13);
    EXPECT_EQ(valueError(typed("not base64!")), 13);
    EXPECT_EQ(valueError(typed("Zg==Zg==")), 13);
}

TEST(DomTyped, AnEmptyTypedElementHasNoBytes) { EXPECT_EQ(valueOf(typed("")), ""); }

TEST(DomTyped, AnEmptyElementWithoutTheTypeHasNoBytes) {
    EXPECT_EQ(valueOf("<a/>"), "");
    EXPECT_EQ(valueOf("<a>  </a>"), "");
}

TEST(DomTyped, ContentWithoutTheTypeIsReadWhenItIsBase64) {
    EXPECT_EQ(valueOf("<a>Zm9v</a>"), "foo");
    EXPECT_EQ(valueOf("<a xmlns:dt='urn:other' dt:dt='bin.base64'>Zm9v</a>"), "foo");
}

TEST(DomTyped, OtherContentWithoutTheTypeIsError13) {
    EXPECT_EQ(valueError("<a>hello there</a>"), 13);
}

TEST(DomTyped, Base64InPiecesIsJoined) {
    EXPECT_EQ(valueOf(typed("Zm9<![CDATA[vY]]><!-- m -->m<b>Fy</b>")), "foobar");
}

TEST(DomTyped, ContentJoinsTextAndCdataOfTheWholeSubtree) {
    const auto document =
        parsed("<r><a>one <b>two<c/></b><![CDATA[ <three>]]><!--no--><?p no?> four</a>five</r>");
    EXPECT_EQ(content(element(*document, "a")), "one two <three> four");
    EXPECT_EQ(content(element(*document, "c")), "");
}

}  // namespace tavisk::dom
