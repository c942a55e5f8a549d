#include "ui/editor/helpTreeRows.h"

namespace tavisk {

std::size_t indexAmongSiblings(const dom::Node& node) noexcept {
    std::size_t index = 0;
    for (const dom::Node* before = node.previous(); before; before = before->previous())
        ++index;
    return index;
}

}  // namespace tavisk
