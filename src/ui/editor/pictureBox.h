// A picture, scaled to fit its place.
#pragma once

#include <string_view>
#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/window.h>

namespace tavisk {

/// The largest size of these proportions that fits into `place`, at least one pixel each way.
wxSize fitted(const wxSize& picture, const wxSize& place);

/// `Picture1`.
class PictureBox final : public wxWindow {
public:
    explicit PictureBox(wxWindow* parent);

    /// Shows a picture file's bytes; nothing for bytes that are no picture.
    void show(std::string_view bytes);
    void clear();
    bool isEmpty() const { return !image_.IsOk(); }
    bool AcceptsFocus() const override { return false; }

private:
    void onPaint();

    wxImage image_;
    wxBitmap scaled_;  ///< of `image_`, as it was painted last
};

}  // namespace tavisk
