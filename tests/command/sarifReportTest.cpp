#include "command/sarifReport.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

#include "check/rules.h"
#include "command/helpText.h"

namespace tavisk {
namespace {

/// What stands between the rules and the end.
std::string body(const std::vector<CheckedDocument>& documents) {
    const auto report = sarifReport();
    CheckTotals totals;
    std::string json = report->begin();
    const std::size_t start = json.find("\n]}},\n");
    EXPECT_NE(start, std::string::npos);
    for (const CheckedDocument& document : documents) {
        totals.count(document);
        json += report->add(document);
    }
    return json.substr(start + 1) + report->end(totals);
}

const std::string head = "]}},\n\"columnKind\": \"utf16CodeUnits\",\n\"results\": [";
const std::string success =
    "\n],\n\"invocations\": [{\"executionSuccessful\": true, \"toolExecutionNotifications\": "
    "[]}]\n}]\n}\n";

TEST(SarifReport, BeginsWithVersionAndTool) {
    const std::string begin = sarifReport()->begin();
    EXPECT_TRUE(begin.starts_with(
        "{\n\"$schema\": \"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
        "sarif-schema-2.1.0.json\",\n\"version\": \"2.1.0\",\n\"runs\": [{\n\"tool\": {\"driver\": "
        "{\"name\": \"Tavisk\", \"version\": \"0.1.0\", \"rules\": [\n"
        "{\"id\": \"not-well-formed\", \"shortDescription\": {\"text\": \"The file is no XML that "
        "can be read.\"}, \"fullDescription\": {\"text\": \"The file is no XML that can be read. "
        "Mend the XML at the place that the message names.\"}, \"help\": {\"text\": \"Mend the XML "
        "at the place that the message names.\"}},\n"))
        << begin;
}

TEST(SarifReport, NoFindings) { EXPECT_EQ(body({{"a.xml", {}, {}}}), head + success); }

TEST(SarifReport, AFindingWithItsPlaceAndItsNode) {
    EXPECT_EQ(body({{"x y.xml",
                     {{Severity::error, "document-rejected", "cabinet=>A", "value", 3, "No \"x\".",
                       Place{4, 7}}},
                     {}}}),
              head +
                  "\n{\"ruleId\": \"document-rejected\", \"ruleIndex\": 1, \"level\": \"error\", "
                  "\"message\": {\"text\": \"No \\\"x\\\".\"}, \"locations\": "
                  "[{\"physicalLocation\": {\"artifactLocation\": {\"uri\": \"x%20y.xml\"}, "
                  "\"region\": {\"startLine\": 4, \"startColumn\": 7}}, \"logicalLocations\": "
                  "[{\"fullyQualifiedName\": \"cabinet=>A\"}]}]}" +
                  success);
}

TEST(SarifReport, WhatConcernsTheDocumentStandsInItsFirstLine) {
    const std::string result =
        "{\"ruleId\": \"not-well-formed\", \"ruleIndex\": 0, \"level\": \"warning\", \"message\": "
        "{\"text\": \"m\"}, \"locations\": [{\"physicalLocation\": {\"artifactLocation\": "
        "{\"uri\": \"a\"}, \"region\": {\"startLine\": 1}}}]}";
    const Finding finding{Severity::warning, "not-well-formed", "", "", std::nullopt, "m"};
    EXPECT_EQ(body({{"a", {finding, finding}, {}}, {"b", {}, {}}, {"a", {finding}, {}}}),
              head + "\n" + result + ",\n" + result + ",\n" + result + success);
}

TEST(SarifReport, StandardInputHasNoAddress) {
    EXPECT_NE(
        body({{"-", {{Severity::error, "bad-flag", "", "", std::nullopt, "m"}}, {}}})
            .find("{\"artifactLocation\": {\"description\": {\"text\": \"standard input\"}}, "),
        std::string::npos);
}

TEST(SarifReport, ADocumentThatCannotBeReadIsNoSuccess) {
    EXPECT_EQ(
        body({{"a", {}, RunTimeError(ErrorNumber::fileNotFound)},
              {"b", {}, RunTimeError(ErrorNumber::permissionDenied)}}),
        head +
            "\n],\n\"invocations\": [{\"executionSuccessful\": false, "
            "\"toolExecutionNotifications\": [\n"
            "{\"level\": \"error\", \"message\": {\"text\": \"Run-time error '53': File not "
            "found\"}, \"locations\": [{\"physicalLocation\": {\"artifactLocation\": {\"uri\": "
            "\"a\"}}}]},\n"
            "{\"level\": \"error\", \"message\": {\"text\": \"Run-time error '70': Permission "
            "denied\"}, \"locations\": [{\"physicalLocation\": {\"artifactLocation\": "
            "{\"uri\": \"b\"}}}]}\n]}]\n}]\n}\n");
}

TEST(Rules, AreAllDifferent) {
    std::set<std::string_view> codes;
    for (const Rule& rule : rules)
        EXPECT_TRUE(codes.insert(rule.code).second) << rule.code;
}

TEST(Rules, SayWhatIsWrongAndWhatToDoAboutIt) {
    for (const Rule& rule : rules) {
        EXPECT_TRUE(rule.description.ends_with('.')) << rule.code;
        EXPECT_TRUE(rule.remedy.ends_with('.')) << rule.code;
    }
}

TEST(Rules, AreThoseOfTheHelpText) {
    const std::string help(helpText(Action::check));
    for (const Rule& rule : rules)
        EXPECT_NE(help.find(rule.code), std::string::npos) << rule.code;
}

}  // namespace
}  // namespace tavisk
