// What loading does to the node that it begins with: some of the editor's controls write what they
// show back to the node, and documents in the field are as that leaves them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "xml/dom.h"

namespace tavisk {

/// The attributes of `ShownBoxes::hidden`.
inline constexpr std::array<std::string_view, 2> hiddenNames{"titlehidden", "answerhidden"};

/// Check boxes that write their state to the node shown whenever showing it changes the state.
struct ShownBoxes {
    std::array<bool, 2> hidden{};  ///< of the title, of the answer
    bool columnBreak = false;
    bool pageBreak = false;
};

/// The controls that write back, with what they show now.
struct ShownNode {
    std::string text;
    ShownBoxes boxes;
};

/// Whether showing the node fills no control. Error 91 for null.
bool isLocked(const dom::Node* node);

/// The bits of a node's `style`. Error 13 for a text that is no number, 6 for one beyond 32 bits.
std::int32_t styleOf(const dom::Node& node);

void showBoxes(dom::Document& document, dom::Node& node, ShownBoxes& boxes);

/// Shows the node as selecting it in the editor does, with the same errors: 91 for null, 6 for an
/// overlong text, and those of `styleOf`.
void normalise(dom::Document& document, dom::Node* node, ShownNode& shown);

}  // namespace tavisk
