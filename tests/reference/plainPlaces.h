// Where markup begins in a document, found by stepping through its text alone.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tavisk::reference {

/// Of start tags, comments, CDATA sections, instructions and the document type, in their order, as
/// byte offsets. `xml` is well-formed.
std::vector<std::size_t> markupStarts(std::string_view xml);

}  // namespace tavisk::reference
