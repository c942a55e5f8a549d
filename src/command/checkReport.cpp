#include "command/checkReport.h"

#include "command/reportText.h"
#include "command/summary.h"

namespace tavisk {
namespace {

void appendLine(std::string& text, std::string_view file, const Finding& finding) {
    appendPlain(text, file);
    text += ": ";
    text += nameOf(finding.severity);
    text += ": ";
    if (!finding.key.empty()) {
        appendPlain(text, finding.key);
        text += ": ";
    }
    if (!finding.attribute.empty()) {
        text += finding.attribute;
        if (finding.position) text += ", position " + std::to_string(*finding.position);
        text += ": ";
    }
    appendPlain(text, finding.message);
    text += " [";
    text += finding.code;
    text += "]\n";
}

std::string lines(std::string_view file, const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings)
        appendLine(text, file, finding);
    return text;
}

std::string countOf(std::size_t findings) {
    return findings == 0 ? "no findings" : counted(findings, "finding");
}

void appendStringOrNull(std::string& json, std::string_view text) {
    if (text.empty()) {
        json += "null";
    } else {
        appendJson(json, text);
    }
}

void appendFinding(std::string& json, const Finding& finding) {
    json += "{\"severity\": ";
    appendJson(json, nameOf(finding.severity));
    json += ", \"code\": ";
    appendJson(json, finding.code);
    json += ", \"key\": ";
    appendStringOrNull(json, finding.key);
    json += ", \"attribute\": ";
    appendStringOrNull(json, finding.attribute);
    json += ", \"position\": ";
    json += finding.position ? std::to_string(*finding.position) : "null";
    json += ", \"message\": ";
    appendJson(json, finding.message);
    json += '}';
}

/// The object of one document; with an error, "findings" says nothing.
std::string object(std::string_view file, const Findings& findings, const RunTimeError* error) {
    std::string json = "{\"file\": ";
    appendJson(json, file);
    if (error != nullptr) {
        json += R"(, "error": {"number": )" + std::to_string(error->number()) + R"(, "message": )";
        appendJson(json, error->what());
        json += '}';
    }
    json += ", \"findings\": [";
    for (std::size_t i = 0; i < findings.size(); ++i) {
        json += i == 0 ? "\n" : ",\n";
        appendFinding(json, findings[i]);
    }
    json += findings.empty() ? "]}" : "\n]}";
    return json;
}

class TextReport final : public CheckReport {
public:
    std::string add(const CheckedDocument& document) override {
        return lines(document.file, document.findings);
    }
    std::string end(const CheckTotals& totals) override { return summaryLine(totals); }
};

class JsonReport final : public CheckReport {
public:
    std::string begin() override { return "{\"documents\": ["; }
    std::string add(const CheckedDocument& document) override {
        const char* before = isFirst_ ? "\n" : ",\n";
        isFirst_ = false;
        return before + object(document.file, document.findings,
                               document.error ? &*document.error : nullptr);
    }
    std::string end(const CheckTotals& totals) override {
        return "\n], \"summary\": {\"documents\": " + std::to_string(totals.documents) +
               ", \"clean\": " + std::to_string(totals.clean) +
               ", \"withFindings\": " + std::to_string(totals.withFindings()) +
               ", \"failed\": " + std::to_string(totals.failed) +
               ", \"findings\": " + std::to_string(totals.findings) + "}}\n";
    }

private:
    bool isFirst_ = true;
};

}  // namespace

std::string textReport(std::string_view file, const Findings& findings) {
    return lines(file, findings) + countOf(findings.size()) + '\n';
}

std::string jsonReport(std::string_view file, const Findings& findings) {
    return object(file, findings, nullptr) + '\n';
}

void CheckTotals::count(const CheckedDocument& document) {
    ++documents;
    findings += document.findings.size();
    if (document.error) {
        ++failed;
    } else if (document.findings.empty()) {
        ++clean;
    }
}

std::string summaryLine(const CheckTotals& totals) {
    Summary summary(totals.documents);
    summary.add(totals.clean, "clean");
    summary.add(totals.withFindings(), "with findings");
    summary.add(totals.failed, "failed");
    return summary.text() + "; " + countOf(totals.findings) + '\n';
}

std::unique_ptr<CheckReport> textReport() { return std::make_unique<TextReport>(); }

std::unique_ptr<CheckReport> jsonReport() { return std::make_unique<JsonReport>(); }

}  // namespace tavisk
