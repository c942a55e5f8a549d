#include "command/checkReport.h"

#include "command/jsonWriter.h"
#include "command/reportText.h"

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

std::string countOf(std::size_t findings) {
    return findings == 0 ? "no findings" : counted(findings, "finding");
}

void writeFinding(JsonWriter& json, const Finding& finding) {
    json.beginObject().name("severity").text(nameOf(finding.severity));
    json.name("code").text(finding.code);
    json.name("key").textOrNull(finding.key);
    json.name("attribute").textOrNull(finding.attribute);
    json.name("position");
    finding.position ? json.number(*finding.position) : json.null();
    json.name("message").text(finding.message).end();
}

/// With an error, "findings" says nothing.
void writeDocument(JsonWriter& json, const CheckedDocument& document) {
    json.beginObject().name("file").text(document.file);
    if (document.error) {
        json.name("error").beginObject();
        json.name("number").number(static_cast<std::size_t>(document.error->number()));
        json.name("message").text(document.error->what()).end();
    }
    json.name("findings").beginArray(JsonWriter::Layout::lines);
    for (const Finding& finding : document.findings)
        writeFinding(json, finding);
    json.end().end();
}

class TextReport final : public CheckReport {
public:
    std::string add(const CheckedDocument& document) override {
        std::string lines;
        for (const Finding& finding : document.findings)
            appendLine(lines, document.file, finding);
        return lines;
    }
    std::string end(const CheckTotals& totals) override {
        return totals.documents == 1 ? countOf(totals.findings) + '\n' : summaryLine(totals);
    }
};

class JsonReport final : public CheckReport {
public:
    explicit JsonReport(bool alone) : alone_(alone) {}

    std::string begin() override {
        if (alone_) return {};
        json_.beginObject().name("documents").beginArray(JsonWriter::Layout::lines);
        return json_.take();
    }
    std::string add(const CheckedDocument& document) override {
        writeDocument(json_, document);
        return json_.take();
    }
    std::string end(const CheckTotals& totals) override {
        if (alone_) return {};
        json_.end().name("summary").beginObject();
        json_.name("documents").number(totals.documents);
        json_.name("clean").number(totals.clean);
        json_.name("withFindings").number(totals.withFindings());
        json_.name("failed").number(totals.failed);
        json_.name("findings").number(totals.findings).end().end();
        return json_.take();
    }

private:
    bool alone_;
    JsonWriter json_;
};

}  // namespace

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

std::unique_ptr<CheckReport> jsonReport(bool alone) { return std::make_unique<JsonReport>(alone); }

}  // namespace tavisk
