#include "command/checkCommand.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <utility>
#include <variant>

#include "check/check.h"
#include "command/checkReport.h"
#include "command/complaint.h"
#include "command/inOrder.h"
#include "command/input.h"
#include "command/output.h"
#include "command/process.h"
#include "command/progress.h"
#include "command/sarifReport.h"

namespace tavisk {
namespace {

struct Checked {
    CheckedDocument document;
    std::string complaint;  ///< a line, or nothing
};

Checked check(const std::string& file, Places places, std::istream& standardInput) {
    Checked checked{{file, {}, {}}, {}};
    try {
        std::variant<dom::Source, Message> input = readInput(file, standardInput, Mapping::refused);
        if (const Message* message = std::get_if<Message>(&input)) {
            checked.document.findings.push_back(rejection(*message));
        } else {
            checked.document.findings =
                checkDocument(std::get<dom::Source>(std::move(input)), places);
        }
    } catch (...) {
        checked.document.error = currentRunTimeError();
        checked.complaint = currentComplaint(file);
    }
    return checked;
}

std::unique_ptr<CheckReport> reportFor(const CommandLine& line) {
    if (line.sarif) return sarifReport();
    return line.json ? jsonReport() : textReport();
}

ExitCode exitCodeOf(const CheckTotals& totals) {
    if (totals.failed > 0) return ExitCode::runTimeError;
    return totals.findings > 0 ? ExitCode::found : ExitCode::done;
}

}  // namespace

ExitCode checkMany(const CommandLine& line, const Streams& streams) {
    keepFreedMemory();
    Progress progress(streams.err, streams.errIsTerminal);
    progress.phase("checking the documents");
    const std::unique_ptr<CheckReport> report = reportFor(line);
    const auto write = [&](const std::string& text) {
        if (text.empty()) return;
        progress.end();
        writeStandardOutput(streams.out, text);
    };

    CheckTotals totals;
    const Places places = line.sarif ? Places::wanted : Places::left;
    write(report->begin());
    const auto take = [&](const Checked& checked) {
        totals.count(checked.document);
        write(report->add(checked.document));
        if (checked.complaint.empty()) return;
        progress.end();
        streams.err << checked.complaint << std::flush;
    };
    inOrder(
        line.files.size(), line.jobsOrAll(),
        [&](std::size_t i) { return check(line.files[i], places, streams.in); }, take);
    write(report->end(totals));
    const bool forPrograms = line.json || line.sarif;
    if (forPrograms && line.files.size() > 1) streams.err << summaryLine(totals) << std::flush;
    return exitCodeOf(totals);
}

}  // namespace tavisk
