#include "page/imageStore.h"

#include <filesystem>

#include "base/error.h"
#include "document/xmlParse.h"
#include "xml/domTyped.h"

namespace tavisk {

namespace {

/// Whether a file of this name would not lie directly inside the folder it is joined to.
bool leadsOutOfFolder(std::string_view fileName) {
    // Where "/" is not the system's own separator, drives and streams have their ":" as well.
    constexpr bool onlySlash = std::filesystem::path::preferred_separator == '/';
    constexpr std::string_view separators = onlySlash ? "/" : "/\\:";
    return fileName == "." || fileName == ".." ||
           fileName.find_first_of(separators) != std::string_view::npos;
}

}  // namespace

dom::OwnedNode importimage(dom::Document& document, Files& files, const std::string& imagepath) {
    dom::OwnedNode image = document.createElement("image");
    if (files.fileExists(imagepath)) {
        std::string bytes = files.read(imagepath);
        bytes.push_back('\0');  // stored pictures are one byte longer than their files
        dom::setBase64Value(document, *image, bytes);
    }
    return image;
}

bool exportimage(const dom::Node& node, Files& files, const std::string& imagepath,
                 std::string& buffer) {
    dom::base64Value(node, buffer);
    files.overwrite(imagepath, buffer);
    return false;
}

void dumpImages(const dom::Document& document, Files& files, const std::string& path) {
    if (!files.folderExists(path)) files.createFolder(path);
    std::string fileName;
    std::string buffer;
    for (const dom::Node* image : document.elementsByTagName("image")) {
        fileName = GetAttributeValue(image, "name", "default");
        fileName += '.';
        fileName += GetAttributeValue(image, "extension", "bmp");
        if (leadsOutOfFolder(fileName)) raise(ErrorNumber::badFileName);
        exportimage(*image, files, path + fileName, buffer);
    }
}

}  // namespace tavisk
