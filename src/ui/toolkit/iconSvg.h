// The drawings that the component carries.
#pragma once

#include <string_view>

namespace tavisk {

/// Text of the SVG file of this base name; empty when there is none.
std::string_view iconSvg(std::string_view name);

}  // namespace tavisk
