#include "command/fileNames.h"

#include <filesystem>
#include <system_error>

#include "base/addressText.h"
#include "base/paths.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

/// What is below the current folder, seen from there.
fs::path shortened(const fs::path& path) {
    std::error_code error;
    const fs::path here = fs::current_path(error);
    if (error) return path;
    fs::path inside = path.lexically_relative(here);
    return inside.empty() || *inside.begin() == ".." ? path : inside;
}

}  // namespace

std::string documentName(const std::string& file) {
    if (file == "-") return "document";
    std::string name = textOf(pathOf(file).stem());
    if (name == "." || name == "..") return {};
    return name;
}

std::string standalonePath(const std::string& folder, const std::string& file) {
    return folder + '/' + documentName(file) + ".html";
}

std::string folderOf(const std::string& path) {
    const std::string folder = path == "-" ? "" : textOf(pathOf(path).parent_path());
    return absoluteFolder(folder.empty() ? "." : folder);
}

std::string relativeAddress(const std::string& file) {
    fs::path path = pathOf(file).lexically_normal();
    if (path.is_absolute()) path = shortened(path);
    if (!path.is_absolute()) return escaped(textOf(path));
    const std::string text = textOf(path);
    if (text.starts_with("//")) return "file:" + escaped(text);
    // A drive stands behind a slash of its own, and its colon as it is.
    const std::string drive = textOf(path.root_name());
    return "file://" + (drive.empty() ? "" : '/' + drive) + escaped(text.substr(drive.size()));
}

}  // namespace tavisk
