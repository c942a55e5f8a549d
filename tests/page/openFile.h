// A help file over files in memory, for tests of what is done without editing.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "document/nodeKeys.h"
#include "page/helpFile.h"
#include "support/memoryFiles.h"
#include "xml/xmlWriter.h"

namespace tavisk::test {

/// The generated picture as loading adds it when "/app/cabinet.png" holds the bytes "PNG".
inline constexpr std::string_view generatedPicture =
    R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64" extension="png")"
    R"( name="generated_cabinet_picture" width="256" height="256">UE5HAA==</image>)";

/// The formulas that every saved document ends with.
inline constexpr std::string_view fixedFormulas =
    R"(<formula name="code" standard="1"/><formula name="type" standard="1"/>)";

/// A document with these nodes in its `cabinet` element.
inline std::string documentOf(std::string_view nodes, std::string_view behind = {}) {
    return "<cabinetinfo><cabinet>" + std::string(nodes) + "</cabinet>" + std::string(behind) +
           "</cabinetinfo>";
}

class OpenFile {
public:
    OpenFile() { files.put("/app/cabinet.png", "PNG"); }
    explicit OpenFile(std::string_view nodes) : OpenFile() { loadNodes(nodes); }

    std::optional<Refusal> load(std::string_view xml) { return file.load(dom::Source::copy(xml)); }
    void loadNodes(std::string_view nodes) {
        if (const auto refusal = load(documentOf(nodes)))
            throw std::runtime_error("the test's own document: " + refusal->reason);
    }

    /// The row that a key leads to, for example "cabinet=>a".
    dom::Node& row(std::string_view key) {
        dom::Node* const found = findTreeNode(*file.baseXMLNode, key);
        if (!found) throw std::runtime_error("the test's own key: " + std::string(key));
        return *found;
    }

    std::string document() const { return writeXml(*file.articledoc); }
    std::string tree() const { return writeXml(*file.baseXMLNode); }

    MemoryFiles files;
    HelpFile file{files, "/app"};
};

}  // namespace tavisk::test
