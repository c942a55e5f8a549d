// The native side of the tree: a control whose rows are the nodes of a document, without copies.
#pragma once

#include <cstddef>
#include <memory>
#include <wx/dataview.h>

#include "xml/dom.h"

namespace tavisk {

/// Number of siblings before a node.
std::size_t indexAmongSiblings(const dom::Node& node) noexcept;

/// Items are DOM nodes. Whoever changes the document at or below the top row tells so here before
/// the next event is handled; handles of nodes that are gone are then not needed. Nothing called
/// here runs the handler of a selection, except `choose`.
class HelpTreeRows : public wxDataViewCtrl {
public:
    explicit HelpTreeRows(wxWindow* parent);
    HelpTreeRows(const HelpTreeRows&) = delete;
    HelpTreeRows& operator=(const HelpTreeRows&) = delete;
    ~HelpTreeRows() override;

    /// `top` is read each time it is needed, because the top node can be replaced.
    void showRows(dom::Node* const& top);
    void hideRows();
    bool isRow(const dom::Node* node) const noexcept;

    void rowInserted(dom::Node& row);
    /// `index` is the place among the children of `parent` that the removed row had.
    void rowRemoved(dom::Node& parent, std::size_t index);
    /// A node took the place of another one with a subtree of the same shape.
    void rowReplaced(dom::Node& row);
    /// `from` is the row's former place among its siblings.
    void rowMoved(dom::Node& row, std::size_t from);

    /// The row that is selected; null while there is none.
    dom::Node* selected() const;
    /// Selects a row, with everything above it expanded, and scrolls it into view.
    void select(dom::Node& row);
    /// The same, as an action of the user.
    void choose(dom::Node& row);
    void selectNothing();

    // What wxWidgets offers for rows, for these.
    void Select(const wxDataViewItem& item) override;
    void EnsureVisible(const wxDataViewItem& item, const wxDataViewColumn* column) override;
    void HitTest(const wxPoint& point, wxDataViewItem& item,
                 wxDataViewColumn*& column) const override;
    wxRect GetItemRect(const wxDataViewItem& item, const wxDataViewColumn* column) const override;
    void Collapse(const wxDataViewItem& item) override;
    bool IsExpanded(const wxDataViewItem& item) const override;
    bool HasFocus() const override;

protected:
#ifdef __WXGTK__  // only there wxWidgets' own function does not know these rows
    void DoExpand(const wxDataViewItem& item, bool expandChildren) override;
#endif

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace tavisk
