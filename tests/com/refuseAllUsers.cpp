// Takes the right to register for all users away, or gives it back: refuseAllUsers refuse|allow
#include <aclapi.h>
#include <cwchar>
#include <initializer_list>
#include <windows.h>

namespace {

/// Everything but to look and to change this again.
constexpr DWORD writing = KEY_SET_VALUE | KEY_CREATE_SUB_KEY;

DWORD setRights(const wchar_t* key, DWORD refused) {
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everyone = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone);
    EXPLICIT_ACCESSW access{};
    access.grfAccessPermissions = KEY_ALL_ACCESS & ~refused;
    access.grfAccessMode = SET_ACCESS;
    access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    access.Trustee.ptstrName = static_cast<wchar_t*>(everyone);
    ACL* list = nullptr;
    DWORD status = SetEntriesInAclW(1, &access, nullptr, &list);
    HKEY handle = nullptr;
    if (status == ERROR_SUCCESS)
        status = static_cast<DWORD>(
            RegOpenKeyExW(HKEY_LOCAL_MACHINE, key, 0, WRITE_DAC | READ_CONTROL, &handle));
    if (status == ERROR_SUCCESS)
        status = SetSecurityInfo(handle, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                                 nullptr, list, nullptr);
    if (handle) RegCloseKey(handle);
    LocalFree(list);
    FreeSid(everyone);
    return status;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    const bool refuse = count == 2 && std::wcscmp(words[1], L"refuse") == 0;
    for (const wchar_t* key : {L"Software\\Classes\\CLSID", L"Software\\Classes"}) {
        if (const DWORD status = setRights(key, refuse ? writing : 0))
            return static_cast<int>(status);
    }
    return 0;
}
