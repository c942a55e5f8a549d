#include <gtk/gtk.h>
#include <map>

#include "ui/editor/helpTreeModel_gtk.h"
#include "ui/support/treeWindow.h"

namespace tavisk::test {
namespace {

GtkTreeView* viewOf(const HelpTree& tree) {
    return GTK_TREE_VIEW(const_cast<HelpTree&>(tree).GtkGetTreeView());
}

}  // namespace

std::string shownRows(HelpTree& tree) {
    GtkTreeView* const view = GTK_TREE_VIEW(tree.GtkGetTreeView());
    GtkTreeModel* const model = gtk_tree_view_get_model(view);
    GtkAdjustment* const down = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
    const double scrolled = gtk_adjustment_get_value(down);
    gtk_adjustment_set_value(down, 0);  // above the upper edge, the view finds no rows
    GdkRectangle row;
    GtkTreePath* path = gtk_tree_path_new_first();
    gtk_tree_view_get_background_area(view, path, gtk_tree_view_get_column(view, 0), &row);
    gtk_tree_path_free(path);

    std::string lines;
    for (int y = row.height / 2;
         gtk_tree_view_get_path_at_pos(view, 0, y, &path, nullptr, nullptr, nullptr);
         y += row.height) {
        GtkTreeIter iterator;
        char* name = nullptr;
        if (gtk_tree_model_get_iter(model, &iterator, path)) {
            gtk_tree_model_get(model, &iterator, 0, &name, -1);
            lines += rowLine(static_cast<std::size_t>(gtk_tree_path_get_depth(path)) - 1, name,
                             gtk_tree_model_iter_has_child(model, &iterator),
                             gtk_tree_view_row_expanded(view, path));
        } else {
            lines += "a row of the view that is none of the document\n";
        }
        g_free(name);
        gtk_tree_path_free(path);
    }
    gtk_adjustment_set_value(down, scrolled);
    return lines;
}

std::vector<ModelRow> modelRows(const HelpTree& tree) {
    std::vector<ModelRow> rows;
    GtkTreeModel* const model = gtk_tree_view_get_model(viewOf(tree));
    if (!model) return rows;
    const auto add = +[](GtkTreeModel* from, GtkTreePath* path, GtkTreeIter* row, void* to) {
        char* name = nullptr;
        gtk_tree_model_get(from, row, 0, &name, -1);
        static_cast<std::vector<ModelRow>*>(to)->push_back(
            {nodeAt(*row), static_cast<std::size_t>(gtk_tree_path_get_depth(path)) - 1, name});
        g_free(name);
        return FALSE;
    };
    gtk_tree_model_foreach(model, add, &rows);
    return rows;
}

std::string toldRows(const HelpTree& tree) {
    AtkObject* const table = gtk_widget_get_accessible(GTK_WIDGET(viewOf(tree)));
    std::string names = atk_object_get_role(table) == ATK_ROLE_TREE_TABLE ? "tree: " : "no tree: ";
    for (int i = 0; i < atk_table_get_n_rows(ATK_TABLE(table)); ++i) {
        AtkObject* const cell = atk_table_ref_at(ATK_TABLE(table), i, 0);
        names += std::string(atk_object_get_name(cell)) + "|";
        g_object_unref(cell);
    }
    return names;
}

int hiddenWidth(const HelpTree& tree) {
    GtkAdjustment* const across = gtk_scrollable_get_hadjustment(GTK_SCROLLABLE(viewOf(tree)));
    return static_cast<int>(gtk_adjustment_get_upper(across) -
                            gtk_adjustment_get_page_size(across));
}

struct ToolkitComplaints::Native {
    Native() {
        for (auto& [domain, handler] : handlers)
            handler = g_log_set_handler(domain, complaints, fail, nullptr);
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() {
        for (const auto& [domain, handler] : handlers)
            g_log_remove_handler(domain, handler);
    }

    static constexpr auto complaints =
        static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL);

    static void fail(const char* domain, GLogLevelFlags, const char* text, void*) {
        ADD_FAILURE() << domain << ": " << text;
    }

    std::map<const char*, guint> handlers{{"Gtk", 0}, {"GLib", 0}, {"GLib-GObject", 0}};
};

ToolkitComplaints::ToolkitComplaints() : native_(std::make_unique<Native>()) {}
ToolkitComplaints::~ToolkitComplaints() = default;

}  // namespace tavisk::test
