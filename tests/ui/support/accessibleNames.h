// What a screen reader is told about a control.
#pragma once

#include <string>
#include <vector>
#include <wx/toolbar.h>
#include <wx/window.h>

namespace tavisk::test {

/// Name of the control's own accessible object.
std::string accessibleName(const wxWindow& control);

/// Name of what has the focus when the control has it; "(no focus)" when it cannot have it.
std::string focusedName(wxWindow& control);

/// Names of the buttons that are seen of a toolbar.
std::vector<std::string> toolNames(const wxToolBar& toolbar);

bool isToldAsPicture(const wxWindow& control);

}  // namespace tavisk::test
