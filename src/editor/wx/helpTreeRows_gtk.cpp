#include <algorithm>
#include <gtk/gtk.h>
#include <numeric>
#include <utility>
#include <vector>

#include "editor/wx/helpTreeModel_gtk.h"
#include "editor/wx/helpTreeRows.h"

namespace tavisk {
namespace {

struct FreePath {
    void operator()(GtkTreePath* path) const { gtk_tree_path_free(path); }
};
using Path = std::unique_ptr<GtkTreePath, FreePath>;

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

std::size_t indexAmongSiblings(const dom::Node& node) noexcept {
    std::size_t index = 0;
    for (const dom::Node* before = node.previous(); before; before = before->previous())
        ++index;
    return index;
}

struct HelpTreeRows::Native {
    GtkTreeView* view = nullptr;
    GtkTreeViewColumn* column = nullptr;
    GtkCellRenderer* cell = nullptr;
    GtkTreeModel* model = nullptr;
    dom::Node* const* top = nullptr;
    bool otherRowsInView = false;
    bool revealSelected = false;
    guint frameCallback = 0;
    int framesLeft = 0;

    void connect();
    void disconnect();
    Path pathTo(dom::Node& row) const;
    Path selectedPath() const;
    void select(dom::Node& row);
    void toldOfChildren(dom::Node& row) const;
    void nextShown(Path& path) const;
    int leftOf(const Path& path) const;
    int rightOf(const Path& path) const;
    void settle();
    void onFrame();
    void growColumn();
    bool reveal() const;
};

void HelpTreeRows::Native::connect() {
    const auto onOtherRows = +[](Native* native) { native->settle(); };
    GtkAdjustment* const down = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
    g_signal_connect_swapped(down, "value-changed", G_CALLBACK(onOtherRows), this);
    for (const char* change : {"row-expanded", "size-allocate", "style-updated"})
        g_signal_connect_swapped(view, change, G_CALLBACK(onOtherRows), this);

    const auto onActivated = +[](GtkTreeView* tree, GtkTreePath* path) {
        if (!gtk_tree_view_collapse_row(tree, path)) gtk_tree_view_expand_row(tree, path, FALSE);
    };
    g_signal_connect(view, "row-activated", G_CALLBACK(onActivated), this);
}

void HelpTreeRows::Native::disconnect() {
    g_signal_handlers_disconnect_by_data(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view)),
                                         this);
    g_signal_handlers_disconnect_by_data(view, this);
    if (frameCallback != 0) gtk_widget_remove_tick_callback(GTK_WIDGET(view), frameCallback);
}

Path HelpTreeRows::Native::pathTo(dom::Node& row) const {
    GtkTreeIter iterator = iteratorAt(row);
    return Path(model ? gtk_tree_model_get_path(model, &iterator) : gtk_tree_path_new());
}

Path HelpTreeRows::Native::selectedPath() const {
    GtkTreeIter iterator;
    if (!gtk_tree_selection_get_selected(gtk_tree_view_get_selection(view), nullptr, &iterator))
        return {};
    return Path(gtk_tree_model_get_path(model, &iterator));
}

void HelpTreeRows::Native::select(dom::Node& row) {
    const Path path = pathTo(row);
    if (gtk_tree_path_get_depth(path.get()) > 1) {
        const Path above = pathTo(*row.parent());
        gtk_tree_view_expand_to_path(view, above.get());
    }
    gtk_tree_view_set_cursor(view, path.get(), nullptr, FALSE);
    gtk_tree_view_scroll_to_cell(view, path.get(), nullptr, FALSE, 0, 0);
    revealSelected = true;
    settle();
}

/// A row that gets its first child, or loses its last one, shows that.
void HelpTreeRows::Native::toldOfChildren(dom::Node& row) const {
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_has_child_toggled(model, pathTo(row).get(), &iterator);
}

/// To the row below; no path after the last one.
void HelpTreeRows::Native::nextShown(Path& path) const {
    if (gtk_tree_view_row_expanded(view, path.get())) {
        gtk_tree_path_down(path.get());
        return;
    }
    GtkTreeIter row;
    gtk_tree_path_next(path.get());
    while (!gtk_tree_model_get_iter(model, &row, path.get())) {
        gtk_tree_path_up(path.get());
        if (gtk_tree_path_get_depth(path.get()) == 0) {
            path.reset();
            return;
        }
        gtk_tree_path_next(path.get());
    }
}

