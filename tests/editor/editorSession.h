// A loaded session over files in memory, for tests of what the editor does to a document.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"
#include "page/openFile.h"
#include "support/memoryFiles.h"
#include "support/scriptedDialogs.h"
#include "xml/xmlWriter.h"

namespace tavisk::test {

class EditorSession {
public:
    EditorSession() { files.put("/app/cabinet.png", "PNG"); }
    /// Loads a document with these nodes in its `cabinet` element.
    explicit EditorSession(std::string_view nodes) : EditorSession() { loadNodes(nodes); }

    std::optional<Refusal> load(std::string_view xml) {
        return session.load(dom::Source::copy(xml));
    }
    void loadNodes(std::string_view nodes) {
        if (const auto refusal = load(documentOf(nodes)))
            throw std::runtime_error("the test's own document: " + refusal->reason);
    }

    /// The row that a key leads to, for example "cabinet=>a".
    dom::Node& row(std::string_view key) {
        dom::Node* const found = findTreeNode(*session.file.baseXMLNode, key);
        if (!found) throw std::runtime_error("the test's own key: " + std::string(key));
        return *found;
    }
    void select(std::string_view key) { selectNode(session, row(key)); }

    std::string document() const { return writeXml(*session.file.articledoc); }
    std::string tree() const { return writeXml(*session.file.baseXMLNode); }
    std::string current() const { return writeXml(*session.currentnode); }
    std::string selectedKey() const {
        return KeyOfTreeNode(*session.file.baseXMLNode, *session.selectedRow, keySeparator);
    }

    MemoryFiles files;
    HelpSession session{files, "/app"};
    ScriptedDialogs dialogs;
};

}  // namespace tavisk::test
