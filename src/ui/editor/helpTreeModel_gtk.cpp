#include "ui/editor/helpTreeModel_gtk.h"

namespace tavisk {
namespace {

struct HelpTreeModel {
    GObject base;
    dom::Node* const* top;
    // GTK asks for the place of every row that it paints, and for rows near each other. On a level
    // of thousands, counting from its start each time would make painting slow.
    dom::Node* known;
    gint knownIndex;
};

// Iterators are nodes; they need no number that tells models apart.
constexpr gint stamp = 1;

HelpTreeModel& modelOf(GtkTreeModel* model) { return *reinterpret_cast<HelpTreeModel*>(model); }

dom::Node* topOf(GtkTreeModel* model) {
    dom::Node* const* const top = modelOf(model).top;
    return top ? *top : nullptr;
}

gboolean pointAt(GtkTreeIter* iterator, dom::Node* node) {
    iterator->stamp = node ? stamp : 0;
    iterator->user_data = node;
    return node != nullptr;
}

/// Only what took a while: the short levels above a long one would replace it.
void remember(HelpTreeModel& model, dom::Node& node, gint index, gint steps) {
    constexpr gint few = 32;
    if (steps <= few) return;
    model.known = &node;
    model.knownIndex = index;
}

/// Searches in both directions, for the known row and for the start of the level.
gint indexOf(HelpTreeModel& model, dom::Node& node) {
    gint steps = 0;
    const dom::Node* before = &node;
    const dom::Node* after = &node;
    while (before != model.known && after != model.known && before->previous()) {
        ++steps;
        before = before->previous();
        if (after->next()) after = after->next();
    }
    const gint index = before == model.known  ? model.knownIndex + steps
                       : after == model.known ? model.knownIndex - steps
                                              : steps;
    remember(model, node, index, steps);
    return index;
}

dom::Node* childAt(HelpTreeModel& model, dom::Node* parent, gint index) {
    if (!parent || index < 0) return nullptr;
    dom::Node* child = parent->firstChild();
    gint at = 0;
    if (model.known && model.known->parent() == parent && model.knownIndex / 2 < index) {
        child = model.known;
        at = model.knownIndex;
    }
    const gint steps = index > at ? index - at : at - index;
    for (; child && at < index; ++at)
        child = child->next();
    for (; child && at > index; --at)
        child = child->previous();
    if (child) remember(model, *child, index, steps);
    return child;
}

dom::Node* firstChildOf(const GtkTreeIter& iterator) {
    const dom::Node* const node = nodeAt(iterator);
    return node ? node->firstChild() : nullptr;
}

GtkTreeModelFlags get_flags(GtkTreeModel*) { return GTK_TREE_MODEL_ITERS_PERSIST; }

gint get_n_columns(GtkTreeModel*) { return 1; }

GType get_column_type(GtkTreeModel*, gint) { return G_TYPE_STRING; }

gboolean get_iter(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreePath* path) {
    const gint depth = gtk_tree_path_get_depth(path);
    const gint* const indices = gtk_tree_path_get_indices(path);
    dom::Node* node = depth > 0 && indices[0] == 0 ? topOf(model) : nullptr;
    for (gint level = 1; level < depth; ++level)
        node = childAt(modelOf(model), node, indices[level]);
    return pointAt(iterator, node);
}

/// Empty for a node that is no row any more.
GtkTreePath* get_path(GtkTreeModel* model, GtkTreeIter* iterator) {
    const dom::Node* const top = topOf(model);
    GtkTreePath* path = gtk_tree_path_new();
    dom::Node* node = nodeAt(*iterator);
    for (; node && node != top; node = node->parent())
        gtk_tree_path_prepend_index(path, indexOf(modelOf(model), *node));
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
    return pointAt(iterator, parent ? firstChildOf(*parent) : topOf(model));
}

gboolean iter_has_child(GtkTreeModel*, GtkTreeIter* iterator) {
    return firstChildOf(*iterator) != nullptr;
}

gint iter_n_children(GtkTreeModel* model, GtkTreeIter* iterator) {
    if (!iterator) return topOf(model) ? 1 : 0;
    const dom::Node* const node = nodeAt(*iterator);
    return node ? static_cast<gint>(node->childCount()) : 0;
}

gboolean iter_nth_child(GtkTreeModel* model, GtkTreeIter* iterator, GtkTreeIter* parent, gint n) {
    if (!parent) return pointAt(iterator, n == 0 ? topOf(model) : nullptr);
    return pointAt(iterator, childAt(modelOf(model), nodeAt(*parent), n));
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
    modelOf(model).top = nullptr;
    forgetPlaces(model);
}

void forgetPlaces(GtkTreeModel* model) noexcept { modelOf(model).known = nullptr; }

GtkTreeIter iteratorAt(dom::Node& node) noexcept {
    GtkTreeIter iterator{};
    pointAt(&iterator, &node);
    return iterator;
}

dom::Node* nodeAt(const GtkTreeIter& iterator) noexcept {
    return static_cast<dom::Node*>(iterator.user_data);
}

}  // namespace tavisk
