// The pictures that HTML refers to.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tavisk {

/// Gives the address to write in place of this one, or none to leave it.
using ReplaceAddress = std::function<std::optional<std::string>(const std::string& address)>;

/// Goes through the `src` of every `img` tag.
void replacePictureAddresses(std::string& html, const ReplaceAddress& replace);

/// The file that a picture's address leads to on this machine, absolute or from where the page is;
/// none for an address elsewhere, or one that holds its data.
std::optional<std::string> localFile(std::string_view address);

}  // namespace tavisk
