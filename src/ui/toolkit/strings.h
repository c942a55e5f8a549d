// Texts between the logic and wxWidgets.
#pragma once

#include <string>
#include <string_view>
#include <wx/string.h>

namespace tavisk {

/// `utf8` must be valid.
inline wxString toWx(std::string_view utf8) { return wxString::FromUTF8(utf8.data(), utf8.size()); }
wxString toWx(std::u16string_view utf16);

std::string utf8Of(const wxString& text);
std::u16string utf16Of(const wxString& text);

}  // namespace tavisk
