// A picture, scaled to fit its place.
#pragma once

#include <string_view>
#include <wx/bmpbndl.h>
#include <wx/image.h>
#include <wx/window.h>

namespace tavisk {

/// `Picture1`.
class PictureBox final : public wxWindow {
public:
    explicit PictureBox(wxWindow* parent);

    /// Shows a picture file's bytes; nothing for bytes that are no picture.
    void show(std::string_view bytes);
    void clear();
    bool isEmpty() const { return !image_.IsOk(); }

private:
    wxImage image_;
};

}  // namespace tavisk
