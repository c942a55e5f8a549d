#include <algorithm>
#include <string>

#include "ui/editor/boxText.h"
#include "ui/editor/carriageReturn_msw.h"
#include "ui/toolkit/strings.h"

namespace tavisk {

wxString textForBox(std::u16string_view text) {
    std::u16string units(text);
    std::replace(units.begin(), units.end(), u'\r', carriageReturnInBox);
    return toWx(std::u16string_view(units));
}

}  // namespace tavisk
