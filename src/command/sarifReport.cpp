#include "command/sarifReport.h"

#include <algorithm>

#include "check/rules.h"
#include "command/fileNames.h"
#include "command/reportText.h"

namespace tavisk {
namespace {

constexpr std::string_view schema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

void appendMember(std::string& json, std::string_view name, std::string_view text) {
    json.append("\"").append(name).append("\": ");
    appendJson(json, text);
}

void appendMessage(std::string& json, std::string_view name, std::string_view text) {
    json.append("\"").append(name).append("\": {");
    appendMember(json, "text", text);
    json += '}';
}

void appendArtifact(std::string& json, const std::string& file) {
    json += "\"artifactLocation\": {";
    if (file == "-") {
        appendMessage(json, "description", "standard input");
    } else {
        appendMember(json, "uri", relativeAddress(file));
    }
    json += '}';
}

void appendResult(std::string& json, const std::string& file, const Finding& finding) {
    json += '{';
    appendMember(json, "ruleId", finding.code);
    const auto rule = std::ranges::find(rules, finding.code, &Rule::code);
    json += R"(, "ruleIndex": )" + std::to_string(rule - rules.begin()) + ", ";
    appendMember(json, "level", nameOf(finding.severity));
    json += ", ";
    appendMessage(json, "message", finding.message);
    json += R"(, "locations": [{"physicalLocation": {)";
    appendArtifact(json, file);
    // What concerns the whole document is shown at its beginning.
    const Place place = finding.place.value_or(Place{});
    json += R"(, "region": {"startLine": )" + std::to_string(place.line);
    if (place.column) json += R"(, "startColumn": )" + std::to_string(*place.column);
    json += "}}";
    if (!finding.key.empty()) {
        json += R"(, "logicalLocations": [{)";
        appendMember(json, "fullyQualifiedName", finding.key);
        json += "}]";
    }
    json += "}]}";
}

class SarifReport final : public CheckReport {
public:
    std::string begin() override {
        std::string json = "{\n";
        appendMember(json, "$schema", schema);
        json += ",\n\"version\": \"2.1.0\",\n\"runs\": [{\n\"tool\": {\"driver\": {";
        appendMember(json, "name", "Tavisk");
        json += ", ";
        appendMember(json, "version", TAVISK_VERSION);
        json += ", \"rules\": [";
        const char* before = "\n";
        for (const Rule& rule : rules) {
            json += before;
            before = ",\n";
            json += '{';
            appendMember(json, "id", rule.code);
            json += ", ";
            appendMessage(json, "shortDescription", rule.description);
            json += ", ";
            // Some code-review pages refuse a rule without it.
            appendMessage(json, "fullDescription",
                          std::string(rule.description).append(" ").append(rule.remedy));
            json += ", ";
            appendMessage(json, "help", rule.remedy);
            json += '}';
        }
        json += "\n]}},\n\"columnKind\": \"utf16CodeUnits\",\n\"results\": [";
        return json;
    }

    std::string add(const CheckedDocument& document) override {
        std::string json;
        for (const Finding& finding : document.findings) {
            json += beforeResult_;
            beforeResult_ = ",\n";
            appendResult(json, document.file, finding);
        }
        if (document.error) addFailure(document);
        return json;
    }

    std::string end(const CheckTotals& totals) override {
        std::string json = "\n],\n\"invocations\": [{\"executionSuccessful\": ";
        json += totals.failed == 0 ? "true" : "false";
        json += ", \"toolExecutionNotifications\": [" + failures_;
        json += failures_.empty() ? "]}]\n" : "\n]}]\n";
        json += "}]\n}\n";
        return json;
    }

private:
    void addFailure(const CheckedDocument& document) {
        failures_ += failures_.empty() ? "\n{" : ",\n{";
        appendMember(failures_, "level", "error");
        failures_ += ", ";
        appendMessage(failures_, "message",
                      "Run-time error '" + std::to_string(document.error->number()) +
                          "': " + document.error->what());
        failures_ += R"(, "locations": [{"physicalLocation": {)";
        appendArtifact(failures_, document.file);
        failures_ += "}}]}";
    }

    const char* beforeResult_ = "\n";
    std::string failures_;
};

}  // namespace

std::unique_ptr<CheckReport> sarifReport() { return std::make_unique<SarifReport>(); }

}  // namespace tavisk
