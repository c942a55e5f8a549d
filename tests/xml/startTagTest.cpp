#include "xml/startTag.h"

#include <gtest/gtest.h>
#include <string>

#include "xml/xmlReader.h"

namespace tavisk {
namespace {

std::string tagWith(std::size_t attributes, const std::string& end = "/>") {
    std::string xml = "<a";
    for (std::size_t i = 0; i < attributes; ++i)
        xml += " a" + std::to_string(i) + (i % 2 == 0 ? "='>'" : "=\"'\"");
    return xml + end;
}

TEST(StartTag, MostAttributesAllowed) {
    EXPECT_EQ(findOvergrownTag(tagWith(maxAttributes)), std::string_view::npos);
}

TEST(StartTag, OneMoreIsFound) {
    EXPECT_EQ(findOvergrownTag("<b>\n" + tagWith(maxAttributes + 1)), 4U);
}

TEST(StartTag, TextBehindTheTagDoesNotCount) {
    std::string text;
    for (std::size_t i = 0; i <= maxAttributes; ++i)
        text += "'text'";
    EXPECT_EQ(findOvergrownTag("<a b='c'>" + text + "</a>"), std::string_view::npos);
}

TEST(StartTag, QuotesInCommentsDoNotCount) {
    std::string text = "<!-- 1 < 2 ";
    for (std::size_t i = 0; i <= maxAttributes; ++i)
        text += "'text', ";
    EXPECT_EQ(findOvergrownTag(text), std::string_view::npos);
}

TEST(StartTag, BlanksAroundTheEqualsSignDoNotHide) {
    std::string tag = "<a";
    for (std::size_t i = 0; i <= maxAttributes; ++i)
        tag += " a =\n''";
    EXPECT_EQ(findOvergrownTag(tag), 0U);
}

TEST(StartTag, TagsThatDoNotEndAreLeftToTheParser) {
    EXPECT_EQ(findOvergrownTag("<a b='" + std::string(500'000, 'x')), std::string_view::npos);
    EXPECT_EQ(findOvergrownTag(tagWith(maxAttributes, "")), std::string_view::npos);
}

TEST(StartTag, ReaderRefusesWithLine) {
    const ParseResult result = readXml("<b>\n" + tagWith(maxAttributes + 1) + "</b>");
    EXPECT_FALSE(result.document);
    EXPECT_EQ(result.refusal, (Refusal{"More than 65,535 attributes in one element", Place{2}}));
}

/// "name@offset of its text" for each attribute.
std::string written(std::string_view tag) {
    std::string found;
    for (WrittenAttributes attributes(tag); attributes.next();)
        found.append(attributes.name()).append(1, '@') +=
            std::to_string(attributes.textBegin()) + ' ';
    return found;
}

TEST(StartTag, AttributesAsTheyAreWritten) {
    EXPECT_EQ(written("<a b='1' xmlns:c = \"2\"\r\n\td=''/>"), "b@6 xmlns:c@20 d@28 ");
}

TEST(StartTag, WhatIsBehindItsEndIsLeft) {
    EXPECT_EQ(written("<a/> b='1'"), "");
    EXPECT_EQ(written("<a> b='1'"), "");
    EXPECT_EQ(written("<a b='/>' > c='1'"), "b@6 ");
    EXPECT_EQ(written("<a b='1'"), "b@6 ");
}

}  // namespace
}  // namespace tavisk
