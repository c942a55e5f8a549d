// One editing session: the document with its catalogue, lists, selection and panel, from loading to
// saving, without a window.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/files.h"
#include "base/refusal.h"
#include "document/helpDocument.h"
#include "editor/nodePanel.h"
#include "formulas/formulaCatalogue.h"
#include "xml/dom.h"
#include "xml/domNamespaces.h"

namespace tavisk {

/// A drop-down list: its entries and the chosen one.
struct DropDownList {
    std::vector<std::string> entries;
    std::optional<std::size_t> index;

    std::string_view text() const;
    void clear();
    /// Chooses the first entry of this text.
    void choose(std::string_view text);
};

/// The state of the editor form while it is loaded. Members are what the commands work on; the
/// commands need a loaded session.
class HelpSession {
public:
    /// `folder` is the component's folder, without a trailing separator.
    HelpSession(Files& files, std::string folder);

    enum class Keep { nothing, savedText };

    /// Loads a document: everything that was there is gone first. A document whose shape is wrong
    /// gives the reason and leaves the session unloaded; a run-time error travels,
    /// and leaves it unloaded too. `Keep::nothing` sets neither `lastsave` nor `xmlText`, now or
    /// when saving, for callers that only render or write the document out: `changed` means nothing
    /// then.
    std::optional<Refusal> load(dom::Source source, Keep keep = Keep::savedText);
    /// The same for a document that is open already.
    void load(HelpDocument document, Keep keep = Keep::savedText);
    /// `xmlText` stays, so that it can be fetched after the window has closed.
    void unload() noexcept;
    bool loaded() const noexcept { return articledoc != nullptr; }

    /// All or nothing: removes the generated picture, exports the formulas, and sets `xmlText` and
    /// `lastsave` to the result (see `Keep`).
    void saveDocument();

    /// Appends the marker of the selected row and saves, all or nothing.
    void refresh();

    /// Whether the document differs from `lastsave`, by its text.
    bool changed() const;

    /// What closing the window asks first: whether to save, if there is anything to. `save` is how
    /// the caller runs `saveDocument`. True when the window may close; an error while saving
    /// travels, and the window stays.
    bool mayUnload(Dialogs& dialogs, const std::function<void()>& save) const;

    /// Writes the page, with pictures and expanded texts when `evaluateFormula` is set, and returns
    /// its path.
    std::string generatepreview(bool evaluateFormula);

    /// Takes an element out of the document. One that the tree shows, or that holds the tree, lives
    /// on outside it until the session ends, because the view and the selection still know it.
    void removeElement(dom::Node& element);

    const std::string& imageTemp() const noexcept { return IMG_TEMP; }
    Files& files() noexcept { return files_; }

    std::unique_ptr<dom::Document> articledoc;
    dom::Node* baseXMLNode = nullptr;
    dom::Node* currentnode = nullptr;  ///< the element being edited
    dom::Node* selectedRow = nullptr;  ///< the selected row of the tree, by its DOM node
    dom::OwnedNode clipboardnode;
    std::vector<dom::Namespace> clipboardNamespaces;  ///< that `clipboardnode` had from above it
    /// Told at once when `removeElement` has taken out a row of the tree: the row that was above
    /// it, and the one that has its place there now, null when it was the last.
    std::function<void(dom::Node& parent, dom::Node* next)> rowRemoved;
    FormulaCatalogue formulaCatalogue;
    DropDownList lstFormulas;
    DropDownList lstImages;
    NodePanel panel;
    std::string lastsave;
    std::string xmlText;

private:
    void begin(Keep keep);
    void loadChecked();
    void fillFormulaList();
    void fillImageList();
    void addGeneratedPicture();
    std::string selectedKey() const;

    Files& files_;
    std::string folder_;
    std::string IMG_TEMP;
    Keep keep_ = Keep::savedText;
    std::vector<dom::OwnedNode> removedRows_;
};

}  // namespace tavisk
