#include <gtk/gtk.h>

#include "windows/support/dialogAnswers.h"

namespace tavisk::test {

void chooseInDialog(wxColourDialog& dialog, const wxColour& colour) {
    constexpr double full = 255;
    const GdkRGBA rgba{colour.Red() / full, colour.Green() / full, colour.Blue() / full, 1};
    // The toolkit still uses the older of GTK's two colour dialogs.
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    auto* native = GTK_COLOR_SELECTION_DIALOG(dialog.GetHandle());
    auto* selection = gtk_color_selection_dialog_get_color_selection(native);
    gtk_color_selection_set_current_rgba(GTK_COLOR_SELECTION(selection), &rgba);
    G_GNUC_END_IGNORE_DEPRECATIONS
}

}  // namespace tavisk::test
