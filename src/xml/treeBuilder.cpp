#include "xml/treeBuilder.h"

#include <cstring>
#include <functional>
#include <utility>

namespace tavisk::dom {

TreeBuilder::TreeBuilder(Document& document, Source source)
    : document_(document), current_(&document.root_) {
    // Written again, a document is about as long as it was.
    document_.setSizeHint(source.size);
    document_.source_ = std::move(source);
}

void TreeBuilder::beginElement(const Name* name, std::size_t attributeCount,
                               std::size_t sourceOffset) {
    Node* const element = document_.newNode(NodeType::element, name);
    element->sourceOffset_ = static_cast<std::uint32_t>(sourceOffset);
    document_.link(*current_, element, nullptr);
    current_ = element;
    if (attributeCount == 0) return;
    const std::size_t bytes = attributeCount * sizeof(Attribute);
    document_.moveAttributes(*element, document_.pool_.keep(bytes), bytes);
}

void TreeBuilder::attribute(const Name* name, std::string_view text) {
    Attribute& attribute = document_.growAttributes(*current_);
    attribute.name_ = name;
    put(attribute.text_, text);
}

void TreeBuilder::data(NodeType type, std::string_view text, std::size_t sourceOffset,
                       std::string_view name) {
    Node* const node = document_.newNode(type, document_.nameFor(type, name));
    node->sourceOffset_ = static_cast<std::uint32_t>(sourceOffset);
    document_.link(*current_, node, nullptr);
    put(node->text_, text);
}

void TreeBuilder::put(Text& text, std::string_view value) {
    const std::string_view all = source();
    const std::less_equal<const char*> notAfter;
    if (notAfter(all.data(), value.data()) &&
        notAfter(value.data() + value.size(), all.data() + all.size())) {
        text.data_ = value.data();
        text.size_ = static_cast<std::uint32_t>(value.size());
    } else if (!value.empty()) {
        auto* const bytes = static_cast<char*>(document_.pool_.keep(value.size()));
        std::memcpy(bytes, value.data(), value.size());
        text.data_ = bytes;
        text.size_ = text.capacity_ = static_cast<std::uint32_t>(value.size());
    }
}

}  // namespace tavisk::dom
