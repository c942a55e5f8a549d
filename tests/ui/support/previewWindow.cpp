#include "ui/support/previewWindow.h"

#include <random>
#include <wx/image.h>
#include <wx/mstream.h>

namespace tavisk::test {
namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace

PageFolder::PageFolder(const std::string& name) {
    std::random_device random;
    fs::path above;
    do {
        above = fs::temp_directory_path() / ("tavisk-preview-" + std::to_string(random()));
    } while (!fs::create_directory(above));
    const std::u8string utf8 = above.generic_u8string();
    above_.assign(utf8.begin(), utf8.end());
    path_ = above_ + "/" + name;
    fs::create_directory(pathOf(path_));
}

PageFolder::~PageFolder() {
    std::error_code ignored;
    fs::remove_all(pathOf(above_), ignored);
}

std::string PageFolder::write(const std::string& name, std::string_view bytes) const {
    const std::string file = path_ + "/" + name;
    DiskFiles().replace(file, {bytes});
    return file;
}

std::string PageFolder::writePicture(const std::string& name, std::uint32_t colour) const {
    constexpr int size = 64;
    wxImage picture(size, size);
    picture.SetRGB(wxRect(0, 0, size, size), static_cast<unsigned char>(colour >> 16U),
                   static_cast<unsigned char>(colour >> 8U), static_cast<unsigned char>(colour));
    wxMemoryOutputStream stream;
    picture.SaveFile(stream, wxBITMAP_TYPE_PNG);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return write(name, bytes);
}

}  // namespace tavisk::test
