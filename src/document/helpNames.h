// The two forms of a help node's name: the element name, and the name shown to the user.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// "_" becomes " ".
std::string shownName(std::string_view elementName);
/// The same behind what is in `text` already.
void appendShownName(std::string& text, std::string_view elementName);

/// " " becomes "_".
std::string elementName(std::string_view shownName);

}  // namespace tavisk
