// The folder that the component reads its own files from and writes pages to.
#pragma once

#include <string>

#include "base/files.h"

namespace tavisk {

/// Where this library's own file lies, if the user may write there; else the folder of that purpose
/// in the user's data, provided with the files that ship with the component. No separator at its
/// end. Error 76 when there is neither.
std::string componentFolder(Files& files);

}  // namespace tavisk
