#include "ui/editor/treePlaces_gtk.h"

#include <algorithm>
#include <utility>

namespace tavisk {
namespace {

/// To the row below among those that are not hidden in a collapsed one; false after the last.
bool goDown(GtkTreeView* view, const TreePath& path, GtkTreeIter& row) {
    GtkTreeModel* const model = gtk_tree_view_get_model(view);
    GtkTreeIter next;
    if (gtk_tree_view_row_expanded(view, path.get()) &&
        gtk_tree_model_iter_children(model, &next, &row)) {
        gtk_tree_path_down(path.get());
        row = next;
        return true;
    }
    while (true) {
        next = row;
        if (gtk_tree_model_iter_next(model, &next)) {
            gtk_tree_path_next(path.get());
            row = next;
            return true;
        }
        if (!gtk_tree_model_iter_parent(model, &next, &row)) return false;
        gtk_tree_path_up(path.get());
        row = next;
    }
}

}  // namespace

TreePlaces::TreePlaces(GtkTreeView* view, GtkCellRenderer* cell)
    : view_(view), column_(gtk_tree_view_get_column(view, 0)), cell_(cell) {
    const auto onOtherRows = +[](TreePlaces* places) { places->settle(); };
    GtkAdjustment* const down = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
    g_signal_connect_swapped(down, "value-changed", G_CALLBACK(onOtherRows), this);
    for (const char* change : {"row-expanded", "size-allocate", "style-updated"})
        g_signal_connect_swapped(view, change, G_CALLBACK(onOtherRows), this);
}

TreePlaces::~TreePlaces() {
    g_signal_handlers_disconnect_by_data(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view_)),
                                         this);
    g_signal_handlers_disconnect_by_data(view_, this);
    if (frameCallback_ != 0) gtk_widget_remove_tick_callback(GTK_WIDGET(view_), frameCallback_);
}

void TreePlaces::settle() {
    constexpr int framesUntilPlaced = 3;
    framesLeft_ = framesUntilPlaced;
    otherRowsInView_ = true;
    if (frameCallback_ != 0) return;
    const auto everyFrame = +[](GtkWidget*, GdkFrameClock*, void* self) -> gboolean {
        auto* const places = static_cast<TreePlaces*>(self);
        places->onFrame();
        if (places->framesLeft_ > 0) return G_SOURCE_CONTINUE;
        places->frameCallback_ = 0;
        return G_SOURCE_REMOVE;
    };
    frameCallback_ = gtk_widget_add_tick_callback(GTK_WIDGET(view_), everyFrame, this, nullptr);
}

void TreePlaces::revealSelected() {
    toReveal_ = true;
    settle();
}

void TreePlaces::onFrame() {
    --framesLeft_;
    if (std::exchange(otherRowsInView_, false)) growColumn();
    if (toReveal_) toReveal_ = !isRevealed();
}

/// The column is as wide as the widest row that has been in view: measuring every row, as GTK would
/// do, takes seconds for a large document.
void TreePlaces::growColumn() {
    GtkTreePath* first = nullptr;
    GtkTreePath* last = nullptr;
    if (!gtk_tree_view_get_visible_range(view_, &first, &last)) return;
    const TreePath path(first);
    const TreePath end(last);
    GtkTreeIter row;
    if (!gtk_tree_model_get_iter(gtk_tree_view_get_model(view_), &row, first)) return;
    int width = gtk_tree_view_column_get_fixed_width(column_);
    do {
        width = std::max(width, rightOf(path, row));
    } while (goDown(view_, path, row) && gtk_tree_path_compare(path.get(), end.get()) <= 0);
    // Setting it would place all rows again, even to the same width.
    if (width > gtk_tree_view_column_get_fixed_width(column_))
        gtk_tree_view_column_set_fixed_width(column_, width);
}

/// True when the selected row is in view, as far as it fits.
bool TreePlaces::isRevealed() {
    GtkTreeModel* model = nullptr;
    GtkTreeIter selected;
    if (!gtk_tree_selection_get_selected(gtk_tree_view_get_selection(view_), &model, &selected))
        return true;
    const TreePath path(gtk_tree_model_get_path(model, &selected));
    GdkRectangle row;
    GdkRectangle seen;
    gtk_tree_view_get_background_area(view_, path.get(), column_, &row);
    gtk_tree_view_get_visible_rect(view_, &seen);
    const bool above = row.y < 0;
    const bool below = row.y + row.height > std::max(seen.height, row.height);
    if (above || below) gtk_tree_view_scroll_to_cell(view_, path.get(), nullptr, FALSE, 0, 0);

    GtkAdjustment* const across = gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(view_));
    int expander = 0;
    gtk_widget_style_get(GTK_WIDGET(view_), "expander-size", &expander, nullptr);
    const int left = std::max(leftOf(path) - 2 * expander, 0);
    const int right = std::min(rightOf(path, selected), left + seen.width);
    // Clamping the page would be animated, which a change of the layout meanwhile turns back.
    const double value = gtk_adjustment_get_value(across);
    const double furthest = std::max(value, right - gtk_adjustment_get_page_size(across));
    gtk_adjustment_set_value(across, std::min<double>(furthest, left));
    return !above && !below && right <= gtk_adjustment_get_upper(across);
}

int TreePlaces::leftOf(const TreePath& path) const {
    GdkRectangle area;
    gtk_tree_view_get_cell_area(view_, path.get(), column_, &area);
    return area.x;
}

int TreePlaces::rightOf(const TreePath& path, GtkTreeIter row) const {
    gtk_tree_view_column_cell_set_cell_data(column_, gtk_tree_view_get_model(view_), &row, FALSE,
                                            FALSE);
    int width = 0;
    gtk_cell_renderer_get_preferred_width(cell_, GTK_WIDGET(view_), nullptr, &width);
    return leftOf(path) + width;
}

}  // namespace tavisk
