#include "host/commands.h"

#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <variant>

#include "document/nodeKeys.h"
#include "editor/helpSession.h"
#include "editor/nodePanel.h"
#include "host/check.h"
#include "host/checkReport.h"
#include "host/commandLine.h"
#include "host/fileError.h"
#include "host/helpText.h"
#include "host/input.h"
#include "host/noFiles.h"
#include "host/output.h"
#include "host/progress.h"
#include "platform/assets.h"
#include "platform/error.h"
#include "platform/text.h"
#include "platform/xmlWriter.h"

namespace tavisk {
namespace {

/// One command with what it was asked for.
class Command {
public:
    Command(const CommandLine& line, const Streams& streams)
        : line_(line), streams_(streams), progress_(streams.err, streams.errIsTerminal) {}

    ExitCode render() {
        std::variant<dom::Source, Message> input = read();
        if (const Message* message = std::get_if<Message>(&input)) return reject(*message);
        const std::string folder = absoluteFolder(*line_.folder);
        createFolders(files_, folder);
        provideAssets(files_, folder);

        HelpSession session(files_, folder);
        if (const auto message = load(session, std::move(input))) return reject(*message);
        progress_.phase("writing the page");
        session.generatepreview(line_.evaluate);
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

    ExitCode check() {
        std::variant<dom::Source, Message> input = read();
        progress_.phase("checking the document");
        std::vector<Finding> findings;
        if (const Message* message = std::get_if<Message>(&input)) {
            findings.push_back(rejection(*message));
        } else {
            findings = checkDocument(std::get<dom::Source>(std::move(input)));
        }
        writeResult(line_.json ? jsonReport(line_.file, findings)
                               : textReport(line_.file, findings));
        return findings.empty() ? ExitCode::done : ExitCode::found;
    }

private:
    std::variant<dom::Source, Message> read() {
        progress_.phase("reading the document");
        return readInput(line_.file, streams_.in);
    }

    std::optional<Message> load(HelpSession& session, std::variant<dom::Source, Message> input) {
        progress_.phase("loading the document");
        return session.load(std::get<dom::Source>(std::move(input)), HelpSession::Keep::nothing);
    }

    void writeResult(std::string_view text) {
        progress_.end();
        writeStandardOutput(streams_.out, text);
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
    switch (line.action) {
        case Action::render: return Command(line, streams).render();
        case Action::save: return Command(line, streams).save();
        case Action::check: return Command(line, streams).check();
        case Action::help: writeStandardOutput(streams.out, helpText(line.topic)); break;
        case Action::version:
            writeStandardOutput(streams.out, "tavisk " TAVISK_VERSION "\n");
            break;
    }
    return ExitCode::done;
}

ExitCode report(const RunTimeError& error, const std::string* file, const Streams& streams) {
    streams.err << "Run-time error '" << error.number() << "': " << error.what() << '\n';
    if (file != nullptr) streams.err << "File: " << *file << '\n';
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
    } catch (...) {
        return report(currentRunTimeError(), nullptr, streams);
    }
}

}  // namespace tavisk
