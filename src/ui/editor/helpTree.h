// The tree of help nodes: a native tree over the document itself, without copies of it.
#pragma once

#include <cstddef>
#include <functional>

#include "ui/editor/helpTreeRows.h"
#include "xml/dom.h"

namespace tavisk {

class HelpSession;

/// `TreeXML`. A row is a DOM node of the session's document; its text is the shown name. Setting
/// the selection from code runs no handler. wxEVT_DATAVIEW_SELECTION_CHANGED comes once when the
/// user has selected another row.
class HelpTree final : public HelpTreeRows {
public:
    explicit HelpTree(wxWindow* parent);
    ~HelpTree() override;

    /// Shows the tree below the session's base node with the session's selected row selected,
    /// expanded and visible. The session must outlive the tree, or be taken away by `detach`. From
    /// now on the session tells when it takes out an element.
    void attach(HelpSession& session);
    /// Shows nothing; must come before the document goes.
    void detach();

    /// Runs an operation on the session's current node, brings the rows into step with what it did,
    /// and selects the session's selected row; also when the operation ends in an error, which
    /// travels on. Rows that were expanded stay so, also below a renamed or moved node.
    void run(const std::function<void()>& operation);

protected:
    bool TryBefore(wxEvent& event) override;

private:
    /// Where the current node is, and how much is around it. From this and the document afterwards
    /// it is known what an operation did, without a look at nodes that may be gone.
    struct Place {
        dom::Node* node = nullptr;    ///< null: no row
        dom::Node* parent = nullptr;  ///< null for the top row
        std::size_t index = 0;
        std::size_t siblings = 0;
        std::size_t children = 0;
    };

    Place currentPlace() const;
    void follow(const Place& before);
    /// Returns whether the node was moved.
    bool followRow(const Place& before);
    void showSelection();
    void onKey(wxKeyEvent& event);
    void onChar(wxKeyEvent& event);

    /// The row below, hidden ones left out; after the last one it goes on at the top.
    dom::Node& below(dom::Node& row) const;
    /// The first row from `start` on whose name begins with `text`; null when there is none.
    dom::Node* findName(dom::Node& start, const wxString& text) const;

    HelpSession* session_ = nullptr;
    wxString typed_;      ///< the begin of the name that the user is typing
    long lastTyped_ = 0;  ///< when, in milliseconds
};

}  // namespace tavisk
