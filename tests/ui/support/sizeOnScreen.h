// Whether the desktop has made a window as large as it was asked to.
#pragma once

#include <wx/gdicmn.h>

class wxWindow;

namespace tavisk::test {

/// `size` in pixels, with the frame around the window. wxWidgets lays a window out for a new size
/// as soon as it is asked for; answers to earlier questions may still lay it out for another.
bool hasSizeOnScreen(const wxWindow& window, wxSize size);

}  // namespace tavisk::test
