#include <cfloat>
#include <clocale>
#include <string>
#include <windows.h>
#include <wx/app.h>

#include "ui/toolkit/runtime.h"

namespace tavisk {
namespace {

constexpr unsigned floatingPoint = _MCW_EM | _MCW_RC;

std::wstring currentFolder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

/// In a library, the program's manifest decides which controls windows get, unless the library's
/// own one is in force while they are made. A program's manifest is in force anyway.
class OwnManifest {
public:
    OwnManifest() {
        if (context() == INVALID_HANDLE_VALUE) return;
        active_ = ActivateActCtx(context(), &cookie_) != 0;
    }
    OwnManifest(const OwnManifest&) = delete;
    OwnManifest& operator=(const OwnManifest&) = delete;
    ~OwnManifest() {
        if (active_) DeactivateActCtx(0, cookie_);
    }

private:
    static HANDLE context() {
        static const HANDLE own = create();
        return own;
    }
    static HANDLE create() {
        HMODULE module = nullptr;
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(reinterpret_cast<const void*>(&create)), &module);
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.hModule = module;
        description.lpResourceName = MAKEINTRESOURCEW(2);  // a library's manifest
        return CreateActCtxW(&description);
    }

    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

/// The windows made meanwhile are sharp on every screen; those of the host stay as they are.
class OwnScaling {
public:
    OwnScaling() {
        if (set()) before_ = set()(perMonitor());
    }
    OwnScaling(const OwnScaling&) = delete;
    OwnScaling& operator=(const OwnScaling&) = delete;
    ~OwnScaling() {
        if (before_) set()(before_);
    }

private:
    using Set = DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT);

    static DPI_AWARENESS_CONTEXT perMonitor() { return DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2; }
    /// Older systems have none.
    static Set set() {
        static const auto function = reinterpret_cast<Set>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext")));
        return function;
    }

    DPI_AWARENESS_CONTEXT before_ = nullptr;
};

}  // namespace

struct HostState::Saved {
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::wstring folder = currentFolder();
    LCID threadLocale = GetThreadLocale();
    UINT errorMode = GetErrorMode();
    unsigned floatingPointControl = _controlfp(0, 0);
    bool exitOnFrameDelete = wxTheApp && wxTheApp->GetExitOnFrameDelete();
    OwnManifest manifest;
    OwnScaling scaling;
};

HostState::HostState() : saved_(std::make_unique<Saved>()) {
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(false);
    // Hosts that calculate with exceptions on would get them from the toolkit's arithmetic.
    _controlfp(_CW_DEFAULT, floatingPoint);
}

HostState::~HostState() {
    if (saved_->locale != std::setlocale(LC_ALL, nullptr))
        std::setlocale(LC_ALL, saved_->locale.c_str());
    if (GetThreadLocale() != saved_->threadLocale) SetThreadLocale(saved_->threadLocale);
    if (GetErrorMode() != saved_->errorMode) SetErrorMode(saved_->errorMode);
    if (currentFolder() != saved_->folder) SetCurrentDirectoryW(saved_->folder.c_str());
    if (wxTheApp) wxTheApp->SetExitOnFrameDelete(saved_->exitOnFrameDelete);
    _clearfp();
    _controlfp(saved_->floatingPointControl, floatingPoint);
}

}  // namespace tavisk
