// Where the nodes of a document stand in the text that it was parsed from.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "check/finding.h"
#include "xml/dom.h"

namespace tavisk {

class SourcePlaces {
public:
    /// `source` is what the document was parsed from, and must stay.
    explicit SourcePlaces(std::string_view source);

    /// Of a node's tag; of the text of an attribute, if the tag has it; of the character that
    /// stands at `position` (UTF-16 code units) in that text.
    Place of(const dom::Node& node, std::string_view attribute,
             std::optional<std::size_t> position);

private:
    std::size_t startOf(const dom::Node& node) const;
    Place placeAt(std::size_t offset);
    void rewind();

    std::string_view source_;
    std::size_t first_;  ///< behind a byte order mark
    // How far lines and the units of the last one are counted: places are mostly asked for in
    // order.
    std::size_t reached_ = 0;
    std::size_t line_ = 1;
    std::size_t units_ = 0;
};

}  // namespace tavisk
