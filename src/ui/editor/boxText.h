// A text as the answer box's control can hold it.
#pragma once

#include <string_view>
#include <wx/string.h>

namespace tavisk {

/// Has as many units as `text`, of which the control makes no others, and `AnswerBuffer::text`
/// gives `text` again.
wxString textForBox(std::u16string_view text);

}  // namespace tavisk
