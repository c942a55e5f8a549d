#include "base/folder.h"

#include <filesystem>
#include <system_error>

#include "base/assets.h"
#include "base/paths.h"
#include "base/places.h"

namespace tavisk {

namespace fs = std::filesystem;

std::string componentFolder(Files& files) {
    const fs::path own = libraryFile().parent_path();
    if (!own.empty() && mayCreateFilesIn(own)) return textOf(own);

    const fs::path data = dataFolder();
    std::error_code error;
    fs::create_directories(data.parent_path(), error);  // a failure shows in the next step
    std::string folder = textOf(data);
    provideAssets(files, folder);
    return folder;
}

}  // namespace tavisk
