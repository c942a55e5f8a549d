// How a browser calls a file.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// The address under which the browser shows the file of that path.
std::string fileAddress(const std::string& path);

/// What the browser says it shows, in the spelling of `address` where both are the same file; the
/// place in the file that a "#" leads to stays.
std::string spelledLike(const std::string& address, std::string_view said);

}  // namespace tavisk
