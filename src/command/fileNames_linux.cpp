#include "command/fileNames.h"

#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "command/fileError.h"

namespace tavisk {

namespace fs = std::filesystem;

std::string absoluteFolder(const std::string& folder) {
    std::error_code error;
    const fs::path whole = fs::absolute(pathOf(folder), error);
    if (error) throw FileError(ErrorNumber::pathNotFound, folder);
    fs::path plain = whole.root_path();
    for (const fs::path& step : whole.relative_path()) {
        // ".." stays: what it means behind a link only the file system knows.
        if (!step.empty() && step != ".") plain /= step;
    }
    // The root alone would end in a separator.
    if (plain == whole.root_path()) plain /= ".";
    return textOf(plain);
}

}  // namespace tavisk
