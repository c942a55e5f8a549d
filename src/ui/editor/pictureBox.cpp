#include "ui/editor/pictureBox.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <wx/dcclient.h>
#include <wx/log.h>
#include <wx/mstream.h>

namespace tavisk {
namespace {

template <class Handler>
void addHandler() {
    auto handler = std::make_unique<Handler>();
    if (!wxImage::FindHandler(handler->GetType())) wxImage::AddHandler(handler.release());
}

wxImage read(std::string_view bytes) {
    if (bytes.empty()) return {};
    // Broken bytes are no reason for a message: the place stays empty.
    const wxLogNull quiet;
    addHandler<wxPNGHandler>();
    addHandler<wxJPEGHandler>();
    addHandler<wxGIFHandler>();
    addHandler<wxBMPHandler>();
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    wxImage image;
    image.SetLoadFlags(0);  // without messages on the standard error stream, too
    if (!image.LoadFile(stream)) return {};
    // A photo is far larger than its place, and would be scaled anew with every size of the window.
    const wxSize most(1024, 1024);
    const wxSize size = image.GetSize();
    if (size.x > most.x || size.y > most.y) {
        const wxSize fit = fitted(size, most);
        image.Rescale(fit.x, fit.y, wxIMAGE_QUALITY_HIGH);
    }
    return image;
}

}  // namespace

wxSize fitted(const wxSize& picture, const wxSize& place) {
    const double scale = std::min(double(place.x) / picture.x, double(place.y) / picture.y);
    const auto side = [scale](int length) {
        return std::max(1, static_cast<int>(std::lround(length * scale)));
    };
    return {side(picture.x), side(picture.y)};
}

PictureBox::PictureBox(wxWindow* parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxBORDER_THEME | wxFULL_REPAINT_ON_RESIZE) {
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { onPaint(); });
}

void PictureBox::show(std::string_view bytes) {
    image_ = read(bytes);
    scaled_ = wxBitmap();
    Refresh();
}

void PictureBox::clear() { show({}); }

void PictureBox::onPaint() {
    wxPaintDC dc(this);
    const wxSize place = GetClientSize();
    if (isEmpty() || place.x <= 0 || place.y <= 0) return;
    // Counted in the pixels of the screen, which are smaller than the window's at 200 %.
    const double density = GetContentScaleFactor();
    const wxSize size = fitted(image_.GetSize(), place * density);
    if (!scaled_.IsOk() || scaled_.GetSize() != size)
        scaled_ = wxBitmap(image_.Scale(size.x, size.y, wxIMAGE_QUALITY_HIGH), -1, density);
    const wxSize shown = size / density;
    dc.DrawBitmap(scaled_, (place.x - shown.x) / 2, (place.y - shown.y) / 2);
}

}  // namespace tavisk
