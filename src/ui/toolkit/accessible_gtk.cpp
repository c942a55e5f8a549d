#include <gtk/gtk.h>
#include <wx/window.h>

#include "ui/toolkit/accessible.h"

namespace tavisk {
namespace {

/// Controls of the toolkit are often several widgets within each other, and only the one that has
/// the focus is told: all that can have it get the name, besides the outermost.
void nameFocusable(GtkWidget* widget, gpointer name) {
    if (gtk_widget_get_can_focus(widget))
        atk_object_set_name(gtk_widget_get_accessible(widget), static_cast<const char*>(name));
    // The parts of a toolbar are controls with names of their own.
    if (GTK_IS_CONTAINER(widget) && !GTK_IS_TOOLBAR(widget))
        gtk_container_forall(GTK_CONTAINER(widget), nameFocusable, name);
}

}  // namespace

void setAccessibleName(wxWindow& control, const wxString& name) {
    GtkWidget* const outer = control.GetHandle();
    std::string utf8 = name.utf8_string();
    atk_object_set_name(gtk_widget_get_accessible(outer), utf8.c_str());
    nameFocusable(outer, utf8.data());
}

void setAccessiblePicture(wxWindow& control, const wxString& name) {
    setAccessibleName(control, name);
    atk_object_set_role(gtk_widget_get_accessible(control.GetHandle()), ATK_ROLE_IMAGE);
}

}  // namespace tavisk
