#include "platform/folder.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "platform/assets.h"
#include "platform/places_linux.h"

namespace tavisk {

namespace fs = std::filesystem;

std::string componentFolder(Files& files) {
    const fs::path own = libraryFile().parent_path();
    if (!own.empty() && access(own.c_str(), W_OK) == 0) return own.string();

    const fs::path home = dataHome();
    std::error_code error;
    fs::create_directories(home, error);  // a failure shows in the next step
    std::string folder = (home / "tavisk").string();
    provideAssets(files, folder);
    return folder;
}

}  // namespace tavisk
