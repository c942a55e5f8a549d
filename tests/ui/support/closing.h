// Windows that close without their own doing.
#pragma once

class wxWindow;

namespace tavisk::test {

/// As a window manager closes a window.
void closeFromOutside(const wxWindow& window);

}  // namespace tavisk::test
