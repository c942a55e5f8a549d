// The places of a tree's rows: how wide the tree is, and what of it is in view.
#pragma once

#include <gtk/gtk.h>
#include <memory>

namespace tavisk {

struct FreePath {
    void operator()(GtkTreePath* path) const { gtk_tree_path_free(path); }
};
using TreePath = std::unique_ptr<GtkTreePath, FreePath>;

/// For a view whose only column has a fixed width, so that GTK need not measure all rows. What
/// depends on places waits for the next frames, for only then GTK knows where rows are.
class TreePlaces {
public:
    TreePlaces(GtkTreeView* view, GtkCellRenderer* cell);
    TreePlaces(const TreePlaces&) = delete;
    TreePlaces& operator=(const TreePlaces&) = delete;
    ~TreePlaces();

    /// Other rows may be in view now; those that are too wide get room.
    void settle();
    /// Brings the selected row into view, its text from the side, too.
    void revealSelected();

private:
    void onFrame();
    void growColumn();
    bool isRevealed();
    int leftOf(const TreePath& path) const;
    int rightOf(const TreePath& path, GtkTreeIter row) const;

    GtkTreeView* view_;
    GtkTreeViewColumn* column_;
    GtkCellRenderer* cell_;
    bool otherRowsInView_ = false;
    bool toReveal_ = false;
    guint frameCallback_ = 0;
    int framesLeft_ = 0;
};

}  // namespace tavisk
