#include <gtk/gtk.h>

#include "ui/support/drawing.h"
#include "ui/support/pump.h"

namespace tavisk::test {

wxImage imageOf(const wxWindow& window) {
    GtkWidget* const widget = window.GetHandle();
    pumpUntil([&] {
        return wxSize(gtk_widget_get_allocated_width(widget),
                      gtk_widget_get_allocated_height(widget)) == window.GetSize();
    });
    const wxSize size = window.GetClientSize();
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.x, size.y);
    cairo_t* const cairo = cairo_create(surface);
    gtk_widget_draw(widget, cairo);
    cairo_destroy(cairo);
    cairo_surface_flush(surface);

    wxImage image(size);
    const unsigned char* const data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < size.y; ++y) {
        const auto* const row = reinterpret_cast<const guint32*>(data + y * stride);
        for (int x = 0; x < size.x; ++x)
            image.SetRGB(x, y, row[x] >> 16U & 0xFFU, row[x] >> 8U & 0xFFU, row[x] & 0xFFU);
    }
    cairo_surface_destroy(surface);
    return image;
}

}  // namespace tavisk::test
