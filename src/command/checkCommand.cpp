#include "command/checkCommand.h"

#include <memory>
#include <ostream>
#include <utility>

#include "check/check.h"
#include "command/checkReport.h"
#include "command/documents.h"
#include "command/input.h"
#include "command/output.h"
#include "command/progress.h"
#include "command/reportText.h"
#include "command/sarifReport.h"

namespace tavisk {
namespace {

struct Checked {
    CheckedDocument document;
    std::string complaint;  ///< a line, or nothing
};

class Checker {
public:
    Checker(const CommandLine& line, const Streams& streams, Progress& progress)
        : line_(line), streams_(streams), progress_(progress) {}

    /// The error of a document alone travels.
    Checked check(const std::string& file) const {
        Checked checked{{file, {}, {}}, {}};
        try {
            checked.document.findings = findingsOf(file);
        } catch (const Rejected& rejected) {
            checked.document.findings.push_back(rejection(rejected.refusal()));
        } catch (...) {
            if (line_.isAlone() && !line_.sarif) throw;
            checked.document.error = currentRunTimeError();
            checked.complaint = currentComplaint(file);
        }
        return checked;
    }

private:
    Findings findingsOf(const std::string& file) const {
        if (line_.isAlone()) progress_.phase("reading the document");
        const dom::Source source = readInput(file, streams_.in, mappingFor(line_));
        if (line_.isAlone()) progress_.phase("checking the document");
        return checkDocument(source, line_.sarif ? Places::wanted : Places::left);
    }

    const CommandLine& line_;
    const Streams& streams_;
    Progress& progress_;
};

std::unique_ptr<CheckReport> reportFor(const CommandLine& line) {
    if (line.sarif) return sarifReport();
    return line.json ? jsonReport(line.isAlone()) : textReport();
}

ExitCode exitCodeOf(const CheckTotals& totals) {
    if (totals.failed > 0) return ExitCode::runTimeError;
    return totals.findings > 0 ? ExitCode::found : ExitCode::done;
}

}  // namespace

ExitCode checkDocuments(const CommandLine& line, const Streams& streams) {
    Progress progress(streams.err, streams.errIsTerminal);
    progress.phase("checking the documents");
    const Checker checker(line, streams, progress);
    const std::unique_ptr<CheckReport> report = reportFor(line);
    const auto write = [&](const std::string& text) {
        if (text.empty()) return;
        progress.end();
        writeStandardOutput(streams.out, text);
    };

    CheckTotals totals;
    write(report->begin());
    forEachFile(
        line, [&](const std::string& file) { return checker.check(file); },
        [&](const Checked& checked) {
            totals.count(checked.document);
            write(report->add(checked.document));
            if (checked.complaint.empty()) return;
            progress.end();
            streams.err << checked.complaint << std::flush;
        });
    write(report->end(totals));
    const bool forPrograms = line.json || line.sarif;
    if (forPrograms && !line.isAlone()) streams.err << summaryLine(totals) << std::flush;
    return exitCodeOf(totals);
}

}  // namespace tavisk
