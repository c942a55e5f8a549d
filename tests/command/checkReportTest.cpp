#include "command/checkReport.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tavisk {
namespace {

const Finding inText{Severity::error,
                     "unknown-formula",
                     "cabinet=>Dimensions",
                     "value",
                     12,
                     "No formula is named \"Rate\"."};
const Finding ofNode{Severity::warning, "name-clash", "cabinet=>A", "", std::nullopt, "Twice."};
const Finding ofDocument{Severity::error, "document-rejected", "", "", std::nullopt, "No cabinet."};

std::string report(CheckReport& report, const std::vector<CheckedDocument>& documents) {
    CheckTotals totals;
    std::string text = report.begin();
    for (const CheckedDocument& document : documents) {
        totals.count(document);
        text += report.add(document);
    }
    return text + report.end(totals);
}

std::string textOf(const std::string& file, const Findings& findings) {
    return report(*textReport(), {{file, findings, {}}});
}

std::string jsonOf(const std::string& file, const Findings& findings) {
    return report(*jsonReport(true), {{file, findings, {}}});
}

TEST(TextReport, NoFindings) { EXPECT_EQ(textOf("a.xml", {}), "no findings\n"); }

TEST(TextReport, OneLineForEachFindingAndTheSum) {
    EXPECT_EQ(textOf("a.xml", {inText}),
              "a.xml: error: cabinet=>Dimensions: value, position 12: No formula is named "
              "\"Rate\". [unknown-formula]\n1 finding\n");
    EXPECT_EQ(textOf("a.xml", {ofNode, ofDocument}),
              "a.xml: warning: cabinet=>A: Twice. [name-clash]\n"
              "a.xml: error: No cabinet. [document-rejected]\n2 findings\n");
}

TEST(TextReport, AttributeWithoutPosition) {
    EXPECT_EQ(
        textOf("a.xml", {{Severity::warning, "bad-flag", "k", "style", std::nullopt, "Odd."}}),
        "a.xml: warning: k: style: Odd. [bad-flag]\n1 finding\n");
}

TEST(TextReport, NothingOfTheDocumentControlsTheTerminal) {
    EXPECT_EQ(textOf("a\nb", {{Severity::error, "c", "k\r\x7F", "", std::nullopt,
                               "\x1B[2J\xC2\x9Bz\xC2\xA0"}}),
              "a b: error: k  :  [2J z\xC2\xA0 [c]\n1 finding\n");
}

TEST(JsonReport, NoFindings) {
    EXPECT_EQ(jsonOf("a.xml", {}), "{\"file\": \"a.xml\", \"findings\": []}\n");
}

TEST(JsonReport, FieldsInAFixedOrder) {
    EXPECT_EQ(jsonOf("a.xml", {inText, ofDocument}),
              "{\"file\": \"a.xml\", \"findings\": [\n"
              "{\"severity\": \"error\", \"code\": \"unknown-formula\", \"key\": "
              "\"cabinet=>Dimensions\", \"attribute\": \"value\", \"position\": 12, \"message\": "
              "\"No formula is named \\\"Rate\\\".\"},\n"
              "{\"severity\": \"error\", \"code\": \"document-rejected\", \"key\": null, "
              "\"attribute\": null, \"position\": null, \"message\": \"No cabinet.\"}\n"
              "]}\n");
}

TEST(InQuotes, CutsLongTextsBetweenCharacters) {
    EXPECT_EQ(inQuotes("abc"), "\"abc\"");
    EXPECT_EQ(inQuotes(std::string(80, 'x')), '"' + std::string(80, 'x') + '"');
    EXPECT_EQ(inQuotes(std::string(81, 'x')), '"' + std::string(80, 'x') + "...\"");
    EXPECT_EQ(inQuotes(std::string(79, 'x') + "\xC3\xA4"), '"' + std::string(79, 'x') + "...\"");
}

}  // namespace
}  // namespace tavisk
