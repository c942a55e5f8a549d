#include "editor/wx/icons.h"

#include <string>
#include <wx/settings.h>

namespace tavisk {

wxBitmapBundle icon(std::string_view name, int size, const wxColour& colour) {
    constexpr std::string_view placeholder = "currentColor";
    const std::string value = colour.GetAsString(wxC2S_HTML_SYNTAX).utf8_string();
    std::string svg(iconSvg(name));
    for (std::size_t at = svg.find(placeholder); at != std::string::npos;
         at = svg.find(placeholder, at + value.size())) {
        svg.replace(at, placeholder.size(), value);
    }
    return wxBitmapBundle::FromSVG(svg.c_str(), wxSize(size, size));
}

wxBitmapBundle icon(std::string_view name, int size) {
    return icon(name, size, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
}

wxBitmapBundle disabledIcon(std::string_view name, int size) {
    return icon(name, size, wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
}

}  // namespace tavisk
