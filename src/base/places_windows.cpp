#include "base/places.h"

#include <memory>
#include <shlobj.h>
#include <string>
#include <windows.h>

#include "base/error.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

fs::path findLibraryFile() noexcept {
    try {
        HMODULE module = nullptr;
        constexpr DWORD flags =
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
        const auto* const own = reinterpret_cast<const wchar_t*>(&libraryFile);
        if (::GetModuleHandleExW(flags, own, &module) == 0) return {};
        std::wstring name(MAX_PATH, L'\0');
        for (;;) {
            const auto room = static_cast<DWORD>(name.size());
            const DWORD length = ::GetModuleFileNameW(module, name.data(), room);
            if (length == 0) return {};
            if (length < room) {
                name.resize(length);
                return name;
            }
            name.resize(name.size() * 2);
        }
    } catch (...) {
        return {};
    }
}

const fs::path fileAtLoad = findLibraryFile();

struct FreeByCom {
    void operator()(wchar_t* text) const { ::CoTaskMemFree(text); }
};

}  // namespace

const fs::path& libraryFile() noexcept { return fileAtLoad; }

fs::path dataFolder() {
    wchar_t* found = nullptr;
    const HRESULT result =
        ::SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &found);
    const std::unique_ptr<wchar_t, FreeByCom> folder(found);
    if (FAILED(result)) raise(ErrorNumber::pathNotFound);
    return fs::path(folder.get()) / L"Tavisk";
}

bool mayCreateFilesIn(const fs::path& folder) noexcept {
    // Rights come from many sides here; only trying tells.
    try {
        const fs::path probe =
            folder / (L".tavisk-probe-" + std::to_wstring(::GetCurrentProcessId()) + L"-" +
                      std::to_wstring(::GetCurrentThreadId()));
        const HANDLE file =
            ::CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                          FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file == INVALID_HANDLE_VALUE) return false;
        ::CloseHandle(file);
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace tavisk
