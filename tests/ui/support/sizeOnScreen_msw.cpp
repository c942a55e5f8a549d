#include <wx/window.h>

#include "ui/support/sizeOnScreen.h"

namespace tavisk::test {

bool hasSizeOnScreen(const wxWindow& window, wxSize size) { return window.GetSize() == size; }

}  // namespace tavisk::test
