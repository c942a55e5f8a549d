// Where the nodes of a document stand in the text that it was parsed from.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/finding.h"
#include "xml/dom.h"

namespace tavisk {

class SourcePlaces {
public:
    /// The document is as it was parsed from `source`, which must stay.
    SourcePlaces(const dom::Document& document, std::string_view source);

    /// Of a node's tag; of the text of an attribute, if the tag has it; of the character that
    /// stands at `position` (UTF-16 code units) in that text.
    Place of(const dom::Node& node, std::string_view attribute,
             std::optional<std::size_t> position);

private:
    std::size_t startOf(const dom::Node& node) const;
    Place placeAt(std::size_t offset);
    void rewind();

    std::string_view source_;
    std::size_t first_ = 0;  ///< behind a byte order mark
    std::unordered_map<const dom::Node*, std::size_t> numbers_;
    std::vector<std::size_t> starts_;  ///< by number
    // How far lines and the units of the last one are counted: places are mostly asked for in
    // order.
    std::size_t reached_ = 0;
    std::size_t line_ = 1;
    std::size_t units_ = 0;
};

}  // namespace tavisk
