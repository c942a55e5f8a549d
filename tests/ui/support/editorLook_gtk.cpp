#include <gtk/gtk.h>

#include "ui/support/editorLook.h"

namespace tavisk::test {
namespace {

GtkLabel* labelOf(const wxStaticText& label) { return GTK_LABEL(label.GetHandle()); }

}  // namespace

int leastWidth(wxWindow& control) {
    int least = 0;
    gtk_widget_get_preferred_width(control.GetHandle(), &least, nullptr);
    return least;
}

std::string drawnText(const wxStaticText& label) { return gtk_label_get_text(labelOf(label)); }

bool isElidedInTheMiddle(const wxStaticText& label) {
    return gtk_label_get_ellipsize(labelOf(label)) == PANGO_ELLIPSIZE_MIDDLE &&
           pango_layout_is_ellipsized(gtk_label_get_layout(labelOf(label)));
}

Wrapped wrapped(const wxStaticText& label) {
    PangoLayout* const layout = gtk_label_get_layout(labelOf(label));
    Wrapped result;
    result.lines = pango_layout_get_line_count(layout);
    pango_layout_get_pixel_size(layout, &result.size.x, &result.size.y);
    result.cut = pango_layout_is_ellipsized(layout);
    return result;
}

bool elidesLongNames(const wxChoice& list) {
    GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(list.GetHandle()));
    PangoEllipsizeMode mode = PANGO_ELLIPSIZE_NONE;
    g_object_get(cells->data, "ellipsize", &mode, nullptr);
    g_list_free(cells);
    return mode == PANGO_ELLIPSIZE_MIDDLE;
}

bool isDrawnUnderlined(const wxCheckBox& box) {
    // The font alone does not underline a caption here.
    GtkWidget* const caption = gtk_bin_get_child(GTK_BIN(box.GetHandle()));
    PangoAttrIterator* const at =
        pango_attr_list_get_iterator(gtk_label_get_attributes(GTK_LABEL(caption)));
    const auto* const line =
        reinterpret_cast<PangoAttrInt*>(pango_attr_iterator_get(at, PANGO_ATTR_UNDERLINE));
    const bool underlined = line && line->value == PANGO_UNDERLINE_SINGLE;
    pango_attr_iterator_destroy(at);
    return underlined;
}

}  // namespace tavisk::test
