// The files that ship with the component: the default cabinet picture and the page's stylesheet.
#pragma once

#include <string>
#include <string_view>

#include "base/files.h"

namespace tavisk {

std::string_view cabinetPicture();  ///< bytes of a PNG file, 256 by 256
std::string_view stylesheet();      ///< CSS

/// Creates the folder (its last level) and copies `cabinet.png` and `style.css` into it where they
/// are absent.
void provideAssets(Files& files, const std::string& folder);

}  // namespace tavisk
