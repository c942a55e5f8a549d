#include <filesystem>

#include "base/addressText.h"
#include "ui/preview/fileAddress.h"

namespace tavisk {

// As the browser writes it, too.
std::string fileAddress(const std::string& path) {
    const std::filesystem::path full = std::filesystem::absolute(path).lexically_normal();
    return "file://" + escaped(full.native());
}

std::string spelledLike(const std::string&, std::string_view said) { return std::string(said); }

}  // namespace tavisk
