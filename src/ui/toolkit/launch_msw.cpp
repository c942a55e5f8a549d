#include <cstdint>
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include "base/error.h"
#include "ui/toolkit/launch.h"
#include "ui/toolkit/strings.h"

namespace tavisk {

void openInUsersBrowser(const std::string& address) {
    constexpr std::intptr_t lastError = 32;
    const HINSTANCE opened =
        ShellExecuteW(nullptr, L"open", toWx(address).wc_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<std::intptr_t>(opened) <= lastError) raise(ErrorNumber::fileNotFound);
}

}  // namespace tavisk
