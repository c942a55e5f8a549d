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
#include "base/text.h"
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
#include "command/rendering.h"
#include "command/reportText.h"
#include "document/helpDocument.h"
#include "document/nodeKeys.h"
#include "editor/helpSession.h"
#include "editor/nodePanel.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

/// One command with what it was asked for.
class Command {
public:
    Command(const CommandLine& line, const Streams& streams)
        : line_(line), streams_(streams), progress_(streams.err, streams.errIsTerminal) {}

    ExitCode edit() {
        const std::variant<std::string, Message> input = readText();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        const auto& text = std::get<std::string>(input);
        const std::string edited = Component().editXML(text);
        writeEdited(text, edited);
        return ExitCode::done;
    }

    ExitCode preview() {
        const std::variant<std::string, Message> input = readText();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        Component().previewXML(std::get<std::string>(input), line_.evaluate);
        return ExitCode::done;
    }

    ExitCode render() {
        std::variant<dom::Source, Message> input = read();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        const std::string folder = absoluteFolder(*line_.folder);
        const auto message = renderPage(files_, folder, std::get<dom::Source>(std::move(input)),
                                        line_.evaluate, progress_);
        return message ? reject(*message) : ExitCode::done;
    }

    ExitCode renderStandalone() {
        std::variant<dom::Source, Message> input = read();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        const std::optional<std::string> folder =
            line_.folder ? std::optional(absoluteFolder(*line_.folder)) : std::nullopt;
        const std::string path =
            line_.output ? *line_.output : standalonePath(*folder, line_.file());
        keepDocument(line_.file(), path);
        if (!line_.output) createFolders(files_, *folder);
        const auto output = [&](const Produce& page) {
            if (path != "-") {
                writeOutputFile(files_, path, page);
                return;
            }
            // Not half a page.
            std::string whole;
            page([&whole](std::string_view piece) { whole += piece; });
            progress_.end();
            writeStandardOutput(streams_.out, whole);
        };
        const StandaloneResult result =
            tavisk::renderStandalone(files_, {folderOf(path), folder, line_.evaluate},
                                     std::get<dom::Source>(std::move(input)), output, progress_);
        if (result.rejection) return reject(*result.rejection);
        progress_.end();
        streams_.err << missingPictures(line_.file(), result.missing) << std::flush;
        return ExitCode::done;
    }

    ExitCode save() {
        std::variant<dom::Source, Message> input = read();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        // Without a folder there is no cabinet picture, which saving would remove again anyway.
        NoFiles none;
        HelpSession session = line_.folder ? HelpSession(files_, absoluteFolder(*line_.folder))
                                           : HelpSession(none, "");
        if (const auto message = load(session, std::move(input))) return reject(*message);

        progress_.phase("saving the document");
        if (line_.refreshKey) {
            dom::Node* row = findTreeNode(*session.baseXMLNode, *line_.refreshKey);
            if (row == nullptr) return refuseKey();
            selectNode(session, *row);
            session.refresh();
        } else {
            session.saveDocument();
        }
        const auto document = [&session](const Files::Write& write) {
            writeXml(*session.articledoc, write);
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
    std::variant<dom::Source, Message> read() {
        progress_.phase("reading the document");
        return readInput(line_.file(), streams_.in);
    }

    /// What the component is handed. It ends at a NUL, so a text with one inside, which is no XML,
    /// is rejected here.
    std::variant<std::string, Message> readText() {
        std::variant<dom::Source, Message> input = read();
        progress_.end();
        if (Message* message = std::get_if<Message>(&input)) return std::move(*message);
        const auto& source = std::get<dom::Source>(input);
        std::string text(source.bytes.get(), source.size);
        if (text.find('\0') == std::string::npos) return text;
        auto opened = openHelpDocument(dom::Source::copy(text));
        if (Message* message = std::get_if<Message>(&opened)) return std::move(*message);
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

    std::optional<Message> load(HelpSession& session, std::variant<dom::Source, Message> input) {
        progress_.phase("loading the document");
        return session.load(std::get<dom::Source>(std::move(input)), HelpSession::Keep::nothing);
    }

    ExitCode reject(const Message& message) {
        progress_.end();
        streams_.err << message.title << ": " << replaceAll(message.text, "\r\n", "\n") << '\n'
                     << std::flush;
        return ExitCode::rejected;
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
        case Action::render:
            if (line.each || line.files.size() > 1) return renderMany(line, streams);
            return line.standalone ? Command(line, streams).renderStandalone()
                                   : Command(line, streams).render();
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
    } catch (const DocumentRejected&) {
        streams.err << "tavisk: the document was rejected\n" << std::flush;
        return ExitCode::rejected;
    } catch (...) {
        return report(currentRunTimeError(), nullptr, streams);
    }
}

}  // namespace tavisk
