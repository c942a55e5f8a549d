// What a document's results are called.
#pragma once

#include <string>

namespace tavisk {

/// The file's name without its extension; "document" for standard input. Empty for a name that no
/// file can have.
std::string documentName(const std::string& file);

}  // namespace tavisk
