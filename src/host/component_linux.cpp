#include "host/component.h"

#include <dlfcn.h>
#include <filesystem>
#include <system_error>
#include <tavisk/tavisk.h>
#include <type_traits>

namespace tavisk {
namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "libtavisk.so";

std::string reasonOfFailure() {
    const char* const reason = dlerror();  // NOLINT(concurrency-mt-unsafe): one thread loads
    return reason != nullptr ? reason : "unknown reason";
}

/// Never closed: the toolkit below cannot be unloaded.
void* open(const std::string& name) { return dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL); }

void* load() {
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (!own.empty()) {
        for (const fs::path& folder : {own, own.parent_path() / "lib"}) {
            const fs::path file = folder / fileName;
            if (!fs::exists(file, error)) continue;
            if (void* const library = open(file.string())) return library;
            // One that is here but cannot be used must not be hidden by another one elsewhere.
            throw ComponentMissing("the component cannot be loaded: " + reasonOfFailure());
        }
    }
    if (void* const library = open(fileName)) return library;
    throw ComponentMissing("the component with the windows is missing: " + std::string(fileName) +
                           " is neither in " + own.string() + ", nor in ../lib from there, nor " +
                           "on the system's library path");
}

template <class Function>
void find(void* library, const char* name, Function*& function) {
    void* const found = dlsym(library, name);
    if (found == nullptr) {
        throw ComponentMissing("the component cannot be used: " + reasonOfFailure());
    }
    function = reinterpret_cast<Function*>(found);
}

}  // namespace

Component::Component() : functions_{} {
    static_assert(std::is_same_v<decltype(functions_.edit), decltype(&tavisk_edit_xml)>);
    static_assert(std::is_same_v<decltype(functions_.preview), decltype(&tavisk_preview_xml)>);
    static_assert(std::is_same_v<decltype(functions_.free), decltype(&tavisk_free)>);
    void* const library = load();
    find(library, "tavisk_edit_xml", functions_.edit);
    find(library, "tavisk_preview_xml", functions_.preview);
    find(library, "tavisk_free", functions_.free);
}

}  // namespace tavisk
