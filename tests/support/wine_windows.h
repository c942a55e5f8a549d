// Some tests hold on Windows itself only.
#pragma once

#include <windows.h>

namespace tavisk::test {

inline bool underWine() {
    const HMODULE system = ::GetModuleHandleW(L"ntdll.dll");
    return ::GetProcAddress(system, "wine_get_version") != nullptr;
}

}  // namespace tavisk::test
