#include <algorithm>
#include <cstring>
#include <gtk/gtk.h>

#include "ui/support/answerWindow.h"

namespace tavisk::test {
namespace {

GtkTextView* viewOf(const AnswerBox& box) {
    return GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(box.GetHandle())));
}

char letterOf(const GdkRGBA& colour) {
    const auto is = [&](double red, double green, double blue) {
        const GdkRGBA other{red, green, blue, 1.0};
        return gdk_rgba_equal(&colour, &other) != FALSE;
    };
    constexpr double half = 128.0 / 255.0;
    if (is(0, 0, 0)) return '.';
    if (is(0, 0, 1)) return 'b';
    if (is(0, half, 0)) return 'g';
    if (is(half, half, 0)) return 'o';
    return '?';
}

}  // namespace

std::string shownColours(const AnswerBox& box, std::size_t from, std::size_t to) {
    GtkTextView* const view = viewOf(box);
    GtkWidget* const widget = GTK_WIDGET(view);
    GdkRGBA untagged;
    gtk_style_context_get_color(gtk_widget_get_style_context(widget),
                                gtk_widget_get_state_flags(widget), &untagged);
    std::string letters;
    GtkTextIter at;
    gtk_text_buffer_get_iter_at_offset(gtk_text_view_get_buffer(view), &at, static_cast<int>(from));
    for (; !gtk_text_iter_is_end(&at) && from + letters.size() < to;
         gtk_text_iter_forward_char(&at)) {
        GtkTextAttributes* const look = gtk_text_view_get_default_attributes(view);
        gtk_text_iter_get_attributes(&at, look);
        const GdkRGBA* const tagged = look->appearance.rgba[1];
        letters += letterOf(tagged ? *tagged : untagged);
        gtk_text_attributes_unref(look);
    }
    return letters;
}

std::pair<std::size_t, std::size_t> seenCharacters(const AnswerBox& box) {
    GdkRectangle seen;
    gtk_text_view_get_visible_rect(viewOf(box), &seen);
    const auto characterAt = [&](int x, int y) {
        GtkTextIter at;
        gtk_text_view_get_iter_at_location(viewOf(box), &at, x, y);
        return static_cast<std::size_t>(gtk_text_iter_get_offset(&at));
    };
    return {characterAt(seen.x, seen.y), characterAt(seen.x + seen.width, seen.y + seen.height)};
}

double scrolledBy(const AnswerBox& box) {
    return gtk_adjustment_get_value(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(viewOf(box))));
}

Drawing drawingOf(const AnswerBox& box) {
    GtkWidget* const view = GTK_WIDGET(viewOf(box));
    const int width = gtk_widget_get_allocated_width(view);
    const int height = gtk_widget_get_allocated_height(view);
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* const pen = cairo_create(surface);
    // Before the box has its layout it draws nothing at all.
    cairo_set_source_rgb(pen, 1, 0, 1);
    cairo_paint(pen);
    gtk_widget_draw(view, pen);
    cairo_destroy(pen);
    cairo_surface_flush(surface);
    Drawing counts;
    for (int y = 0; y < height; ++y) {
        const unsigned char* const row =
            cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
        for (int x = 0; x < width; ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, row + x * static_cast<int>(sizeof pixel), sizeof pixel);
            const Colour red = (pixel >> 16U) & 0xFFU;
            const Colour blue = pixel & 0xFFU;
            ++counts[blue << 16U | (pixel & 0xFF00U) | red];
        }
    }
    cairo_surface_destroy(surface);
    return counts;
}

void usePlainInputMethod(const AnswerBox& box) {
    g_object_set(viewOf(box), "im-module", "gtk-im-context-simple", nullptr);
}

void useDarkTheme(bool dark) {
    g_object_set(gtk_settings_get_default(), "gtk-application-prefer-dark-theme", dark, nullptr);
}

}  // namespace tavisk::test
