#include "ui/editor/boxText.h"
#include "ui/toolkit/strings.h"

namespace tavisk {

wxString textForBox(std::u16string_view text) { return toWx(text); }

}  // namespace tavisk
