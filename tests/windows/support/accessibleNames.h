// What a screen reader is told about a control.
#pragma once

#include <gtk/gtk.h>
#include <string>
#include <wx/window.h>

#include "windows/support/pump.h"

namespace tavisk::test {

/// Name of a widget's accessible object.
inline std::string accessibleName(GtkWidget* widget) {
    const char* const name = atk_object_get_name(gtk_widget_get_accessible(widget));
    return name ? name : "";
}

inline std::string accessibleName(const wxWindow& control) {
    return accessibleName(control.GetHandle());
}

/// The widget that has the focus when the control has it.
inline GtkWidget* focusWidget(wxWindow& control) {
    GtkWindow* const window = GTK_WINDOW(gtk_widget_get_toplevel(control.GetHandle()));
    control.SetFocus();
    pumpUntil([&] {
        GtkWidget* const focus = gtk_window_get_focus(window);
        return focus &&
               (focus == control.GetHandle() || gtk_widget_is_ancestor(focus, control.GetHandle()));
    });
    return gtk_window_get_focus(window);
}

}  // namespace tavisk::test
