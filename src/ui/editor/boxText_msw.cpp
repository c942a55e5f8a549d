#include <algorithm>
#include <string>

#include "editor/wx/boxText.h"
#include "editor/wx/carriageReturn_msw.h"
#include "platform/wx/strings.h"

namespace tavisk {

wxString textForBox(std::u16string_view text) {
    std::u16string units(text);
    std::replace(units.begin(), units.end(), u'\r', carriageReturnInBox);
    return toWx(std::u16string_view(units));
}

}  // namespace tavisk
