#include <gtk/gtk.h>
#include <wx/window.h>

#include "ui/support/closing.h"

namespace tavisk::test {

void closeFromOutside(const wxWindow& window) {
    GdkEvent* const event = gdk_event_new(GDK_DELETE);
    event->any.window =
        GDK_WINDOW(g_object_ref(gtk_widget_get_window(GTK_WIDGET(window.GetHandle()))));
    event->any.send_event = TRUE;
    gtk_main_do_event(event);
    gdk_event_free(event);
}

}  // namespace tavisk::test
