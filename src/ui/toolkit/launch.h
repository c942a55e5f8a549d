// Handing addresses to the user's own programs.
#pragma once

#include <string>

namespace tavisk {

/// Opens an address of the web or of mail in the program that the user has chosen for it. Error 53
/// when there is none.
void openInUsersBrowser(const std::string& address);

}  // namespace tavisk
