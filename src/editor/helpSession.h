// One editing session: a file with its lists, selection and panel, from loading to saving, without
// a window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/files.h"
#include "base/refusal.h"
#include "editor/nodePanel.h"
#include "page/helpFile.h"
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

    /// Loads a document: everything that was there is gone first. A document whose shape is wrong
    /// gives the reason and leaves the session unloaded; a run-time error travels,
    /// and leaves it unloaded too.
    std::optional<Refusal> load(dom::Source source);
    /// `xmlText` stays, so that it can be fetched after the window has closed.
    void unload() noexcept;
    bool loaded() const noexcept { return file.isOpen(); }

    /// All or nothing: saves the file, and sets `xmlText` and `lastsave` to the result.
    void saveDocument();

    /// The same with the marker of the selected row.
    void refresh();

    /// Whether the document differs from `lastsave`, by its text.
    bool changed() const;

    /// What closing the window asks first: whether to save, if there is anything to. `save` is how
    /// the caller runs `saveDocument`. True when the window may close; an error while saving
    /// travels, and the window stays.
    bool mayUnload(Dialogs& dialogs, const std::function<void()>& save) const;

    /// `HelpFile::removeElement`, of which `rowRemoved` is told.
    void removeElement(dom::Node& element);

    HelpFile file;
    dom::Node* currentnode = nullptr;  ///< the element being edited
    dom::Node* selectedRow = nullptr;  ///< the selected row of the tree, by its DOM node
    dom::OwnedNode clipboardnode;
    std::vector<dom::Namespace> clipboardNamespaces;  ///< that `clipboardnode` had from above it
    /// Told at once when `removeElement` has taken out a row of the tree: the row that was above
    /// it, and the one that has its place there now, null when it was the last.
    std::function<void(dom::Node& parent, dom::Node* next)> rowRemoved;
    DropDownList lstFormulas;
    DropDownList lstImages;
    NodePanel panel;
    std::string lastsave;
    std::string xmlText;

private:
    void begin();
    void fillFormulaList();
    void fillImageList();
    std::string selectedKey() const;
    template <class Save>
    void saveBy(Save save);
};

/// Makes the element that a click on `row` finds the session's current node and fills the panel
/// from it. Errors end it where they occur and leave the panel `loading`.
void selectNode(HelpSession& session, dom::Node& row);

}  // namespace tavisk
