#include "component/registration.h"

#include <optional>
#include <ranges>
#include <string>

#include "base/places.h"
#include "component/registryEntries_windows.h"

namespace tavisk {
namespace {

constexpr const wchar_t* classes = L"Software\\Classes\\";
constexpr REGSAM otherWordSize = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

class Key {
public:
    Key() = default;
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (handle_) RegCloseKey(handle_);
    }

    LSTATUS open(HKEY root, const std::wstring& path, REGSAM access) {
        return RegOpenKeyExW(root, (classes + path).c_str(), 0, access, &handle_);
    }
    LSTATUS create(HKEY root, const std::wstring& path) {
        return RegCreateKeyExW(root, (classes + path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                               KEY_SET_VALUE, nullptr, &handle_, nullptr);
    }
    LSTATUS write(const std::wstring& name, const std::wstring& value) const {
        return RegSetValueExW(handle_, name.c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(value.c_str()),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
    std::optional<std::wstring> read(const std::wstring& name) const {
        DWORD size = 0;
        if (RegGetValueW(handle_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
            ERROR_SUCCESS)
            return std::nullopt;
        std::wstring value(size / sizeof(wchar_t), L'\0');
        if (RegGetValueW(handle_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, value.data(),
                         &size) != ERROR_SUCCESS)
            return std::nullopt;
        value.resize(value.find(L'\0'));
        return value;
    }
    LSTATUS erase(const std::wstring& name) const { return RegDeleteValueW(handle_, name.c_str()); }
    bool isEmpty() const {
        DWORD keys = 0, values = 0;
        return RegQueryInfoKeyW(handle_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                &values, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
               keys == 0 && values == 0;
    }

private:
    HKEY handle_ = nullptr;
};

bool samePath(const std::wstring& one, const std::wstring& other) {
    return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

/// The library that is registered there, for this word size or, on request, for the other.
std::optional<std::wstring> registeredLibrary(HKEY root, REGSAM wordSize = 0) {
    Key key;
    if (key.open(root, libraryKey(), KEY_QUERY_VALUE | wordSize) != ERROR_SUCCESS)
        return std::nullopt;
    return key.read(L"");
}

/// On a system of one word size both are the same.
bool isOtherWordSizeRegistered(HKEY root, const std::wstring& own) {
    const auto other = registeredLibrary(root, otherWordSize);
    return other && !samePath(*other, own);
}

/// Deletes the key and those above it that hold nothing any more.
LSTATUS eraseEmpty(HKEY root, std::wstring path) {
    for (;;) {
        {
            Key key;
            if (key.open(root, path, KEY_QUERY_VALUE) != ERROR_SUCCESS || !key.isEmpty())
                return ERROR_SUCCESS;
        }
        if (const LSTATUS status = RegDeleteKeyW(root, (classes + path).c_str());
            status != ERROR_SUCCESS)
            return status;
        const std::size_t parent = path.find_last_of(L'\\');
        if (parent == std::wstring::npos) return ERROR_SUCCESS;
        path.resize(parent);
    }
}

/// A value that somebody else has written since stays.
LSTATUS eraseEntry(HKEY root, const RegistryEntry& entry) {
    {
        Key key;
        const LSTATUS opened = key.open(root, entry.key, KEY_QUERY_VALUE | KEY_SET_VALUE);
        if (opened == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
        if (opened != ERROR_SUCCESS) return opened;
        const auto value = key.read(entry.name);
        if (value && samePath(*value, entry.value)) {
            if (const LSTATUS status = key.erase(entry.name); status != ERROR_SUCCESS)
                return status;
        }
    }
    return eraseEmpty(root, entry.key);
}

/// The library's own path goes last: until then a further attempt knows what is its own.
LSTATUS erase(HKEY root, const std::wstring& library) {
    const auto registered = registeredLibrary(root);
    if (!registered || !samePath(*registered, library)) return ERROR_SUCCESS;
    const bool keepShared = isOtherWordSizeRegistered(root, library);
    for (const RegistryEntry& entry : registryEntries(library) | std::views::reverse) {
        if (entry.shared && keepShared) continue;
        if (const LSTATUS status = eraseEntry(root, entry); status != ERROR_SUCCESS) return status;
    }
    return ERROR_SUCCESS;
}

LSTATUS write(HKEY root, const std::wstring& library) {
    for (const RegistryEntry& entry : registryEntries(library)) {
        Key key;
        LSTATUS status = key.create(root, entry.key);
        if (status == ERROR_SUCCESS) status = key.write(entry.name, entry.value);
        if (status == ERROR_SUCCESS) continue;
        erase(root, library);
        return status;
    }
    return ERROR_SUCCESS;
}

}  // namespace

HRESULT registerLibrary() {
    const std::wstring library = libraryFile().wstring();
    LSTATUS status = write(HKEY_LOCAL_MACHINE, library);
    if (status == ERROR_ACCESS_DENIED) status = write(HKEY_CURRENT_USER, library);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT unregisterLibrary() {
    const std::wstring library = libraryFile().wstring();
    const LSTATUS everybody = erase(HKEY_LOCAL_MACHINE, library);
    const LSTATUS user = erase(HKEY_CURRENT_USER, library);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(everybody != ERROR_SUCCESS ? everybody : user));
}

}  // namespace tavisk
