#include "ui/editor/icons.h"

#include <string>
#include <wx/image.h>
#include <wx/settings.h>

#include "ui/toolkit/iconSvg.h"

namespace tavisk {
namespace {

/// The drawing as a stencil for a colour. Drawing the SVG in the colour itself would darken its
/// edges, which this toolkit multiplies with their coverage twice.
class Stencil final : public wxBitmapBundleImpl {
public:
    Stencil(const wxBitmapBundle& drawing, const wxColour& colour)
        : drawing_(drawing), colour_(colour) {}

    wxSize GetDefaultSize() const override { return drawing_.GetDefaultSize(); }
    wxSize GetPreferredBitmapSizeAtScale(double scale) const override {
        return drawing_.GetPreferredBitmapSizeAtScale(scale);
    }
    wxBitmap GetBitmap(const wxSize& size) override {
        if (!bitmap_.IsOk() || bitmap_.GetSize() != size) {
            wxImage image = drawing_.GetBitmap(size).ConvertToImage();
            image.SetRGB(wxRect(size), colour_.Red(), colour_.Green(), colour_.Blue());
            bitmap_ = wxBitmap(image);
        }
        return bitmap_;
    }

private:
    wxBitmapBundle drawing_;
    wxColour colour_;
    wxBitmap bitmap_;
};

}  // namespace

wxBitmapBundle icon(std::string_view name, int size, const wxColour& colour) {
    const std::string svg(iconSvg(name));
    const wxBitmapBundle drawing = wxBitmapBundle::FromSVG(svg.c_str(), wxSize(size, size));
    if (!drawing.IsOk()) return {};
    // The bundle owns it, by its reference count, which the analyser does not see.
    return wxBitmapBundle::FromImpl(new Stencil(drawing, colour));  // NOLINT(clang-analyzer-*)
}

wxBitmapBundle icon(std::string_view name, int size) {
    return icon(name, size, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
}

wxBitmapBundle disabledIcon(std::string_view name, int size) {
    return icon(name, size, wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
}

}  // namespace tavisk
