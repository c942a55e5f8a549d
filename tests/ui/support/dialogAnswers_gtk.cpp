#include <gtk/gtk.h>

#include "ui/support/dialogAnswers.h"
#include "ui/support/pump.h"

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

void chooseInDialog(wxFileDialog& dialog, const std::string& path) {
    GtkFileChooser* const chooser = GTK_FILE_CHOOSER(dialog.GetHandle());
    const std::size_t slash = path.rfind('/');
    // Opening, the dialog has only files that are there.
    gtk_file_chooser_set_action(chooser, GTK_FILE_CHOOSER_ACTION_SAVE);
    gtk_file_chooser_set_current_folder(chooser, path.substr(0, slash + 1).c_str());
    gtk_file_chooser_set_current_name(chooser, path.substr(slash + 1).c_str());
    EXPECT_TRUE(pumpUntil([&] { return utf8Of(dialog.GetPath()) == path; })) << path;
}

}  // namespace tavisk::test