int HelpTreeRows::Native::leftOf(const Path& path) const {
    GdkRectangle area;
    gtk_tree_view_get_cell_area(view, path.get(), column, &area);
    return area.x;
}

int HelpTreeRows::Native::rightOf(const Path& path) const {
    GtkTreeIter row;
    if (!gtk_tree_model_get_iter(model, &row, path.get())) return 0;
    gtk_tree_view_column_cell_set_cell_data(column, model, &row, FALSE, FALSE);
    int width = 0;
    gtk_cell_renderer_get_preferred_width(cell, GTK_WIDGET(view), nullptr, &width);
    return leftOf(path) + width;
}

/// What depends on places waits for them: only with the next frames, GTK knows where rows are.
void HelpTreeRows::Native::settle() {
    constexpr int framesUntilPlaced = 3;
    framesLeft = framesUntilPlaced;
    otherRowsInView = true;
    if (frameCallback != 0) return;
    const auto everyFrame = +[](GtkWidget*, GdkFrameClock*, void* self) -> gboolean {
        auto* const native = static_cast<Native*>(self);
        native->onFrame();
        if (native->framesLeft > 0) return G_SOURCE_CONTINUE;
        native->frameCallback = 0;
        return G_SOURCE_REMOVE;
    };
    frameCallback = gtk_widget_add_tick_callback(GTK_WIDGET(view), everyFrame, this, nullptr);
}

void HelpTreeRows::Native::onFrame() {
    --framesLeft;
    if (!model) return;
    if (std::exchange(otherRowsInView, false)) growColumn();
    if (revealSelected) revealSelected = !reveal();
}

/// The column is as wide as the widest row that has been in view: measuring every row, as GTK would
/// do, takes seconds for a large document.
void HelpTreeRows::Native::growColumn() {
    GtkTreePath* first = nullptr;
    GtkTreePath* last = nullptr;
    if (!gtk_tree_view_get_visible_range(view, &first, &last)) return;
    Path path(first);
    const Path end(last);
    int width = gtk_tree_view_column_get_fixed_width(column);
    while (path && gtk_tree_path_compare(path.get(), end.get()) <= 0) {
        width = std::max(width, rightOf(path));
        nextShown(path);
    }
    // Setting it would place all rows again, even to the same width.
    if (width > gtk_tree_view_column_get_fixed_width(column))
        gtk_tree_view_column_set_fixed_width(column, width);
}

/// Returns whether the selected row is in view, as far as it fits.
bool HelpTreeRows::Native::reveal() const {
    const Path path = selectedPath();
    if (!path) return true;
    GdkRectangle row;
    GdkRectangle seen;
    gtk_tree_view_get_background_area(view, path.get(), column, &row);
    gtk_tree_view_get_visible_rect(view, &seen);
    const bool above = row.y < 0;
    const bool below = row.y + row.height > std::max(seen.height, row.height);
    if (above || below) gtk_tree_view_scroll_to_cell(view, path.get(), nullptr, FALSE, 0, 0);

    GtkAdjustment* const across = gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(view));
    int expander = 0;
    gtk_widget_style_get(GTK_WIDGET(view), "expander-size", &expander, nullptr);
    const int left = std::max(leftOf(path) - 2 * expander, 0);
    const int right = std::min(rightOf(path), left + seen.width);
    // Clamping the page would be animated, which a change of the layout meanwhile turns back.
    const double value = gtk_adjustment_get_value(across);
    const double furthest = std::max(value, right - gtk_adjustment_get_page_size(across));
    gtk_adjustment_set_value(across, std::min<double>(furthest, left));
    return !above && !below && right <= gtk_adjustment_get_upper(across);
}

