// What a document's results are called.
#pragma once

#include <string>

namespace tavisk {

/// The file's name without its extension; "document" for standard input. Empty for a name that no
/// file can have.
std::string documentName(const std::string& file);

/// The file of its page where that is one file; `folder` has no separator at its end.
std::string standalonePath(const std::string& folder, const std::string& file);

}  // namespace tavisk
