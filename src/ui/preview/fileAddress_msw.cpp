#include <array>
#include <windows.h>

#include "ui/preview/fileAddress.h"
// after windows.h
#include <shlwapi.h>
#include <wininet.h>

#include "base/error.h"
#include "base/wideText_windows.h"

namespace tavisk {
namespace {

using Text = std::array<wchar_t, INTERNET_MAX_URL_LENGTH>;

/// The path that an address of a file leads to, or that it is itself. Empty for any other.
std::wstring pathOf(std::string_view address) {
    const std::wstring text = wide(address);
    if (!UrlIsFileUrlW(text.c_str()))
        return PathIsURLW(text.c_str()) || PathIsRelativeW(text.c_str()) ? std::wstring()
                                                                         : fullPath(text);
    Text path{};
    auto length = static_cast<DWORD>(path.size());
    return SUCCEEDED(PathCreateFromUrlW(text.c_str(), path.data(), &length, 0))
               ? fullPath(path.data())
               : std::wstring();
}

bool isSameFile(std::string_view one, std::string_view other) {
    const std::wstring path = pathOf(one);
    return !path.empty() &&
           CompareStringOrdinal(path.c_str(), -1, pathOf(other).c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

// In the system's own spelling: its browser takes escaped letters for those of a code page.
std::string fileAddress(const std::string& path) {
    Text address{};
    auto length = static_cast<DWORD>(address.size());
    if (FAILED(UrlCreateFromPathW(fullPath(wide(path)).c_str(), address.data(), &length, 0)))
        raise(ErrorNumber::badFileName);
    return narrow(address.data());
}

// The browser's events name a local page by its path or by its address, escaped or not.
std::string spelledLike(const std::string& address, std::string_view said) {
    if (isSameFile(address, said)) return address;
    const std::size_t place = said.rfind('#');
    if (place != std::string_view::npos && isSameFile(address, said.substr(0, place)))
        return address + std::string(said.substr(place));
    return std::string(said);
}

}  // namespace tavisk
