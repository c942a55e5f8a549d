// Any bytes as a document that is checked. Without an error among the findings it can be loaded,
// shown, saved, and made a page of its own; reports are well-formed text whatever is found.
#include "check/check.h"

#include <algorithm>

#include "base/text.h"
#include "check/rules.h"
#include "command/sarifReport.h"
#include "fuzz/fuzz.h"
#include "page/helpFile.h"
#include "page/standalonePage.h"
#include "support/memoryFiles.h"

namespace tavisk::fuzz {
namespace {

std::string pageOf(HelpFile& file) {
    StandaloneParts parts;
    parts.readPicture = [](const std::string&) { return std::nullopt; };
    parts.missing = [](const std::string&) {};
    std::string page;
    writeStandalonePage([&](std::string_view piece) { page += piece; }, *file.articledoc,
                        file.formulaCatalogue, *file.baseXMLNode, true, parts);
    return page;
}

void requireUsable(std::string_view text) {
    test::MemoryFiles files;
    files.put("/doc/cabinet.png", "picture");
    HelpFile file(files, "/doc");
    try {
        const auto refusal = file.load(dom::Source::copy(text));
        require(!refusal,
                "without an error it is not refused, but: " + refusal.value_or(Refusal{}).reason);
        require(findInvalidUtf8(pageOf(file)) == std::string::npos, "a page of its own is UTF-8");
        file.generatepreview(true);
        file.save();
    } catch (const RunTimeError& error) {
        require(false, "without an error it can be used, but: " + std::to_string(error.number()) +
                           ", " + error.what());
    }
}

void requireReadable(const std::string& report, std::string_view kind) {
    require(findInvalidUtf8(report) == std::string::npos, std::string(kind) + " is UTF-8");
    require(std::ranges::none_of(report, [](char c) { return c >= 0 && c < ' ' && c != '\n'; }),
            std::string(kind) + " has no control characters");
}

void requireReports(const Findings& findings) {
    CheckTotals totals;
    const CheckedDocument document{"a.xml", findings, std::nullopt};
    totals.count(document);
    const auto whole = [&](const std::unique_ptr<CheckReport>& report) {
        return report->begin() + report->add(document) + report->end(totals);
    };
    requireReadable(whole(jsonReport(true)), "JSON");
    requireReadable(whole(sarifReport()), "SARIF");
}

void requirePlace(const Finding& finding, std::size_t lines) {
    if (!finding.place) return;
    require(finding.place->line >= 1 && finding.place->line <= lines, "a place is in the text");
    require(finding.place->column.value_or(1) >= 1, "columns count from 1");
}

Findings withoutPlaces(Findings findings) {
    for (Finding& finding : findings)
        finding.place.reset();
    return findings;
}

}  // namespace
}  // namespace tavisk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavisk;
    const std::string_view text = fuzz::bytesOf(data, size);
    const dom::Source source = dom::Source::copy(text);
    const Findings findings = checkDocument(source);
    const Findings placed = checkDocument(source, Places::wanted);

    const auto lines = static_cast<std::size_t>(std::ranges::count_if(
                           text, [](char c) { return c == '\n' || c == '\r'; })) +
                       1;
    for (const Finding& finding : placed) {
        fuzz::requirePlace(finding, lines);
        fuzz::require(std::ranges::find(rules, finding.code, &Rule::code) != rules.end(),
                      "a finding has a rule, but: " + std::string(finding.code));
    }
    fuzz::requireReports(placed);

    fuzz::require(fuzz::withoutPlaces(findings) == fuzz::withoutPlaces(placed),
                  "places change nothing else");
    if (std::ranges::find(findings, Severity::error, &Finding::severity) == findings.end())
        fuzz::requireUsable(text);
    return 0;
}
