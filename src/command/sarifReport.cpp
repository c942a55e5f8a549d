#include "command/sarifReport.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "check/rules.h"
#include "command/fileNames.h"
#include "command/jsonWriter.h"
#include "command/reportText.h"

namespace tavisk {
namespace {

constexpr std::string_view schema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

void writeMessage(JsonWriter& json, std::string_view name, std::string_view text) {
    json.name(name).beginObject().name("text").text(text).end();
}

void writeRule(JsonWriter& json, const Rule& rule) {
    json.beginObject().name("id").text(rule.code);
    writeMessage(json, "shortDescription", rule.description);
    // Some code-review pages refuse a rule without it.
    writeMessage(json, "fullDescription",
                 std::string(rule.description).append(" ").append(rule.remedy));
    writeMessage(json, "help", rule.remedy);
    json.end();
}

/// Leaves the physical location open for what is known of it.
void beginLocation(JsonWriter& json, const std::string& file) {
    json.name("locations").beginArray().beginObject().name("physicalLocation").beginObject();
    json.name("artifactLocation").beginObject();
    if (file == "-") {
        writeMessage(json, "description", "standard input");
    } else {
        json.name("uri").text(relativeAddress(file));
    }
    json.end();
}

void writeResult(JsonWriter& json, const std::string& file, const Finding& finding) {
    json.beginObject().name("ruleId").text(finding.code);
    const auto rule = std::ranges::find(rules, finding.code, &Rule::code);
    json.name("ruleIndex").number(static_cast<std::size_t>(rule - rules.begin()));
    json.name("level").text(nameOf(finding.severity));
    writeMessage(json, "message", finding.message);
    beginLocation(json, file);
    // What concerns the whole document is shown at its beginning.
    const Place place = finding.place.value_or(Place{});
    json.name("region").beginObject().name("startLine").number(place.line);
    if (place.column) json.name("startColumn").number(*place.column);
    json.end().end();
    if (!finding.key.empty()) {
        json.name("logicalLocations").beginArray().beginObject();
        json.name("fullyQualifiedName").text(finding.key).end().end();
    }
    json.end().end().end();
}

class SarifReport final : public CheckReport {
public:
    std::string begin() override {
        json_.beginObject(Layout::lines).name("$schema").text(schema);
        json_.name("version").text("2.1.0").name("runs").beginArray().beginObject(Layout::lines);
        json_.name("tool").beginObject().name("driver").beginObject();
        json_.name("name").text("Tavisk").name("version").text(TAVISK_VERSION);
        json_.name("rules").beginArray(Layout::lines);
        for (const Rule& rule : rules)
            writeRule(json_, rule);
        json_.end().end().end().name("columnKind").text("utf16CodeUnits");
        json_.name("results").beginArray(Layout::openLines);
        return json_.take();
    }

    std::string add(const CheckedDocument& document) override {
        for (const Finding& finding : document.findings)
            writeResult(json_, document.file, finding);
        if (document.error) failed_.emplace_back(document.file, *document.error);
        return json_.take();
    }

    std::string end(const CheckTotals&) override {
        json_.end().name("invocations").beginArray().beginObject();
        json_.name("executionSuccessful").truth(failed_.empty());
        json_.name("toolExecutionNotifications").beginArray(Layout::lines);
        for (const auto& [file, error] : failed_) {
            json_.beginObject().name("level").text("error");
            writeMessage(json_, "message", describe(error));
            beginLocation(json_, file);
            json_.end().end().end().end();
        }
        json_.end().end().end();
        json_.end().end().end();
        return json_.take();
    }

private:
    using Layout = JsonWriter::Layout;

    JsonWriter json_;
    std::vector<std::pair<std::string, RunTimeError>> failed_;
};

}  // namespace

std::unique_ptr<CheckReport> sarifReport() { return std::make_unique<SarifReport>(); }

}  // namespace tavisk
