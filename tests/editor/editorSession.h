// A loaded session over files in memory, for tests of what the editor does to a document.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"
#include "support/memoryFiles.h"
#include "support/scriptedDialogs.h"
#include "xml/xmlWriter.h"

namespace tavisk::test {

/// The generated picture as loading adds it when "/app/cabinet.png" holds the bytes "PNG".
inline constexpr std::string_view generatedPicture =
    R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64" extension="png")"
    R"( name="generated_cabinet_picture" width="256" height="256">UE5HAA==</image>)";

/// The formulas that every saved document ends with.
inline constexpr std::string_view fixedFormulas =
    R"(<formula name="code" standard="1"/><formula name="type" standard="1"/>)";

class EditorSession {
public:
    EditorSession() { files.put("/app/cabinet.png", "PNG"); }
    /// Loads a document with these nodes in its `cabinet` element.
    explicit EditorSession(std::string_view nodes) : EditorSession() { loadNodes(nodes); }

    std::optional<Refusal> load(std::string_view xml,
                                HelpSession::Keep keep = HelpSession::Keep::savedText) {
        return session.load(dom::Source::copy(xml), keep);
    }
    void loadNodes(std::string_view nodes) {
        const auto refusal =
            load("<cabinetinfo><cabinet>" + std::string(nodes) + "</cabinet></cabinetinfo>");
        if (refusal) throw std::runtime_error("the test's own document: " + refusal->reason);
    }

    /// The row that a key leads to, for example "cabinet=>a".
    dom::Node& row(std::string_view key) {
        dom::Node* const found = findTreeNode(*session.baseXMLNode, key);
        if (!found) throw std::runtime_error("the test's own key: " + std::string(key));
        return *found;
    }
    void select(std::string_view key) { selectNode(session, row(key)); }

    std::string document() const { return writeXml(*session.articledoc); }
    std::string tree() const { return writeXml(*session.baseXMLNode); }
    std::string current() const { return writeXml(*session.currentnode); }
    std::string selectedKey() const {
        return KeyOfTreeNode(*session.baseXMLNode, *session.selectedRow, keySeparator);
    }

    MemoryFiles files;
    HelpSession session{files, "/app"};
    ScriptedDialogs dialogs;
};

}  // namespace tavisk::test
