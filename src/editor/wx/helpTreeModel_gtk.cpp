#include "editor/wx/helpTreeModel_gtk.h"

#include "editor/wx/helpTreeRows.h"

namespace tavisk {
namespace {

struct HelpTreeModel {
    GObject base;
    dom::Node* const* top;
};

// Iterators are nodes; they need no number that tells models apart.
constexpr gint stamp = 1;

dom::Node* topOf(GtkTreeModel* model) {
    dom::Node* const* const top = reinterpret_cast<HelpTreeModel*>(model)->top;
    return top ? *top : nullptr;
}

gboolean pointAt(GtkTreeIter* iterator, dom::Node* node) {
    iterator->stamp = node ? stamp : 0;
    iterator->user_data = node;
    return node != nullptr;
}

dom::Node* childAt(dom::Node* parent, gint index) {
    dom::Node* child = parent && index >= 0 ? parent->firstChild() : nullptr;
    while (child && index-- > 0)
        child = child->next();
    return child;
}

GtkTreeModelFlags get_flags(GtkTreeModel*) { return GTK_TREE_MODEL_ITERS_PERSIST; }

gint get_n_columns(GtkTreeModel*) { return 1; }

GType get_column_type(GtkTreeModel*, gint) { return G_TYPE_STRING; }

gboolean get_iter(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreePath* path) {
    const gint depth = gtk_tree_path_get_depth(path);
    const gint* const indices = gtk_tree_path_get_indices(path);
    dom::Node* node = depth > 0 && indices[0] == 0 ? topOf(model) : nullptr;
    for (gint level = 1; level < depth; ++level)
        node = childAt(node, indices[level]);
    return pointAt(iterator, node);
}

/// Empty for a node that is no row any more.
GtkTreePath* get_path(GtkTreeModel* model, GtkTreeIter* iterator) {
    const dom::Node* const top = topOf(model);
    GtkTreePath* path = gtk_tree_path_new();
    const dom::Node* node = nodeAt(*iterator);
    for (; node && node != top; node = node->parent())
        gtk_tree_path_prepend_index(path, static_cast<gint>(indexAmongSiblings(*node)));
    if (node) {
        gtk_tree_path_prepend_index(path, 0);
    } else {
        gtk_tree_path_free(path);
        path = gtk_tree_path_new();
    }
    return path;
}

void get_value(GtkTreeModel*, GtkTreeIter* iterator, gint, GValue* value) {
    // The shown name, made without an allocation that could throw through GTK.
    const dom::Node* const node = nodeAt(*iterator);
    const std::string_view name = node ? node->baseName() : std::string_view();
    gchar* const text = name.empty() ? g_strdup("") : g_strndup(name.data(), name.size());
    g_value_init(value, G_TYPE_STRING);
    g_value_take_string(value, g_strdelimit(text, "_", ' '));
}

gboolean iter_next(GtkTreeModel* model, GtkTreeIter* iterator) {
    dom::Node* const node = nodeAt(*iterator);
    return pointAt(iterator, node && node != topOf(model) ? node->next() : nullptr);
}

gboolean iter_children(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreeIter* parent) {
    return pointAt(iterator, parent ? childAt(nodeAt(*parent), 0) : topOf(model));
}

gboolean iter_has_child(GtkTreeModel*, GtkTreeIter* iterator) {
    return childAt(nodeAt(*iterator), 0) != nullptr;
}

gint iter_n_children(GtkTreeModel* model, GtkTreeIter* iterator) {
    if (!iterator) return topOf(model) ? 1 : 0;
    const dom::Node* const node = nodeAt(*iterator);
    return node ? static_cast<gint>(node->childCount()) : 0;
}

gboolean iter_nth_child(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreeIter* parent, gint n) {
    if (!parent) return pointAt(iterator, n == 0 ? topOf(model) : nullptr);
    return pointAt(iterator, childAt(nodeAt(*parent), n));
}

gboolean iter_parent(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreeIter* child) {
    dom::Node* const node = nodeAt(*child);
    return pointAt(iterator, node && node != topOf(model) ? node->parent() : nullptr);
}

void fillInterface(gpointer functions, gpointer) {
    auto* const model = static_cast<GtkTreeModelIface*>(functions);
    model->get_flags = get_flags;
    model->get_n_columns = get_n_columns;
    model->get_column_type = get_column_type;
    model->get_iter = get_iter;
    model->get_path = get_path;
    model->get_value = get_value;
    model->iter_next = iter_next;
    model->iter_children = iter_children;
    model->iter_has_child = iter_has_child;
    model->iter_n_children = iter_n_children;
    model->iter_nth_child = iter_nth_child;
    model->iter_parent = iter_parent;
}

GType registerType() {
    GTypeInfo info{};
    info.class_size = sizeof(GObjectClass);
    info.instance_size = sizeof(HelpTreeModel);
    const GType type = g_type_register_static(G_TYPE_OBJECT, "TaviskHelpTreeModel", &info, {});
    const GInterfaceInfo tree{fillInterface, nullptr, nullptr};
    g_type_add_interface_static(type, GTK_TYPE_TREE_MODEL, &tree);
    return type;
}

}  // namespace

GtkTreeModel* newHelpTreeModel(dom::Node* const& top) {
    static const GType type = registerType();
    auto* const model = static_cast<HelpTreeModel*>(g_object_new(type, nullptr));
    model->top = &top;
    return reinterpret_cast<GtkTreeModel*>(model);
}

void clearHelpTreeModel(GtkTreeModel* model) noexcept {
    reinterpret_cast<HelpTreeModel*>(model)->top = nullptr;
}

GtkTreeIter iteratorAt(dom::Node& node) noexcept {
    GtkTreeIter iterator{};
    pointAt(&iterator, &node);
    return iterator;
}

dom::Node* nodeAt(const GtkTreeIter& iterator) noexcept {
    return static_cast<dom::Node*>(iterator.user_data);
}

}  // namespace tavisk
