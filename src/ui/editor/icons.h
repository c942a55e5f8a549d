// The pictures of the toolbar buttons, drawn as SVG.
#pragma once

#include <string_view>
#include <wx/bmpbndl.h>
#include <wx/colour.h>

namespace tavisk {

/// The picture in one colour, sharp at every scale. `size` is in pixels at 100 %.
wxBitmapBundle icon(std::string_view name, int size, const wxColour& colour);

/// In the colours that the user's theme has now for text on buttons that can and cannot be used.
wxBitmapBundle icon(std::string_view name, int size);
wxBitmapBundle disabledIcon(std::string_view name, int size);

}  // namespace tavisk
