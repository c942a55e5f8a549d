#include <gtk/gtk.h>
#include <memory>
#include <wx/choice.h>

#include "ui/support/focus.h"
#include "ui/toolkit/strings.h"

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

bool dialogTakesKeys(const wxWindow& window) {
    const std::unique_ptr<GList, decltype(&g_list_free)> windows(gtk_window_list_toplevels(),
                                                                 g_list_free);
    for (const GList* at = windows.get(); at; at = at->next) {
        if (at->data != window.GetHandle() && gtk_window_is_active(GTK_WINDOW(at->data)))
            return true;
    }
    return false;
}

bool isOpen(const wxChoice& list) {
    gboolean shown = FALSE;
    g_object_get(list.GetHandle(), "popup-shown", &shown, nullptr);
    return shown;
}

}  // namespace tavisk::test
