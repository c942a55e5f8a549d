#include <algorithm>
#include <unordered_set>
#include <utility>
#include <wx/dcclient.h>
#include <wx/renderer.h>

#include "document/helpNames.h"
#include "ui/editor/helpTreeModel_msw.h"
#include "ui/editor/helpTreeRows.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

/// A control without any model does not work at all.
dom::Node* const noTop = nullptr;

/// Which rows of a subtree were expanded, for another subtree of the same shape.
struct Expansion {
    dom::Node* row = nullptr;
    bool expanded = false;
    std::vector<Expansion> below;  ///< where something is expanded
};

}  // namespace

struct HelpTreeRows::Native {
    explicit Native(HelpTreeRows& control);

    // What the user does, or wxWidgets for whoever asks.
    void onExpanded(wxDataViewEvent& event);
    void onCollapsing(wxDataViewEvent& event);
    void onCollapsed(wxDataViewEvent& event);
    void onActivated(const wxDataViewEvent& event);
    void onIdle(wxIdleEvent& event);

    bool isShown(const dom::Node& row) const;
    bool isExpanded(const dom::Node& row) const { return expanded.count(&row) != 0; }
    void select(dom::Node& row);
    void reveal(const dom::Node& row);
    void growColumn();
    int textWidth(const dom::Node& row) const;

    Expansion remember(const dom::Node* former, dom::Node& row) const;
    void restore(const Expansion& former);
    void forget(const dom::Node* row);
    void follow(dom::Node& parent, const HelpTreeModel::Rows& former, const dom::Node* moved);
    void rebuild();
    void show(dom::Node* const& top);

    HelpTreeRows& tree;
    wxObjectDataPtr<HelpTreeModel> model;
    std::unordered_set<const dom::Node*> expanded;
    dom::Node* toReveal = nullptr;
    bool otherRowsInView = false;
    wxDataViewItem lastTop;
    wxSize lastSize;
};

HelpTreeRows::Native::Native(HelpTreeRows& control) : tree(control) {
    tree.Bind(wxEVT_DATAVIEW_ITEM_EXPANDED, &Native::onExpanded, this);
    tree.Bind(wxEVT_DATAVIEW_ITEM_COLLAPSING, &Native::onCollapsing, this);
    tree.Bind(wxEVT_DATAVIEW_ITEM_COLLAPSED, &Native::onCollapsed, this);
    tree.Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED,
              [this](const wxDataViewEvent& event) { onActivated(event); });
    tree.Bind(wxEVT_IDLE, &Native::onIdle, this);
}

void HelpTreeRows::Native::onExpanded(wxDataViewEvent& event) {
    expanded.insert(nodeOf(event.GetItem()));
    otherRowsInView = true;
    event.Skip();
}

/// The selection does not go with the rows that are hidden: the row above them has it then. What is
/// hidden is collapsed when it is shown again.
void HelpTreeRows::Native::onCollapsing(wxDataViewEvent& event) {
    dom::Node* const row = nodeOf(event.GetItem());
    for (const dom::Node* above = tree.selected(); above; above = above->parent()) {
        if (above == row && above != tree.selected()) {
            tree.choose(*row);
            break;
        }
    }
    for (dom::Node* below = row->firstChild(); below; below = below->next()) {
        if (isExpanded(*below)) tree.Collapse(itemOf(below));
    }
    event.Skip();
}

void HelpTreeRows::Native::onCollapsed(wxDataViewEvent& event) {
    expanded.erase(nodeOf(event.GetItem()));
    event.Skip();
}

void HelpTreeRows::Native::onActivated(const wxDataViewEvent& event) {
    if (const wxDataViewItem item = event.GetItem(); tree.IsExpanded(item)) {
        tree.Collapse(item);
    } else {
        tree.Expand(item);
    }
}

/// Only when all has been laid out it is known what is in view.
void HelpTreeRows::Native::onIdle(wxIdleEvent& event) {
    event.Skip();
    if (!model->top() || !tree.IsShownOnScreen()) return;
    if (dom::Node* const row = std::exchange(toReveal, nullptr); row && tree.selected() == row) {
        otherRowsInView = true;
        reveal(*row);
    }
    const wxDataViewItem top = tree.GetTopItem();
    if (top != lastTop || tree.GetClientSize() != lastSize) otherRowsInView = true;
    lastTop = top;
    lastSize = tree.GetClientSize();
    if (std::exchange(otherRowsInView, false)) growColumn();
}

/// Whether all rows above it are expanded.
bool HelpTreeRows::Native::isShown(const dom::Node& row) const {
    for (const dom::Node* at = &row; at != model->top(); at = at->parent()) {
        if (!at || !isExpanded(*at->parent())) return false;
    }
    return true;
}

void HelpTreeRows::Native::select(dom::Node& row) {
    tree.wxDataViewCtrl::Select(itemOf(&row));
    toReveal = &row;
    if (tree.IsShownOnScreen()) reveal(row);
}

