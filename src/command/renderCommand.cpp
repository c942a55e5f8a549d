#include "command/renderCommand.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "base/files.h"
#include "command/documents.h"
#include "command/fileError.h"
#include "command/fileNames.h"
#include "command/progress.h"
#include "command/rendering.h"
#include "command/reportText.h"

namespace tavisk {
namespace {

struct Rendered {
    ExitCode exit = ExitCode::done;
    std::string complaint;  ///< lines, or nothing
};

/// What the user put into the folder of all documents serves each of them.
void copyOwnAssets(Files& files, const std::string& from, const std::string& to) {
    for (const char* name : {"/cabinet.png", "/style.css"}) {
        if (files.fileExists(from + name) && !files.fileExists(to + name)) {
            files.replace(to + name, {files.read(from + name)});
        }
    }
}

class PageMaker {
public:
    PageMaker(const CommandLine& line, const Streams& streams, Progress& progress)
        : line_(line), streams_(streams), progress_(progress) {
        if (line.folder) folder_ = absoluteFolder(*line.folder);
    }

    /// The error of a document alone travels.
    Rendered make(const std::string& file) const {
        try {
            if (line_.isOne()) progress_.phase("reading the document");
            dom::Source source = readInput(file, streams_.in, mappingFor(line_));
            if (line_.standalone) return makeStandalone(file, std::move(source));
            makeFolder(file, std::move(source));
            return {};
        } catch (...) {
            if (line_.isOne()) throw;
            return failed(file);
        }
    }

private:
    static Rendered failed(const std::string& file) {
        const std::string what = currentComplaint(file);
        try {
            throw;
        } catch (const Rejected&) {
            return {ExitCode::rejected, what};
        } catch (...) {
            return {ExitCode::runTimeError, what};
        }
    }

    void makeFolder(const std::string& file, dom::Source source) const {
        const std::string folder = line_.isOne() ? *folder_ : *folder_ + '/' + documentName(file);
        DiskFiles disk;
        NamingFiles files(disk);
        createFolders(files, folder);
        copyOwnAssets(files, *folder_, folder);
        Progress silent(streams_.err, false);
        renderPage(files, folder, std::move(source), line_.evaluate,
                   line_.isOne() ? progress_ : silent);
    }

    Rendered makeStandalone(const std::string& file, dom::Source source) const {
        const std::string path = line_.output ? *line_.output : standalonePath(*folder_, file);
        keepDocument(file, path);
        DiskFiles disk;
        NamingFiles files(disk);
        if (!line_.output) createFolders(files, *folder_);
        Progress silent(streams_.err, false);
        const auto missing = renderStandalone(
            files, {folderOf(path), folder_, line_.evaluate}, std::move(source),
            [&](const Produce& page) { write(files, path, page); },
            line_.isOne() ? progress_ : silent);
        return {ExitCode::done, missingPictures(file, missing)};
    }

    void write(Files& files, const std::string& path, const Produce& page) const {
        if (path != "-") {
            writeOutputFile(files, path, page);
            return;
        }
        // Not half a page.
        std::string whole;
        page([&whole](std::string_view piece) { whole += piece; });
        progress_.end();
        writeStandardOutput(streams_.out, whole);
    }

    const CommandLine& line_;
    const Streams& streams_;
    Progress& progress_;
    std::optional<std::string> folder_;
};

}  // namespace

ExitCode renderDocuments(const CommandLine& line, const Streams& streams) {
    Progress progress(streams.err, streams.errIsTerminal);
    progress.phase("rendering the documents");
    const PageMaker maker(line, streams, progress);
    if (!line.isOne()) {
        // A place that cannot be had is no document's fault.
        DiskFiles disk;
        NamingFiles files(disk);
        createFolders(files, absoluteFolder(*line.folder));
    }

    std::array<std::size_t, 5> ends{};  // by exit code
    ExitCode worst = ExitCode::done;
    forEachFile(
        line, [&](const std::string& file) { return maker.make(file); },
        [&](const Rendered& rendered) {
            ++ends.at(static_cast<std::size_t>(rendered.exit));
            worst = std::max(worst, rendered.exit);
            if (rendered.complaint.empty()) return;
            progress.end();
            streams.err << rendered.complaint << std::flush;
        });
    progress.end();
    if (line.isOne()) return worst;

    const auto endedIn = [&ends](ExitCode exit) { return ends[static_cast<std::size_t>(exit)]; };
    Summary summary(line.files.size());
    summary.add(endedIn(ExitCode::done), "rendered");
    summary.add(endedIn(ExitCode::rejected), "rejected");
    summary.add(endedIn(ExitCode::runTimeError), "failed");
    writeStandardOutput(streams.out, summary.text() + '\n');
    return worst;
}

}  // namespace tavisk
