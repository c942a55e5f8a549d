// What is written into the registry for this library.
#pragma once

#include <string>
#include <vector>

namespace tavisk {

/// One value below the folder of classes.
struct RegistryEntry {
    std::wstring key;
    std::wstring name;  ///< empty: the key's own value
    std::wstring value;
    /// Used by the library's build for the other word size as well.
    bool shared = false;
};

/// The key whose own value is the path of the library that is registered.
std::wstring libraryKey();

/// That of `libraryKey` is the first.
std::vector<RegistryEntry> registryEntries(const std::wstring& library);

}  // namespace tavisk