HelpTreeRows::HelpTreeRows(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_NO_HEADER),
      native_(std::make_unique<Native>()) {
    const wxObjectDataPtr<NoRows> none(new NoRows);
    AssociateModel(none.get());
    // Of a given width, so that all rows are known to be equally high without measuring them.
    constexpr int narrow = 1;
    wxDataViewColumn* const column =
        AppendTextColumn(wxString(), 0, wxDATAVIEW_CELL_INERT, narrow, wxALIGN_LEFT, 0);
    column->GetRenderer()->DisableEllipsize();

    native_->view = GTK_TREE_VIEW(GtkGetTreeView());
    native_->column = GTK_TREE_VIEW_COLUMN(column->GetGtkHandle());
    native_->cell = column->GetRenderer()->GetGtkHandle();
    gtk_tree_view_set_model(native_->view, nullptr);
    gtk_tree_view_column_set_cell_data_func(native_->column, native_->cell, nullptr, nullptr,
                                            nullptr);
    gtk_tree_view_column_add_attribute(native_->column, native_->cell, "text", 0);
    // Here the user cannot take the selection away.
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(native_->view), GTK_SELECTION_BROWSE);
    native_->connect();
}

HelpTreeRows::~HelpTreeRows() {
    hideRows();
    native_->disconnect();
}

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
    native_->revealSelected = false;
}

bool HelpTreeRows::isRow(const dom::Node* node) const noexcept {
    if (!native_->top) return false;
    while (node && node != *native_->top)
        node = node->parent();
    return node != nullptr;
}

void HelpTreeRows::rowInserted(dom::Node& row) {
    const SelectionEventsSuppressor quiet(this);
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_inserted(native_->model, native_->pathTo(row).get(), &iterator);
    if (row.hasChildren()) native_->toldOfChildren(row);
    if (!row.previous() && !row.next()) native_->toldOfChildren(*row.parent());
    native_->settle();
}

void HelpTreeRows::rowRemoved(dom::Node& parent, std::size_t index) {
    const SelectionEventsSuppressor quiet(this);
    const Path path = native_->pathTo(parent);
    gtk_tree_path_append_index(path.get(), static_cast<gint>(index));
    gtk_tree_model_row_deleted(native_->model, path.get());
    if (!parent.hasChildren()) native_->toldOfChildren(parent);
    native_->settle();
}

void HelpTreeRows::rowReplaced(dom::Node& row) {
    const SelectionEventsSuppressor quiet(this);
    GtkTreeIter iterator = iteratorAt(row);
    gtk_tree_model_row_changed(native_->model, native_->pathTo(row).get(), &iterator);
    native_->settle();
}

void HelpTreeRows::rowMoved(dom::Node& row, std::size_t from) {
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
    native_->settle();
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
    const Path top(gtk_tree_path_new_first());
    gtk_tree_view_set_cursor(native_->view, top.get(), nullptr, FALSE);
    gtk_tree_selection_unselect_all(gtk_tree_view_get_selection(native_->view));
}

void HelpTreeRows::Select(const wxDataViewItem& item) { select(*nodeOf(item)); }

void HelpTreeRows::EnsureVisible(const wxDataViewItem& item, const wxDataViewColumn*) {
    const Path path = native_->pathTo(*nodeOf(item));
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
    const Path path(found);
    GtkTreeIter iterator;
    if (!gtk_tree_model_get_iter(native_->model, &iterator, path.get())) return;
    item = wxDataViewItem(nodeAt(iterator));
    column = GetColumn(0);
}

wxRect HelpTreeRows::GetItemRect(const wxDataViewItem& item, const wxDataViewColumn*) const {
    if (!item.IsOk()) return {};
    GdkRectangle area;
    const Path path = native_->pathTo(*nodeOf(item));
    gtk_tree_view_get_cell_area(native_->view, path.get(), native_->column, &area);
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

void HelpTreeRows::DoExpand(const wxDataViewItem& item, bool expandChildren) {
    dom::Node& row = *nodeOf(item);
    const Path path = native_->pathTo(row);
    if (gtk_tree_path_get_depth(path.get()) > 1)
        gtk_tree_view_expand_to_path(native_->view, native_->pathTo(*row.parent()).get());
    gtk_tree_view_expand_row(native_->view, path.get(), expandChildren ? TRUE : FALSE);
}

}  // namespace tavisk
