// Who takes the keys.
#pragma once

#include <string>

class wxChoice;
class wxWindow;

namespace tavisk::test {

/// Name of the control in `window` that takes the keys. The toolkit's own answer leaves out lists
/// that the Tab key led to.
std::string focusedControl(const wxWindow& window);

/// Whether another window of this process takes the keys: a dialog.
bool dialogTakesKeys(const wxWindow& window);

bool isOpen(const wxChoice& list);

}  // namespace tavisk::test
