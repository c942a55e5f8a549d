#include "command/fileNames.h"

#include "base/paths.h"
#include "base/wideText_windows.h"
#include "command/fileError.h"

namespace tavisk {

std::string absoluteFolder(const std::string& folder) {
    const std::wstring whole = fullPath(wide(folder));
    if (whole.empty()) throw FileError(ErrorNumber::pathNotFound, folder);
    std::string plain = textOf(whole);
    while (plain.size() > 1 && plain.back() == '/')
        plain.pop_back();
    // The root alone would end in a separator.
    if (plain.back() == ':') plain += "/.";
    return plain;
}

}  // namespace tavisk
