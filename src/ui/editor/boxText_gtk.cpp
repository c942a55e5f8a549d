#include "editor/wx/boxText.h"
#include "platform/wx/strings.h"

namespace tavisk {

wxString textForBox(std::u16string_view text) { return toWx(text); }

}  // namespace tavisk
