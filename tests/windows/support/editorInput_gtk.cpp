#include <gtk/gtk.h>

#include "windows/support/editorInput.h"

namespace tavisk::test {
namespace {

const wxWindow* withHandle(const wxWindow& window, const GtkWidget* widget) {
    if (window.GetHandle() == widget) return &window;
    for (const wxWindow* child : window.GetChildren()) {
        if (const wxWindow* const found = withHandle(*child, widget)) return found;
    }
    return nullptr;
}

}  // namespace

std::string focusedControl(const wxWindow& window) {
    for (GtkWidget* widget = gtk_window_get_focus(GTK_WINDOW(window.GetHandle())); widget;
         widget = gtk_widget_get_parent(widget)) {
        if (const wxWindow* const control = withHandle(window, widget))
            return utf8Of(control->GetName());
    }
    return "";
}

}  // namespace tavisk::test
