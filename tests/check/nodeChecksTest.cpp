#include "check/nodeChecks.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/xml.h"

namespace tavisk {
namespace {

/// One line per finding: severity, code, key, attribute.
std::string findingsOf(std::string_view cabinet) {
    const auto document = test::parsed("<cabinetinfo>" + std::string(cabinet) + "</cabinetinfo>");
    TokenNames names(*document);
    FindingList findings;
    checkNodes(test::element(*document, "cabinet"), names, findings);
    std::string lines;
    for (const Finding& finding : findings.findings()) {
        lines += finding.severity == Severity::error ? "error " : "warning ";
        lines += std::string(finding.code) + ' ' + finding.key + ' ' + finding.attribute;
        if (finding.position) lines += '@' + std::to_string(*finding.position);
        lines += '\n';
    }
    return lines;
}

TEST(CheckNodes, FindsNothingInAPlainTree) {
    EXPECT_EQ(findingsOf("<cabinet><A value='x'><B_1 style='9' titlecolor='#00FF00'/></A>"
                         "<B_1 columnbreak='1'/></cabinet>"),
              "");
}

TEST(CheckNodes, EmptyCabinet) {
    EXPECT_EQ(findingsOf("<cabinet/>"), "error no-help-nodes cabinet \n");
}

TEST(CheckNodes, KeysAreShownNames) {
    EXPECT_EQ(findingsOf("<cabinet><How_to><Order_now style='x'/></How_to></cabinet>"),
              "error bad-number cabinet=>How to=>Order now style\n");
}

TEST(CheckNodes, EveryAttributeIsLookedAt) {
    EXPECT_EQ(findingsOf("<cabinet><A titlecolor='x' answercolor='x' titlefontsize='x' "
                         "answerfontsize='x' titlehidden='x' answerhidden='x' style='x' "
                         "spacebefore='x' spaceafter='x' columnbreak='x' pagebreak='x' "
                         "value='`'/></cabinet>"),
              "warning bad-colour cabinet=>A titlecolor\n"
              "warning bad-colour cabinet=>A answercolor\n"
              "warning bad-number cabinet=>A titlefontsize\n"
              "warning bad-number cabinet=>A answerfontsize\n"
              "warning bad-flag cabinet=>A titlehidden\n"
              "warning bad-flag cabinet=>A answerhidden\n"
              "error bad-number cabinet=>A style\n"
              "warning bad-number cabinet=>A spacebefore\n"
              "warning bad-number cabinet=>A spaceafter\n"
              "warning bad-flag cabinet=>A columnbreak\n"
              "warning bad-flag cabinet=>A pagebreak\n"
              "warning odd-backquote cabinet=>A value@0\n");
}

TEST(CheckNodes, TheCabinetItselfIsLookedAt) {
    EXPECT_EQ(findingsOf("<cabinet spacebefore='x'><A/></cabinet>"),
              "warning bad-number cabinet spacebefore\n");
}

TEST(CheckNodes, FindingsComeInDocumentOrder) {
    EXPECT_EQ(findingsOf("<cabinet><A pagebreak='x'><B pagebreak='x'/></A><C pagebreak='x'/>"
                         "</cabinet>"),
              "warning bad-flag cabinet=>A pagebreak\n"
              "warning bad-flag cabinet=>A=>B pagebreak\n"
              "warning bad-flag cabinet=>C pagebreak\n");
}

TEST(CheckNodes, NamesClashOnlyBesideEachOther) {
    EXPECT_EQ(findingsOf("<cabinet><A><B/></A><B/><A/></cabinet>"),
              "warning name-clash cabinet=>A \n");
}

TEST(CheckNodes, NamesDifferByCase) { EXPECT_EQ(findingsOf("<cabinet><A/><a/></cabinet>"), ""); }

TEST(CheckNodes, PrefixesDoNotShow) {
    EXPECT_EQ(findingsOf("<cabinet xmlns:p='u'><A/><p:A/></cabinet>"),
              "warning name-clash cabinet=>A \n");
}

TEST(CheckNodes, MisplacedElements) {
    EXPECT_EQ(findingsOf("<cabinet><formula/><image/><location/></cabinet>"),
              "warning misplaced-element cabinet=>formula \n"
              "warning misplaced-element cabinet=>image \n"
              "warning misplaced-element cabinet=>location \n");
}

TEST(CheckNodes, WhatIsNoElementGetsARowOfItsOwn) {
    EXPECT_EQ(findingsOf("<cabinet>text<A/><!--c--><?p?><![CDATA[d]]></cabinet>"),
              "warning not-an-element cabinet=> \n"
              "warning not-an-element cabinet=> \n"
              "warning not-an-element cabinet=>p \n"
              "warning not-an-element cabinet=> \n");
}

TEST(CheckNodes, TextOverTheLimitIsNotScanned) {
    const std::string text = "`" + std::string(32767, 'x');
    EXPECT_EQ(findingsOf("<cabinet><A value='" + text + "'/></cabinet>"),
              "error text-too-long cabinet=>A value@32767\n");
}

TEST(CheckNodes, EveryAttributeHasTheLimit) {
    EXPECT_EQ(findingsOf("<cabinet><A other='" + std::string(32768, 'x') + "'/></cabinet>"),
              "error text-too-long cabinet=>A other@32767\n");
}

TEST(CheckNodes, TitlesThatThePageCannotHold) {
    EXPECT_EQ(findingsOf("<cabinet><\xC5\x82 /></cabinet>"),
              "error outside-code-page cabinet=>\xC5\x82 \n");
    EXPECT_EQ(findingsOf("<cabinet><\xC5\x82 titlehidden='1'/></cabinet>"),
              "warning outside-code-page cabinet=>\xC5\x82 \n");
}

TEST(CheckNodes, AnswersThatThePageCannotHold) {
    EXPECT_EQ(findingsOf("<cabinet><A value='a\xC5\x82'/></cabinet>"),
              "error outside-code-page cabinet=>A value@1\n");
    EXPECT_EQ(findingsOf("<cabinet><A value='a\xC5\x82' answerhidden='1'/></cabinet>"),
              "warning outside-code-page cabinet=>A value@1\n");
}

TEST(CheckNodes, TheCabinetsOwnAnswerIsNotOnThePage) {
    EXPECT_EQ(findingsOf("<cabinet value='\xC5\x82'><A/></cabinet>"),
              "warning outside-code-page cabinet value@0\n");
}

TEST(CheckNodes, TheHeadingIsOnThePageThoughItsNodeIsHidden) {
    EXPECT_EQ(findingsOf("<cabinet><Code value='\xC5\x82' answerhidden='1'/></cabinet>"),
              "error outside-code-page cabinet=>Code value@0\n");
}

TEST(CheckNodes, TooManyAttributes) {
    std::string attributes;
    for (int i = 0; i <= 32767; ++i)
        attributes += " a" + std::to_string(i) + "=''";
    EXPECT_EQ(findingsOf("<cabinet><A" + attributes + "/></cabinet>"),
              "error too-many-attributes cabinet=>A \n");
}

TEST(CheckNodes, TooManyNodes) {
    std::string nodes;
    for (int i = 0; i <= 32767; ++i)
        nodes += "<n" + std::to_string(i) + "/>";
    EXPECT_EQ(findingsOf("<cabinet><A>" + nodes + "</A></cabinet>"),
              "error too-many-nodes cabinet=>A \n");
}

TEST(CheckNodes, ReturnsTheNodesWithErrors) {
    const auto document = test::parsed(
        "<cabinetinfo><cabinet><A style='x'/><B pagebreak='x'/></cabinet></cabinetinfo>");
    TokenNames names(*document);
    FindingList findings;
    const auto failing = checkNodes(test::element(*document, "cabinet"), names, findings);
    EXPECT_EQ(failing, (NodeNumbers{1}));
}

}  // namespace
}  // namespace tavisk
