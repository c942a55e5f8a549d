#include "ui/support/dialogAnswers.h"

namespace tavisk::test {

// The native dialogs exist only while they are shown; what they answer is in wxWidgets' objects.
void chooseInDialog(wxColourDialog& dialog, const wxColour& colour) {
    dialog.GetColourData().SetColour(colour);
}

void chooseInDialog(wxFileDialog& dialog, const std::string& path) { dialog.SetPath(toWx(path)); }

}  // namespace tavisk::test
