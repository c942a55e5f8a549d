#include "platform/wx/strings.h"

#include <wx/strconv.h>

namespace tavisk {
namespace {

// Conversion by the bytes in memory, whatever width the toolkit's characters have.
wxMBConvUTF16 utf16Converter() { return wxMBConvUTF16(); }

}  // namespace

wxString toWx(std::u16string_view utf16) {
    if (utf16.empty()) return {};
    return wxString(reinterpret_cast<const char*>(utf16.data()), utf16Converter(),
                    utf16.size() * sizeof(char16_t));
}

std::string utf8Of(const wxString& text) {
    const wxScopedCharBuffer bytes = text.utf8_str();
    return std::string(bytes.data(), bytes.length());
}

std::u16string utf16Of(const wxString& text) {
    if (text.empty()) return {};
    const wxCharBuffer bytes = text.mb_str(utf16Converter());
    std::u16string units(bytes.length() / sizeof(char16_t), u'\0');
    units.assign(reinterpret_cast<const char16_t*>(bytes.data()), units.size());
    return units;
}

}  // namespace tavisk