/// Its text from the side, too.
void HelpTreeRows::Native::reveal(const dom::Node& row) {
    tree.EnsureVisible(itemOf(&row), nullptr);
    growColumn();
    const wxRect place = tree.GetItemRect(itemOf(&row), tree.GetColumn(0));
    if (place.IsEmpty()) return;
    const int seen = tree.GetMainWindow()->GetClientSize().x;
    const int expander = wxRendererNative::Get().GetExpanderSize(&tree).x;
    const int left = place.x - 2 * expander;
    const int right = std::min(place.x + textWidth(row), left + seen);
    int unit = 0;
    tree.GetScrollPixelsPerUnit(&unit, nullptr);
    if (unit <= 0) return;
    const int scrolled = tree.GetViewStart().x;
    if (left < 0) {
        tree.Scroll(std::max(0, scrolled - (-left + unit - 1) / unit), -1);
    } else if (right > seen) {
        tree.Scroll(scrolled + (right - seen + unit - 1) / unit, -1);
    }
}

int HelpTreeRows::Native::textWidth(const dom::Node& row) const {
    constexpr int padding = 6;
    return tree.GetMainWindow()->GetTextExtent(toWx(shownName(row.baseName()))).x +
           tree.FromDIP(padding);
}

/// The column is as wide as the widest row that has been in view: measuring every row takes long
/// for a large document.
void HelpTreeRows::Native::growColumn() {
    wxDataViewColumn* const column = tree.GetColumn(0);
    const int first = tree.GetRowByItem(tree.GetTopItem());
    if (first < 0) return;
    const int expander = wxRendererNative::Get().GetExpanderSize(&tree).x;
    int width = column->WXGetSpecifiedWidth();
    const int last = first + tree.GetCountPerPage() + 1;
    for (int at = first; at <= last; ++at) {
        const dom::Node* const row = nodeOf(tree.GetItemByRow(static_cast<unsigned>(at)));
        if (!row) break;
        int level = 0;
        for (const dom::Node* above = row; above != model->top(); above = above->parent())
            ++level;
        width = std::max(width, level * tree.GetIndent() + expander + textWidth(*row));
    }
    if (width > column->WXGetSpecifiedWidth()) {
        column->SetWidth(width);
        tree.GetMainWindow()->Refresh();
    }
}

Expansion HelpTreeRows::Native::remember(const dom::Node* former, dom::Node& row) const {
    Expansion expansion{&row, expanded.count(former) != 0, {}};
    const HelpTreeModel::Rows* const below = model->told(former);
    if (!below) return expansion;
    dom::Node* child = row.firstChild();
    for (const dom::Node* formerChild : *below) {
        if (!child) break;
        Expansion deeper = remember(formerChild, *child);
        if (deeper.expanded) expansion.below.push_back(std::move(deeper));
        child = child->next();
    }
    return expansion;
}

void HelpTreeRows::Native::restore(const Expansion& former) {
    if (!former.expanded) return;
    tree.Expand(itemOf(former.row));
    for (const Expansion& deeper : former.below)
        restore(deeper);
}

void HelpTreeRows::Native::forget(const dom::Node* row) {
    for (const dom::Node* gone : model->forget(row))
        expanded.erase(gone);
}

/// Brings the rows below `parent` into step with the document. `former` has, for each of them, the
/// row that was it before; null for a new one. A moved row is taken out and put in again.
void HelpTreeRows::Native::follow(dom::Node& parent, const HelpTreeModel::Rows& former,
                                  const dom::Node* moved) {
    const wxDataViewItem above = itemOf(&parent);
    const bool wasExpanded = isExpanded(parent);
    std::vector<Expansion> expansions;
    HelpTreeModel::Rows added;
    dom::Node* row = parent.firstChild();
    for (const dom::Node* before : former) {
        if (before != row || row == moved) {
            added.push_back(row);
            if (before) {
                expansions.push_back(remember(before, *row));
                forget(before);
                model->forgetChild(&parent, before);
                model->ItemDeleted(above, itemOf(before));
            }
        }
        row = row->next();
    }
    for (const dom::Node* newRow : added)
        model->ItemAdded(above, itemOf(newRow));
    if (wasExpanded) tree.Expand(above);
    for (const Expansion& expansion : expansions)
        restore(expansion);
    otherRowsInView = true;
}

/// For another top row, which the control has no way to exchange.
void HelpTreeRows::Native::rebuild() {
    Expansion expansion;
    if (const HelpTreeModel::Rows* const former = model->told(nullptr))
        expansion = remember(former->front(), *model->top());
    forget(nullptr);
    model->Cleared();
    if (expansion.row) restore(expansion);
}

void HelpTreeRows::Native::show(dom::Node* const& top) {
    tree.UnselectAll();
    model.reset(new HelpTreeModel(top));
    tree.AssociateModel(model.get());
    expanded.clear();
    toReveal = nullptr;
}

