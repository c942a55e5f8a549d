#include <gtk/gtk.h>
#include <wx/window.h>

#include "ui/support/sizeOnScreen.h"

namespace tavisk::test {

bool hasSizeOnScreen(const wxWindow& window, wxSize size) {
    GdkWindow* const inside = gtk_widget_get_window(GTK_WIDGET(window.GetHandle()));
    GdkRectangle outside;
    gdk_window_get_frame_extents(inside, &outside);
    if (wxSize(outside.width, outside.height) != size) return false;
    // What the display has now, and what GTK has heard of it.
    int width = 0;
    int height = 0;
    gdk_window_get_geometry(inside, nullptr, nullptr, &width, &height);
    return gdk_window_get_width(inside) == width && gdk_window_get_height(inside) == height;
}

}  // namespace tavisk::test
