#include "command/library.h"

#include <dlfcn.h>
#include <system_error>

namespace tavisk {

namespace fs = std::filesystem;

// The name that stays as long as the interface does.
const char* const componentFile = "libtavisk.so." TAVISK_ABI;

const char* const libraryFolder = TAVISK_LIBRARY_FOLDER;

fs::path commandFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

void* openLibrary(const fs::path& file) { return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL); }

void* findFunction(void* library, const char* name) { return dlsym(library, name); }

std::string libraryError() {
    const char* const reason = dlerror();  // NOLINT(concurrency-mt-unsafe): one thread loads
    return reason != nullptr ? reason : "unknown reason";
}

}  // namespace tavisk
