#include "command/commands.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <variant>

#include "base/error.h"
#include "base/noFiles.h"
#include "base/paths.h"
#include "command/checkCommand.h"
#include "command/commandLine.h"
#include "command/editResult.h"
#include "command/fileError.h"
#include "command/fileNames.h"
#include "command/helpText.h"
#include "command/input.h"
#include "command/loadedComponent.h"
#include "command/output.h"
#include "command/process.h"
#include "command/progress.h"
#include "command/renderCommand.h"
#include "command/reportText.h"
#include "document/helpDocument.h"
#include "document/nodeKeys.h"
#include "page/helpFile.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

/// One command with what it was asked for.
class Command {
public:
    Command(const CommandLine& line, const Streams& streams)
        : line_(line), streams_(streams), progress_(streams.err, streams.errIsTerminal) {}

    ExitCode edit() {
        const std::string text = readText();
        const std::string edited = Component().editXML(text);
        writeEdited(text, edited);
        return ExitCode::done;
    }

    ExitCode preview() {
        const std::string text = readText();
        Component().previewXML(text, line_.evaluate);
        return ExitCode::done;
    }

    ExitCode save() {
        dom::Source source = read();
        // Without a folder there is no cabinet picture, which saving would remove again anyway.
        NoFiles none;
        HelpFile file =
            line_.folder ? HelpFile(files_, absoluteFolder(*line_.folder)) : HelpFile(none, "");
        progress_.phase("loading the document");
        if (auto refusal = file.load(std::move(source))) throw Rejected(*refusal);

        progress_.phase("saving the document");
        if (line_.refreshKey) {
            dom::Node* row = findTreeNode(*file.baseXMLNode, *line_.refreshKey);
            if (row == nullptr) return refuseKey();
            file.normalise(*row);
            file.saveWithMarker(KeyOfTreeNode(*file.baseXMLNode, *row, keySeparator));
        } else {
            file.save();
        }
        const auto document = [&file](const Files::Write& write) {
            writeXml(*file.articledoc, write);
        };
        if (line_.output && *line_.output != "-") {
            writeOutputFile(files_, *line_.output, document);
        } else {
            progress_.end();
            writeStandardOutput(streams_.out, document);
        }
        return ExitCode::done;
    }

private:
    dom::Source read() {
        progress_.phase("reading the document");
        return readInput(line_.file(), streams_.in);
    }

    /// What the component is handed. It ends at a NUL, so a text with one inside, which is no XML,
    /// is rejected here.
    std::string readText() {
        const dom::Source source = read();
        progress_.end();
        std::string text(source.bytes.get(), source.size);
        if (text.find('\0') == std::string::npos) return text;
        auto opened = openHelpDocument(dom::Source::copy(text));
        if (const Refusal* refusal = std::get_if<Refusal>(&opened)) throw Rejected(*refusal);
        raise(ErrorNumber::invalidArgument);
    }

    void writeEdited(const std::string& handedOver, const std::string& edited) {
        const bool back = !line_.output || isSameFile(line_.file(), *line_.output);
        const std::string& target = line_.output ? *line_.output : line_.file();
        try {
            if (target == "-") {
                writeStandardOutput(streams_.out, edited);
            } else if (!back || isEdited(handedOver, edited)) {
                writeOutputFile(files_, target,
                                [&edited](const Files::Write& write) { write(edited); });
            }
        } catch (...) {
            keep(edited);
            throw;
        }
    }

    /// For the user's work, when its own place fails.
    void keep(const std::string& edited) {
        try {
            const std::string folder = textOf(std::filesystem::temp_directory_path());
            const std::string path = keepEdited(disk_, folder, line_.file(), edited);
            streams_.err << "The edited document is kept in " << path << '\n';
        } catch (...) {
            streams_.err << "The edited document could not be kept.\n";
        }
    }

    ExitCode refuseKey() {
        progress_.end();
        streams_.err << "tavisk save: no node has the key \"" << *line_.refreshKey << "\"\n"
                     << std::flush;
        return ExitCode::usage;
    }

    const CommandLine& line_;
    const Streams& streams_;
    DiskFiles disk_;
    NamingFiles files_{disk_};
    Progress progress_;
};

ExitCode run(const CommandLine& line, const Streams& streams) {
    if (line.files.size() > 1) keepFreedMemory();
    switch (line.action) {
        case Action::edit: return Command(line, streams).edit();
        case Action::preview: return Command(line, streams).preview();
        case Action::render: return renderDocuments(line, streams);
        case Action::save: return Command(line, streams).save();
        case Action::check: return checkDocuments(line, streams);
        case Action::help: writeStandardOutput(streams.out, helpText(line.topic)); break;
        case Action::version:
            writeStandardOutput(streams.out, "tavisk " TAVISK_VERSION "\n");
            break;
    }
    return ExitCode::done;
}

ExitCode report(const RunTimeError& error, const std::string* file, const Streams& streams) {
    streams.err << describe(error) << '\n';
    if (file != nullptr) streams.err << "File: " << *file << '\n';
    if (error.number() == static_cast<int>(ErrorNumber::cannotLoadObject)) {
        streams.err << missingForWindows();
    }
    streams.err << std::flush;
    return ExitCode::runTimeError;
}

}  // namespace

ExitCode runCommand(std::span<const std::string> arguments, const Streams& streams) noexcept {
    try {
        const std::variant<CommandLine, UsageError> parsed = parseCommandLine(arguments);
        if (const UsageError* error = std::get_if<UsageError>(&parsed)) {
            streams.err << error->hint << '\n' << std::flush;
            return ExitCode::usage;
        }
        return run(std::get<CommandLine>(parsed), streams);
    } catch (const FileError& error) {
        return report(error, &error.file(), streams);
    } catch (const ComponentMissing& error) {
        streams.err << "tavisk: " << error.what() << '\n' << std::flush;
        return ExitCode::runTimeError;
    } catch (const Rejected& rejected) {
        streams.err << inFull(rejected.refusal()) << std::flush;
        return ExitCode::rejected;
    } catch (...) {
        return report(currentRunTimeError(), nullptr, streams);
    }
}

}  // namespace tavisk
