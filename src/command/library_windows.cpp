#include "command/library.h"

#include <memory>
#include <windows.h>

#include "base/places.h"
#include "base/wideText_windows.h"

namespace tavisk {

namespace fs = std::filesystem;

const char* const componentFile = "Tavisk.dll";

const char* const libraryFolder = "../lib";

/// The core is linked into the command, so its file is the command's.
fs::path commandFolder() { return libraryFile().parent_path(); }

void* openLibrary(const fs::path& file) {
    // The working folder, where anybody may have left a library, is not looked at.
    const DWORD from =
        file.is_absolute() ? LOAD_WITH_ALTERED_SEARCH_PATH : LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    return ::LoadLibraryExW(file.c_str(), nullptr, from);
}

void* findFunction(void* library, const char* name) {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(library), name));
}

std::string libraryError() {
    const DWORD number = ::GetLastError();
    constexpr DWORD how = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                          FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    wchar_t* found = nullptr;
    const DWORD length =
        ::FormatMessageW(how, nullptr, number, 0, reinterpret_cast<wchar_t*>(&found), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&::LocalFree)> text(found, &::LocalFree);
    if (length == 0) return "error " + std::to_string(number);
    std::string reason = narrow({text.get(), length});
    while (!reason.empty() && (reason.back() == ' ' || reason.back() == '.'))
        reason.pop_back();
    return reason;
}

}  // namespace tavisk
