#include "command/renderCommand.h"

#include <array>
#include <ostream>
#include <utility>
#include <variant>

#include "base/files.h"
#include "command/fileError.h"
#include "command/fileNames.h"
#include "command/inOrder.h"
#include "command/input.h"
#include "command/output.h"
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
    PageMaker(const CommandLine& line, const Streams& streams)
        : line_(line), streams_(streams), folder_(absoluteFolder(*line.folder)) {}

    void prepare() {
        DiskFiles disk;
        NamingFiles files(disk);
        createFolders(files, folder_);
    }

    Rendered make(const std::string& file) const {
        try {
            std::variant<dom::Source, Message> input =
                readInput(file, streams_.in, Mapping::refused);
            if (const Message* message = std::get_if<Message>(&input)) {
                return rejected(file, *message);
            }
            auto source = std::get<dom::Source>(std::move(input));
            return line_.standalone ? makeStandalone(file, std::move(source))
                                    : makeFolder(file, std::move(source));
        } catch (...) {
            return {ExitCode::runTimeError, currentComplaint(file)};
        }
    }

private:
    static Rendered rejected(const std::string& file, const Message& message) {
        return {ExitCode::rejected, complaint(file, message)};
    }

    Rendered makeFolder(const std::string& file, dom::Source source) const {
        DiskFiles disk;
        NamingFiles files(disk);
        Progress silent(streams_.err, false);
        const std::string folder = folder_ + '/' + documentName(file);
        createFolders(files, folder);
        copyOwnAssets(files, folder_, folder);
        const auto message = renderPage(files, folder, std::move(source), line_.evaluate, silent);
        return message ? rejected(file, *message) : Rendered{};
    }

    Rendered makeStandalone(const std::string& file, dom::Source source) const {
        DiskFiles disk;
        NamingFiles files(disk);
        Progress silent(streams_.err, false);
        const std::string path = standalonePath(folder_, file);
        keepDocument(file, path);
        const auto output = [&](const Produce& page) { writeOutputFile(files, path, page); };
        const StandaloneResult result = renderStandalone(files, {folder_, folder_, line_.evaluate},
                                                         std::move(source), output, silent);
        if (result.rejection) return rejected(file, *result.rejection);
        return {ExitCode::done, missingPictures(file, result.missing)};
    }

    const CommandLine& line_;
    const Streams& streams_;
    std::string folder_;
};

}  // namespace

ExitCode renderMany(const CommandLine& line, const Streams& streams) {
    PageMaker maker(line, streams);
    maker.prepare();
    Progress progress(streams.err, streams.errIsTerminal);
    progress.phase("rendering the documents");

    std::array<std::size_t, 5> ends{};  // by exit code
    ExitCode worst = ExitCode::done;
    const auto take = [&](const Rendered& rendered) {
        ++ends.at(static_cast<std::size_t>(rendered.exit));
        worst = std::max(worst, rendered.exit);
        if (rendered.complaint.empty()) return;
        progress.end();
        streams.err << rendered.complaint << std::flush;
    };
    inOrder(
        line.files.size(), line.jobsOrAll(),
        [&](std::size_t i) { return maker.make(line.files[i]); }, take);

    progress.end();
    const auto endedIn = [&ends](ExitCode exit) { return ends[static_cast<std::size_t>(exit)]; };
    Summary summary(line.files.size());
    summary.add(endedIn(ExitCode::done), "rendered");
    summary.add(endedIn(ExitCode::rejected), "rejected");
    summary.add(endedIn(ExitCode::runTimeError), "failed");
    writeStandardOutput(streams.out, summary.text() + '\n');
    return worst;
}

}  // namespace tavisk
