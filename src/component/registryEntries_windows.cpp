#include "component/registryEntries_windows.h"

#include <tavisk/com.h>

namespace tavisk {
namespace {

constexpr const wchar_t* title = L"Editor and preview of help documents";
constexpr const wchar_t* progId = L"Tavisk.clsTavisk";
constexpr const wchar_t* progIdOfVersion = L"Tavisk.clsTavisk.1";
constexpr const wchar_t* version = L"1.0";
/// The system's own marshalling by type library.
constexpr const wchar_t* marshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* platform = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring textOf(const GUID& guid) {
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring classKey() { return L"CLSID\\" + textOf(CLSID_clsTavisk); }

}  // namespace

std::wstring libraryKey() { return classKey() + L"\\InprocServer32"; }

std::vector<RegistryEntry> registryEntries(const std::wstring& library) {
    const std::wstring types = textOf(LIBID_Tavisk);
    const std::wstring typesKey = L"TypeLib\\" + types + L"\\" + version;
    const std::wstring interfaceKey = L"Interface\\" + textOf(IID_IclsTavisk);
    const std::wstring folder = library.substr(0, library.find_last_of(L'\\'));
    return {
        {libraryKey(), L"", library},
        {libraryKey(), L"ThreadingModel", L"Apartment"},
        {classKey(), L"", title},
        {classKey() + L"\\ProgID", L"", progIdOfVersion},
        {classKey() + L"\\VersionIndependentProgID", L"", progId},
        {classKey() + L"\\TypeLib", L"", types},
        {classKey() + L"\\Version", L"", version},
        {classKey() + L"\\Programmable", L"", L""},
        {interfaceKey, L"", L"IclsTavisk"},
        {interfaceKey + L"\\ProxyStubClsid32", L"", marshaller},
        {interfaceKey + L"\\TypeLib", L"", types},
        {interfaceKey + L"\\TypeLib", L"Version", version},
        {typesKey + L"\\0\\" + platform, L"", library},
        {typesKey, L"", L"Tavisk 1.0 Type Library", true},
        {typesKey + L"\\FLAGS", L"", L"0", true},
        {typesKey + L"\\HELPDIR", L"", folder, true},
        {progId, L"", title, true},
        {std::wstring(progId) + L"\\CLSID", L"", textOf(CLSID_clsTavisk), true},
        {std::wstring(progId) + L"\\CurVer", L"", progIdOfVersion, true},
        {progIdOfVersion, L"", title, true},
        {std::wstring(progIdOfVersion) + L"\\CLSID", L"", textOf(CLSID_clsTavisk), true},
    };
}

}  // namespace tavisk
