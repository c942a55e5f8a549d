// The rows of the tree as wxWidgets asks for them: straight from the document.
#pragma once

#include <unordered_map>
#include <vector>
#include <wx/dataview.h>

#include "xml/dom.h"

namespace tavisk {

inline wxDataViewItem itemOf(const dom::Node* row) {
    return wxDataViewItem(const_cast<dom::Node*>(row));
}
inline dom::Node* nodeOf(const wxDataViewItem& item) {
    return static_cast<dom::Node*>(item.GetID());
}

/// A model with one column, the shown name. Its top row is the node that `top` points at when
/// asked; below a row are its child nodes of every type.
class HelpTreeModel final : public wxDataViewModel {
public:
    using Rows = std::vector<dom::Node*>;

    explicit HelpTreeModel(dom::Node* const& top) : top_(&top) {}

    void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned column) const override;
    bool SetValue(const wxVariant&, const wxDataViewItem&, unsigned) override { return false; }
    wxDataViewItem GetParent(const wxDataViewItem& item) const override;
    bool IsContainer(const wxDataViewItem& item) const override;
    unsigned GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const override;

    dom::Node* top() const noexcept { return *top_; }

    /// The rows below `parent` (null: the top row) as the control was told last; null when it never
    /// asked. Some of them may be gone from the document, and are to be compared only.
    const Rows* told(const dom::Node* parent) const;
    /// The control forgets what is below the row. Returns that, and the row itself.
    std::vector<const dom::Node*> forget(const dom::Node* row);
    /// The control has taken out a child.
    void forgetChild(const dom::Node* parent, const dom::Node* row);

private:
    dom::Node* const* top_;
    mutable std::unordered_map<const dom::Node*, Rows> told_;
};

}  // namespace tavisk
