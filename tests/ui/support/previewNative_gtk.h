// What the tests of this desktop's browser ask of it.
#pragma once

#include "ui/support/previewWindow.h"

namespace tavisk::test {

/// The entries of the menu that a right click asks for, each with a blank behind it: "copy",
/// "copyLink", "copyImage", "all", and "?" for any other. The menu itself does not open.
std::string menuAt(const wxWebView& browser, const wxPoint& place);
/// Where files can be dropped.
bool takesDrops(const wxWebView& browser);
/// The processes that show pages for this one, those that nobody has waited for included.
std::vector<int> pageProcesses();

}  // namespace tavisk::test