HelpTreeRows::HelpTreeRows(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_NO_HEADER),
      native_(std::make_unique<Native>(*this)) {
    constexpr int narrow = 1;
    wxDataViewColumn* const column =
        AppendTextColumn(wxString(), 0, wxDATAVIEW_CELL_INERT, narrow, wxALIGN_LEFT, 0);
    column->GetRenderer()->DisableEllipsize();
    hideRows();
}

HelpTreeRows::~HelpTreeRows() { hideRows(); }

void HelpTreeRows::showRows(dom::Node* const& top) { native_->show(top); }

void HelpTreeRows::hideRows() { native_->show(noTop); }

bool HelpTreeRows::isRow(const dom::Node* node) const noexcept {
    while (node && node != native_->model->top())
        node = node->parent();
    return node != nullptr;
}

void HelpTreeRows::rowInserted(dom::Node& row) {
    UnselectAll();
    dom::Node& parent = *row.parent();
    if (const HelpTreeModel::Rows* const told = native_->model->told(&parent)) {
        HelpTreeModel::Rows former = *told;
        const std::size_t index = std::min(indexAmongSiblings(row), former.size());
        former.insert(former.begin() + static_cast<std::ptrdiff_t>(index), nullptr);
        native_->follow(parent, former, nullptr);
    } else {
        native_->model->ItemAdded(itemOf(&parent), itemOf(&row));
    }
}

void HelpTreeRows::rowRemoved(dom::Node& parent, std::size_t index) {
    UnselectAll();
    const HelpTreeModel::Rows* const told = native_->model->told(&parent);
    // Of an unknown row the control learns that its parent may have no more children.
    const dom::Node* removed = &parent;
    if (told && index < told->size()) {
        removed = (*told)[index];
        native_->forget(removed);
        native_->model->forgetChild(&parent, removed);
    }
    if (!parent.hasChildren()) native_->expanded.erase(&parent);
    native_->model->ItemDeleted(itemOf(&parent), itemOf(removed));
    if (const HelpTreeModel::Rows* const rest = native_->model->told(&parent))
        native_->follow(parent, HelpTreeModel::Rows(*rest), nullptr);
}

void HelpTreeRows::rowReplaced(dom::Node& row) {
    UnselectAll();
    if (&row == native_->model->top()) {
        native_->rebuild();
    } else if (const HelpTreeModel::Rows* const told = native_->model->told(row.parent())) {
        native_->follow(*row.parent(), HelpTreeModel::Rows(*told), nullptr);
    }
    GetMainWindow()->Refresh();
}

void HelpTreeRows::rowMoved(dom::Node& row, std::size_t from) {
    UnselectAll();
    const HelpTreeModel::Rows* const told = native_->model->told(row.parent());
    if (!told) return;
    HelpTreeModel::Rows former = *told;
    const auto old = former.begin() + static_cast<std::ptrdiff_t>(from);
    const auto now = former.begin() + static_cast<std::ptrdiff_t>(indexAmongSiblings(row));
    if (old < now) {
        std::rotate(old, old + 1, now + 1);
    } else {
        std::rotate(now, old, old + 1);
    }
    native_->follow(*row.parent(), former, &row);
}

dom::Node* HelpTreeRows::selected() const {
    wxDataViewItemArray items;
    return GetSelections(items) > 0 ? nodeOf(items.front()) : nullptr;
}

void HelpTreeRows::select(dom::Node& row) { native_->select(row); }

void HelpTreeRows::choose(dom::Node& row) {
    const bool other = selected() != &row;
    native_->select(row);
    if (!other) return;
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, this, itemOf(&row));
    ProcessWindowEvent(event);
}

void HelpTreeRows::selectNothing() { UnselectAll(); }

void HelpTreeRows::Select(const wxDataViewItem& item) { select(*nodeOf(item)); }

void HelpTreeRows::EnsureVisible(const wxDataViewItem& item, const wxDataViewColumn* column) {
    wxDataViewCtrl::EnsureVisible(item, column);
}

void HelpTreeRows::HitTest(const wxPoint& point, wxDataViewItem& item,
                           wxDataViewColumn*& column) const {
    wxDataViewCtrl::HitTest(point, item, column);
    if (!item.IsOk()) column = nullptr;
}

wxRect HelpTreeRows::GetItemRect(const wxDataViewItem& item, const wxDataViewColumn* column) const {
    return item.IsOk() ? wxDataViewCtrl::GetItemRect(item, column) : wxRect();
}

void HelpTreeRows::Collapse(const wxDataViewItem& item) {
    // Of a row that is hidden the control would find another one.
    if (native_->isShown(*nodeOf(item))) wxDataViewCtrl::Collapse(item);
}

bool HelpTreeRows::IsExpanded(const wxDataViewItem& item) const {
    const dom::Node& row = *nodeOf(item);
    return native_->isExpanded(row) && native_->isShown(row);
}

bool HelpTreeRows::HasFocus() const {
    // The control gives it to the part of it that has the rows.
    return wxWindow::FindFocus() == const_cast<HelpTreeRows*>(this)->GetMainWindow();
}

}  // namespace tavisk
