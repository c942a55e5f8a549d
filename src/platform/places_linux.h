// Where things are in the file system.
#pragma once

#include <filesystem>

namespace tavisk {

/// This library's own file, found when it was loaded: a relative name leads nowhere once the host
/// changes its folder. Empty when it was not found.
const std::filesystem::path& libraryFile() noexcept;

/// The folder of the user's data. Error 76 without one.
std::filesystem::path dataHome();

}  // namespace tavisk
