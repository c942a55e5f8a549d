#include "command/documentName.h"

#include "base/paths.h"

namespace tavisk {

std::string documentName(const std::string& file) {
    if (file == "-") return "document";
    std::string name = textOf(pathOf(file).stem());
    if (name == "." || name == "..") return {};
    return name;
}

std::string standalonePath(const std::string& folder, const std::string& file) {
    return folder + '/' + documentName(file) + ".html";
}

}  // namespace tavisk
