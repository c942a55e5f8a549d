// Where things are in the file system.
#pragma once

#include <filesystem>

namespace tavisk {

/// This library's own file, found when it was loaded: a relative name leads nowhere once the host
/// changes its folder. Empty when it was not found.
const std::filesystem::path& libraryFile() noexcept;

/// The component's folder in the user's data; it need not exist. Error 76 where users have no data.
std::filesystem::path dataFolder();

/// Whether the user may create files in an existing folder.
bool mayCreateFilesIn(const std::filesystem::path& folder) noexcept;

}  // namespace tavisk
