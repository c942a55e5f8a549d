// A window without its border as it is drawn now, whatever covers it on the screen.
#pragma once

#include <wx/image.h>
#include <wx/window.h>

namespace tavisk::test {

wxImage imageOf(const wxWindow& window);

/// The smallest rectangle with all pixels of a colour; empty when there is none.
inline wxRect placeOf(const wxImage& image, const wxColour& colour) {
    wxRect found;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            if (image.GetRed(x, y) == colour.Red() && image.GetGreen(x, y) == colour.Green() &&
                image.GetBlue(x, y) == colour.Blue())
                found.Union(wxRect(x, y, 1, 1));
        }
    }
    return found;
}

}  // namespace tavisk::test
