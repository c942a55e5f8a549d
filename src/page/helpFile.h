// A help document as a file: opened, its page written, saved. Nothing here edits it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/refusal.h"
#include "document/helpDocument.h"
#include "formulas/formulaCatalogue.h"
#include "page/normalise.h"
#include "xml/dom.h"

namespace tavisk {

/// An open document with its formulas. Except where it says otherwise, a call needs one.
class HelpFile {
public:
    /// `folder` is the component's folder, without a trailing separator.
    HelpFile(Files& files, std::string folder);

    /// Opens a document and makes it complete: everything that was there is gone first. A document
    /// whose shape is wrong gives the reason and leaves the file closed; a run-time
    /// error travels, and leaves it closed too.
    std::optional<Refusal> load(dom::Source source);
    /// The same for a document that has been checked already.
    void load(HelpDocument document);

    /// The first step of `load`: finds the start row and normalises it. An editing session selects
    /// that row before it goes on with the others, in their order.
    std::optional<Refusal> open(dom::Source source);
    void removeMarkers();
    void addGeneratedPicture();

    void close() noexcept;
    bool isOpen() const noexcept { return articledoc != nullptr; }

    /// The row that is selected first. Holds until the next change of the document.
    dom::Node& startRow() const noexcept { return *startRow_; }

    /// Writes to the row's node what selecting it would. Errors as in `page/normalise.h`.
    void normalise(dom::Node& row);

    /// Writes the page, with pictures and expanded texts when `evaluateFormula` is set, and returns
    /// its path.
    std::string generatepreview(bool evaluateFormula);

    /// All or nothing: removes the generated picture and exports the formulas, so that the document
    /// is as it is handed out.
    void save();
    /// The same with a marker of the row that has this key.
    void saveWithMarker(std::string_view key);

    /// Takes an element out of the document. One that the tree shows, or that holds the tree, lives
    /// on outside it until the file is closed, because a view and a selection still know it.
    void removeElement(dom::Node& element);
    /// Whether the node is a row of the tree below `baseXMLNode`.
    bool isRow(const dom::Node& node) const noexcept;

    Files& files() noexcept { return files_; }
    const std::string& imageTemp() const noexcept { return IMG_TEMP; }

    std::unique_ptr<dom::Document> articledoc;
    dom::Node* baseXMLNode = nullptr;
    FormulaCatalogue formulaCatalogue;

private:
    void begin(HelpDocument document);
    void complete();
    dom::Node& findStartRow() const;

    Files& files_;
    std::string folder_;
    std::string IMG_TEMP;
    dom::Node* startRow_ = nullptr;
    ShownNode shown_;
    std::vector<dom::OwnedNode> removedRows_;
};

/// Whether saving frees the node, as part of a formula or of a generated picture.
bool goesWithSaving(const dom::Node* node);

}  // namespace tavisk
