#include <algorithm>
#include <gtk/gtk.h>
#include <numeric>
#include <vector>

#include "ui/editor/helpTreeModel_gtk.h"
#include "ui/editor/helpTreeRows.h"
#include "ui/editor/treePlaces_gtk.h"

namespace tavisk {
namespace {

/// wxWidgets' own store searches a level from its start for each of its rows, half a second for
/// 30,000 siblings. It stays empty, and the native view has the rows from a model of ours.
class NoRows final : public wxDataViewModel {
public:
    void GetValue(wxVariant&, const wxDataViewItem&, unsigned) const override {}
    bool SetValue(const wxVariant&, const wxDataViewItem&, unsigned) override { return false; }
    wxDataViewItem GetParent(const wxDataViewItem&) const override { return {}; }
    bool IsContainer(const wxDataViewItem&) const override { return false; }
    unsigned GetChildren(const wxDataViewItem&, wxDataViewItemArray&) const override { return 0; }
};

dom::Node* nodeOf(const wxDataViewItem& item) { return static_cast<dom::Node*>(item.GetID()); }

}  // namespace

struct HelpTreeRows::Native {
    Native(GtkTreeView* tree, GtkCellRenderer* cell);
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native();

    TreePath pathTo(dom::Node& row) const;
    void expandAbove(dom::Node& row) const;
    void select(dom::Node& row);
    void toldOfChildren(dom::Node& row) const;

    GtkTreeView* view;
    TreePlaces places;
    GtkTreeModel* model = nullptr;
    dom::Node* const* top = nullptr;
};

HelpTreeRows::Native::Native(GtkTreeView* tree, GtkCellRenderer* cell)
    : view(tree), places(tree, cell) {
    const auto onActivated = +[](GtkTreeView* view, GtkTreePath* path) {
        if (!gtk_tree_view_collapse_row(view, path)) gtk_tree_view_expand_row(view, path, FALSE);
    };
    g_signal_connect(view, "row-activated", G_CALLBACK(onActivated), this);
}

HelpTreeRows::Native::~Native() { g_signal_handlers_disconnect_by_data(view, this); }

TreePath HelpTreeRows::Native::pathTo(dom::Node& row) const {
    GtkTreeIter iterator = iteratorAt(row);
    return TreePath(model ? gtk_tree_model_get_path(model, &iterator) : gtk_tree_path_new());
}

void HelpTreeRows::Native::expandAbove(dom::Node& row) const {
    if (&row != *top) gtk_tree_view_expand_to_path(view, pathTo(*row.parent()).get());
}

void HelpTreeRows::Native::select(dom::Node& row) {
    expandAbove(row);
    gtk_tree_view_set_cursor(view, pathTo(row).get(), nullptr, FALSE);
    places.revealSelected();
}

/// A row that gets its first child, or loses its last one, shows that.
void HelpTreeRows::Native::toldOfChildren(dom::Node& row) const {
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_has_child_toggled(model, pathTo(row).get(), &iterator);
}

HelpTreeRows::HelpTreeRows(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_NO_HEADER) {
    const wxObjectDataPtr<NoRows> none(new NoRows);
    AssociateModel(none.get());
    // Of a given width, so that all rows are known to be equally high without measuring them.
    constexpr int narrow = 1;
    wxDataViewColumn* const column =
        AppendTextColumn(wxString(), 0, wxDATAVIEW_CELL_INERT, narrow, wxALIGN_LEFT, 0);
    column->GetRenderer()->DisableEllipsize();

    GtkTreeView* const view = GTK_TREE_VIEW(GtkGetTreeView());
    GtkTreeViewColumn* const native = GTK_TREE_VIEW_COLUMN(column->GetGtkHandle());
    GtkCellRenderer* const cell = column->GetRenderer()->GetGtkHandle();
    gtk_tree_view_set_model(view, nullptr);
    gtk_tree_view_column_set_cell_data_func(native, cell, nullptr, nullptr, nullptr);
    gtk_tree_view_column_add_attribute(native, cell, "text", 0);
    gtk_tree_view_set_enable_search(view, FALSE);
    // Here the user cannot take the selection away.
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(view), GTK_SELECTION_BROWSE);
    native_ = std::make_unique<Native>(view, cell);
}

HelpTreeRows::~HelpTreeRows() { hideRows(); }

void HelpTreeRows::showRows(dom::Node* const& top) {
    hideRows();
    const SelectionEventsSuppressor quiet(this);
    native_->top = &top;
    native_->model = newHelpTreeModel(top);
    gtk_tree_view_set_model(native_->view, native_->model);
}

void HelpTreeRows::hideRows() {
    if (!native_->model) return;
    const SelectionEventsSuppressor quiet(this);
    gtk_tree_view_set_model(native_->view, nullptr);
    clearHelpTreeModel(native_->model);
    g_object_unref(native_->model);
    native_->model = nullptr;
    native_->top = nullptr;
}

bool HelpTreeRows::isRow(const dom::Node* node) const noexcept {
    if (!native_->top) return false;
    while (node && node != *native_->top)
        node = node->parent();
    return node != nullptr;
}

void HelpTreeRows::rowInserted(dom::Node& row) {
    forgetPlaces(native_->model);
    const SelectionEventsSuppressor quiet(this);
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_inserted(native_->model, native_->pathTo(row).get(), &iterator);
    if (row.hasChildren()) native_->toldOfChildren(row);
    if (!row.previous() && !row.next()) native_->toldOfChildren(*row.parent());
    native_->places.settle();
}

