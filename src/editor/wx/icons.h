// The pictures of the toolbar buttons, drawn as SVG.
#pragma once

#include <string_view>
#include <wx/bmpbndl.h>

namespace tavisk {

/// Text of the SVG file of this base name; empty when there is none.
std::string_view iconSvg(std::string_view name);

/// The picture in the colours of the user's theme, sharp at every scale. `size` is in pixels at
/// 100 %.
wxBitmapBundle icon(std::string_view name, int size);

}  // namespace tavisk
