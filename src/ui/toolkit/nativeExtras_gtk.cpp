#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

/// Whether a window is shown in two steps, for an exact size with its frame; protected.
struct Showing : wxTopLevelWindow {
    static bool wxTopLevelWindowGTK::*inTwoSteps() { return &Showing::m_deferShow; }
};

void draw(GtkLabel* label, PangoAttribute* attribute) {
    PangoAttrList* const attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, attribute);
    gtk_label_set_attributes(label, attributes);
    pango_attr_list_unref(attributes);
}

}  // namespace

void placeByRealSize(wxTopLevelWindow& window) { window.*Showing::inTwoSteps() = false; }

void setCancelButton(wxTopLevelWindow& window, wxButton& button) {
    GtkAccelGroup* const group = gtk_accel_group_new();
    gtk_window_add_accel_group(GTK_WINDOW(window.GetHandle()), group);
    gtk_widget_add_accelerator(button.GetHandle(), "clicked", group, GDK_KEY_Escape,
                               GdkModifierType(0), GtkAccelFlags(0));
    g_object_unref(group);
}

bool okStandsLast() { return true; }

void styleCaption(wxStaticBox& frame) {
    constexpr int inset = 6;
    GtkWidget* const caption = gtk_frame_get_label_widget(GTK_FRAME(frame.GetHandle()));
    gtk_widget_set_margin_start(caption, inset);
    draw(GTK_LABEL(caption), pango_attr_weight_new(PANGO_WEIGHT_BOLD));
}

void underlineCaption(wxCheckBox& box) {
    draw(GTK_LABEL(gtk_bin_get_child(GTK_BIN(box.GetHandle()))),
         pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
}

void wrapText(wxStaticText& label, int lines) {
    GtkLabel* const widget = GTK_LABEL(label.GetHandle());
    gtk_label_set_line_wrap(widget, TRUE);
    gtk_label_set_line_wrap_mode(widget, PANGO_WRAP_WORD_CHAR);
    gtk_label_set_ellipsize(widget, PANGO_ELLIPSIZE_END);
    gtk_label_set_lines(widget, lines);
}

wxSize padText(wxStaticText& label) {
    GtkCssProvider* const style = gtk_css_provider_new();
    gtk_css_provider_load_from_data(style,
                                    "label { padding: 3px 6px; border-radius: 3px; }"
                                    "label:disabled { opacity: 0.5; }",
                                    -1, nullptr);
    gtk_style_context_add_provider(gtk_widget_get_style_context(label.GetHandle()),
                                   GTK_STYLE_PROVIDER(style),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(style);
    return {};
}

// They reach the whole window anyway.
void letMnemonicsReach(wxTopLevelWindow&) {}

// Controls are drawn on the same surface, which has its background already.
void paintGap(wxDC&, const wxWindow&, const wxRect&) {}

void expectManyNames(wxChoice& list) {
    GtkWidget* const widget = list.GetHandle();
    // As a menu, every entry would be a control of its own: 2,000 of them take seconds.
    GtkCssProvider* const style = gtk_css_provider_new();
    gtk_css_provider_load_from_data(style, "combobox { -GtkComboBox-appears-as-list: 1; }", -1,
                                    nullptr);
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(style),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(style);
    // Without this it is a menu still, until it is shown, and filled as one.
    g_signal_emit_by_name(widget, "style-updated");
    // Nor is every entry measured to find the widest.
    if (GtkWidget* const chosen = gtk_bin_get_child(GTK_BIN(widget)); GTK_IS_CELL_VIEW(chosen))
        gtk_cell_view_set_fit_model(GTK_CELL_VIEW(chosen), FALSE);

    GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(widget));
    for (const GList* cell = cells; cell; cell = cell->next)
        g_object_set(cell->data, "ellipsize", PANGO_ELLIPSIZE_MIDDLE, nullptr);
    g_list_free(cells);
}

}  // namespace tavisk