void HelpTreeRows::rowRemoved(dom::Node& parent, std::size_t index) {
    forgetPlaces(native_->model);
    const SelectionEventsSuppressor quiet(this);
    const TreePath path = native_->pathTo(parent);
    gtk_tree_path_append_index(path.get(), static_cast<gint>(index));
    gtk_tree_model_row_deleted(native_->model, path.get());
    if (!parent.hasChildren()) native_->toldOfChildren(parent);
    native_->places.settle();
}

void HelpTreeRows::rowReplaced(dom::Node& row) {
    forgetPlaces(native_->model);
    const SelectionEventsSuppressor quiet(this);
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_changed(native_->model, native_->pathTo(row).get(), &iterator);
    native_->places.settle();
}

void HelpTreeRows::rowMoved(dom::Node& row, std::size_t from) {
    forgetPlaces(native_->model);
    const SelectionEventsSuppressor quiet(this);
    dom::Node& parent = *row.parent();
    std::vector<gint> formerPlaces(parent.childCount());
    std::iota(formerPlaces.begin(), formerPlaces.end(), 0);
    const auto old = formerPlaces.begin() + static_cast<std::ptrdiff_t>(from);
    const auto now = formerPlaces.begin() + static_cast<std::ptrdiff_t>(indexAmongSiblings(row));
    if (old < now) {
        std::rotate(old, old + 1, now + 1);
    } else {
        std::rotate(now, old, old + 1);
    }
    GtkTreeIter iterator = iteratorAt(parent);
    gtk_tree_model_rows_reordered(native_->model, native_->pathTo(parent).get(), &iterator,
                                  formerPlaces.data());
    native_->places.settle();
}

dom::Node* HelpTreeRows::selected() const {
    GtkTreeIter iterator;
    GtkTreeSelection* const selection = gtk_tree_view_get_selection(native_->view);
    if (!gtk_tree_selection_get_selected(selection, nullptr, &iterator)) return nullptr;
    return nodeAt(iterator);
}

void HelpTreeRows::select(dom::Node& row) {
    const SelectionEventsSuppressor quiet(this);
    native_->select(row);
}

void HelpTreeRows::choose(dom::Node& row) { native_->select(row); }

void HelpTreeRows::selectNothing() {
    const SelectionEventsSuppressor quiet(this);
    // A view without a cursor selects its first row as soon as it gets the focus.
    const TreePath top(gtk_tree_path_new_first());
    gtk_tree_view_set_cursor(native_->view, top.get(), nullptr, FALSE);
    gtk_tree_selection_unselect_all(gtk_tree_view_get_selection(native_->view));
}

void HelpTreeRows::Select(const wxDataViewItem& item) { select(*nodeOf(item)); }

void HelpTreeRows::EnsureVisible(const wxDataViewItem& item, const wxDataViewColumn*) {
    const TreePath path = native_->pathTo(*nodeOf(item));
    gtk_tree_view_scroll_to_cell(native_->view, path.get(), nullptr, FALSE, 0, 0);
}

void HelpTreeRows::HitTest(const wxPoint& point, wxDataViewItem& item,
                           wxDataViewColumn*& column) const {
    item = wxDataViewItem();
    column = nullptr;
    int x = 0;
    int y = 0;
    gtk_tree_view_convert_widget_to_bin_window_coords(native_->view, point.x, point.y, &x, &y);
    GtkTreePath* found = nullptr;
    if (!gtk_tree_view_get_path_at_pos(native_->view, x, y, &found, nullptr, nullptr, nullptr))
        return;
    const TreePath path(found);
    GtkTreeIter iterator;
    if (!gtk_tree_model_get_iter(native_->model, &iterator, path.get())) return;
    item = wxDataViewItem(nodeAt(iterator));
    column = GetColumn(0);
}

wxRect HelpTreeRows::GetItemRect(const wxDataViewItem& item, const wxDataViewColumn*) const {
    if (!item.IsOk()) return {};
    GdkRectangle area;
    const TreePath path = native_->pathTo(*nodeOf(item));
    gtk_tree_view_get_cell_area(native_->view, path.get(),
                                gtk_tree_view_get_column(native_->view, 0), &area);
    int x = 0;
    int y = 0;
    gtk_tree_view_convert_bin_window_to_widget_coords(native_->view, area.x, area.y, &x, &y);
    if (area.height == 0 || y + area.height <= 0 || y >= GetClientSize().y) return {};
    return {x, y, area.width, area.height};
}

void HelpTreeRows::Collapse(const wxDataViewItem& item) {
    gtk_tree_view_collapse_row(native_->view, native_->pathTo(*nodeOf(item)).get());
}

bool HelpTreeRows::IsExpanded(const wxDataViewItem& item) const {
    return gtk_tree_view_row_expanded(native_->view, native_->pathTo(*nodeOf(item)).get()) != 0;
}

bool HelpTreeRows::HasFocus() const { return wxDataViewCtrl::HasFocus(); }

void HelpTreeRows::DoExpand(const wxDataViewItem& item, bool expandChildren) {
    dom::Node& row = *nodeOf(item);
    native_->expandAbove(row);
    gtk_tree_view_expand_row(native_->view, native_->pathTo(row).get(), expandChildren);
}

}  // namespace tavisk
