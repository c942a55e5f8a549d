#include "command/editResult.h"

#include <filesystem>
#include <system_error>

#include "base/noFiles.h"
#include "base/paths.h"
#include "command/fileNames.h"
#include "page/helpFile.h"
#include "xml/xmlWriter.h"

namespace tavisk {

namespace fs = std::filesystem;

bool isEdited(const std::string& handedOver, const std::string& returned) {
    if (returned == handedOver) return false;
    NoFiles none;
    HelpFile file(none, "");
    try {
        if (file.open(dom::Source::copy(handedOver))) return true;
        file.removeMarkers();
        return writeXml(*file.articledoc) != returned;
    } catch (const RunTimeError&) {
        return true;
    }
}

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return fs::equivalent(pathOf(a), pathOf(b), error);
}

std::string keepEdited(Files& files, const std::string& folder, const std::string& file,
                       const std::string& document) {
    const std::string stem = documentName(file);
    for (int number = 1;; ++number) {
        const std::string suffix = number == 1 ? "" : "-" + std::to_string(number);
        std::string path = folder;
        path.append("/").append(stem).append("-edited").append(suffix).append(".xml");
        if (files.fileExists(path) || files.folderExists(path)) continue;
        files.replace(path, {document});
        return path;
    }
}

}  // namespace tavisk
