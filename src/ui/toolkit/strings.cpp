#include "ui/toolkit/strings.h"

#include <cstdint>
#include <wx/strconv.h>

namespace tavisk {

wxString toWx(std::u16string_view utf16) {
    if (utf16.empty()) return {};
    // By the bytes in memory, whatever width the toolkit's characters have.
    const wxMBConvUTF16 converter;
    return {reinterpret_cast<const char*>(utf16.data()), converter,
            utf16.size() * sizeof(char16_t)};
}

std::string utf8Of(const wxString& text) { return text.ToStdString(wxConvUTF8); }

std::u16string utf16Of(const wxString& text) {
    constexpr std::uint32_t firstOfPairs = 0x10000;
    std::u16string units;
    units.reserve(text.length());
    for (const wxUniChar character : text) {
        const std::uint32_t value = character.GetValue();
        if (value < firstOfPairs) {
            units += static_cast<char16_t>(value);
        } else {
            units += static_cast<char16_t>(0xD800 + ((value - firstOfPairs) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((value - firstOfPairs) & 0x3FF));
        }
    }
    return units;
}

}  // namespace tavisk
