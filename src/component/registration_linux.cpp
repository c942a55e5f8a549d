#include "component/registration.h"

#include <filesystem>
#include <system_error>

#include "base/error.h"
#include "base/files.h"
#include "base/places.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

fs::path registrationFile() { return dataFolder() / "libtavisk.path"; }

/// What the file says.
std::string ownLine() {
    if (libraryFile().empty()) raise(ErrorNumber::pathNotFound);
    return libraryFile().string() + "\n";
}

}  // namespace

HRESULT registerLibrary() {
    const fs::path file = registrationFile();
    const std::string line = ownLine();
    std::error_code error;
    fs::create_directories(file.parent_path(), error);  // a failure shows in the next step
    DiskFiles().replace(file.string(), {line});
    return S_OK;
}

HRESULT unregisterLibrary() {
    const fs::path file = registrationFile();
    DiskFiles files;
    if (!files.fileExists(file.string()) || files.read(file.string()) != ownLine()) return S_OK;
    fs::remove(file);
    std::error_code error;
    fs::remove(file.parent_path(),
               error);  // it holds the preview's files, too, where there are any
    return S_OK;
}

}  // namespace tavisk
