// The tree of help nodes: a native tree over the document itself, without copies of it.
#pragma once

#include <wx/dataview.h>

#include "editor/nodeOperations.h"
#include "platform/dom.h"

namespace tavisk {

class HelpSession;
class HelpTreeModel;

/// `TreeXML`. A row is a DOM node of the session's document; its text is the shown name. Setting the
/// selection from code runs no handler.
class HelpTree final : public wxDataViewCtrl {
public:
    explicit HelpTree(wxWindow* parent);

    /// Shows the tree below the session's base node with the session's selected row selected and
    /// visible. The session must outlive the tree, or be taken away by `detach`.
    void attach(HelpSession& session);
    /// Shows nothing; must come before the document goes.
    void detach();

    /// Brings the rows into step with what an operation did to the document, and selects the
    /// session's selected row. Rows that were expanded stay so, also below a renamed or moved node.
    void follow(const TreeChange& change);

    /// The row that the user has selected; null while there is none.
    dom::Node* selected() const;
    /// Selects a row, with everything above it expanded, and scrolls it into view.
    void select(dom::Node& row);

private:
    HelpSession* session_ = nullptr;
    HelpTreeModel* model_ = nullptr;  ///< owned by the control, by its reference count
};

}  // namespace tavisk
