#include "ui/editor/helpTreeModel_msw.h"

#include <utility>

#include "document/helpNames.h"
#include "ui/toolkit/strings.h"

namespace tavisk {

void HelpTreeModel::GetValue(wxVariant& value, const wxDataViewItem& item, unsigned) const {
    value = toWx(shownName(nodeOf(item)->baseName()));
}

wxDataViewItem HelpTreeModel::GetParent(const wxDataViewItem& item) const {
    const dom::Node* const node = nodeOf(item);
    return node && node != top() ? itemOf(node->parent()) : wxDataViewItem();
}

bool HelpTreeModel::IsContainer(const wxDataViewItem& item) const {
    const dom::Node* const node = nodeOf(item);
    return !node || node->hasChildren();
}

unsigned HelpTreeModel::GetChildren(const wxDataViewItem& item,
                                    wxDataViewItemArray& children) const {
    const dom::Node* const parent = nodeOf(item);
    Rows rows;
    if (parent) {
        rows.reserve(parent->childCount());
        for (dom::Node* child = parent->firstChild(); child; child = child->next())
            rows.push_back(child);
    } else if (top()) {
        rows.push_back(top());
    }
    children.reserve(rows.size());
    for (const dom::Node* row : rows)
        children.push_back(itemOf(row));
    told_[parent] = std::move(rows);
    return static_cast<unsigned>(children.size());
}

const HelpTreeModel::Rows* HelpTreeModel::told(const dom::Node* parent) const {
    const auto found = told_.find(parent);
    return found == told_.end() ? nullptr : &found->second;
}

std::vector<const dom::Node*> HelpTreeModel::forget(const dom::Node* row) {
    std::vector<const dom::Node*> gone{row};
    for (std::size_t i = 0; i < gone.size(); ++i) {
        const auto found = told_.find(gone[i]);
        if (found == told_.end()) continue;
        gone.insert(gone.end(), found->second.begin(), found->second.end());
        told_.erase(found);
    }
    return gone;
}

void HelpTreeModel::forgetChild(const dom::Node* parent, const dom::Node* row) {
    const auto found = told_.find(parent);
    if (found == told_.end()) return;
    std::erase(found->second, row);
    // Without children there is nothing that the control would know about.
    if (found->second.empty()) told_.erase(found);
}

}  // namespace tavisk
