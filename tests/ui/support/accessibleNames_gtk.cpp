#include <gtk/gtk.h>

#include "ui/support/accessibleNames.h"
#include "ui/support/pump.h"

namespace tavisk::test {
namespace {

std::string nameOf(GtkWidget* widget) {
    const char* const name = atk_object_get_name(gtk_widget_get_accessible(widget));
    return name ? name : "";
}

void collectButtons(GtkWidget* widget, std::vector<std::string>& names) {
    if (GTK_IS_BUTTON(widget) && gtk_widget_get_mapped(widget)) names.push_back(nameOf(widget));
    if (!GTK_IS_CONTAINER(widget)) return;
    GList* const children = gtk_container_get_children(GTK_CONTAINER(widget));
    for (const GList* child = children; child; child = child->next)
        collectButtons(static_cast<GtkWidget*>(child->data), names);
    g_list_free(children);
}

}  // namespace

std::string accessibleName(const wxWindow& control) { return nameOf(control.GetHandle()); }

std::string focusedName(wxWindow& control) {
    GtkWidget* const outer = control.GetHandle();
    GtkWindow* const window = GTK_WINDOW(gtk_widget_get_toplevel(outer));
    control.SetFocus();
    const bool has = pumpUntil([&] {
        GtkWidget* const focus = gtk_window_get_focus(window);
        return focus && (focus == outer || gtk_widget_is_ancestor(focus, outer));
    });
    return has ? nameOf(gtk_window_get_focus(window)) : "(no focus)";
}

std::vector<std::string> toolNames(const wxToolBar& toolbar) {
    std::vector<std::string> names;
    collectButtons(toolbar.GetHandle(), names);
    return names;
}

bool isToldAsPicture(const wxWindow& control) {
    return atk_object_get_role(gtk_widget_get_accessible(control.GetHandle())) == ATK_ROLE_IMAGE;
}

}  // namespace tavisk::test
