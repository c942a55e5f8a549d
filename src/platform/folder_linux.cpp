#include "platform/folder.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "platform/assets.h"
#include "platform/error.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

fs::path libraryFolder() noexcept {
    try {
        Dl_info info{};
        if (dladdr(reinterpret_cast<void*>(&componentFolder), &info) == 0 || !info.dli_fname)
            return {};
        return fs::canonical(info.dli_fname).parent_path();
    } catch (...) {
        return {};
    }
}

/// From the time of loading: a relative name leads nowhere once the host changes its folder.
const fs::path folderAtLoad = libraryFolder();

fs::path dataHome() {
    // A relative path in this variable is to be ignored, as its convention says.
    // NOLINTBEGIN(concurrency-mt-unsafe): read once, and nobody offers a safer way
    if (const char* home = std::getenv("XDG_DATA_HOME"); home && home[0] == '/') return home;
    if (const char* home = std::getenv("HOME"); home && home[0] == '/')
        return fs::path(home) / ".local" / "share";
    // NOLINTEND(concurrency-mt-unsafe)
    raise(ErrorNumber::pathNotFound);
}

}  // namespace

std::string componentFolder(Files& files) {
    if (!folderAtLoad.empty() && access(folderAtLoad.c_str(), W_OK) == 0)
        return folderAtLoad.string();

    const fs::path home = dataHome();
    std::error_code error;
    fs::create_directories(home, error);  // a failure shows in the next step
    std::string folder = (home / "tavisk").string();
    provideAssets(files, folder);
    return folder;
}

}  // namespace tavisk
