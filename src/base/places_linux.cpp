#include "base/places.h"

#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

#include "base/error.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

fs::path findLibraryFile() noexcept {
    try {
        Dl_info info{};
        if (dladdr(reinterpret_cast<void*>(&libraryFile), &info) == 0 || !info.dli_fname) return {};
        return fs::canonical(info.dli_fname);
    } catch (...) {
        return {};
    }
}

const fs::path fileAtLoad = findLibraryFile();

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

const fs::path& libraryFile() noexcept { return fileAtLoad; }

fs::path dataFolder() { return dataHome() / "tavisk"; }

bool mayCreateFilesIn(const fs::path& folder) noexcept { return access(folder.c_str(), W_OK) == 0; }

}  // namespace tavisk
