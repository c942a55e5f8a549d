// Names for those who cannot see the window, where a control's caption does not say enough.
#pragma once

class wxWindow;
class wxString;

namespace tavisk {

/// The name that screen readers tell instead of the caption.
void setAccessibleName(wxWindow& control, const wxString& name);

/// The same for a control that shows nothing but a picture.
void setAccessiblePicture(wxWindow& control, const wxString& name);

}  // namespace tavisk
