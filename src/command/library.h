// Loading a library at run time.
#pragma once

#include <filesystem>
#include <string>

namespace tavisk {

/// The component's file name on this system.
extern const char* const componentFile;

/// Where libraries are installed, seen from the command's folder.
extern const char* const libraryFolder;

/// Where the command's own file lies; empty when that is not known.
std::filesystem::path commandFolder();

/// Null where it cannot be loaded. A name without a folder is looked for where the system keeps
/// libraries. It is never closed: the toolkit below cannot be unloaded.
void* openLibrary(const std::filesystem::path& file);

/// Null where it has none of that name.
void* findFunction(void* library, const char* name);

/// Why the last of these calls failed.
std::string libraryError();

}  // namespace tavisk
