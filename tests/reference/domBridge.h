// The tree of the document object model as a plain tree.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "reference/plainText.h"
#include "reference/plainTree.h"
#include "xml/dom.h"

namespace tavisk::reference {

inline Kind kindOf(dom::NodeType type) {
    switch (type) {
        case dom::NodeType::document: return Kind::document;
        case dom::NodeType::documentType: return Kind::documentType;
        case dom::NodeType::text: return Kind::text;
        case dom::NodeType::cdata: return Kind::cdata;
        case dom::NodeType::comment: return Kind::comment;
        case dom::NodeType::instruction: return Kind::instruction;
        default: return Kind::element;
    }
}

inline PlainNode plainOf(const dom::Node& node) {
    PlainNode plain;
    plain.kind = kindOf(node.type());
    if (plain.kind == Kind::element || plain.kind == Kind::instruction) {
        plain.name = utf16Of(std::string(node.nodeName()));
    }
    for (const dom::Attribute& attribute : node.attributes()) {
        plain.attributes.push_back(
            {utf16Of(std::string(attribute.name())), utf16Of(std::string(attribute.text()))});
    }
    plain.data = utf16Of(std::string(node.data()));
    for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
        plain.children.push_back(plainOf(*child));
    }
    return plain;
}

/// Where the document's nodes say that they stood, in their order, as `markupStarts` finds it.
inline std::vector<std::size_t> markupStarts(const dom::Document& document) {
    std::vector<std::size_t> starts;
    const dom::Node& root = document.root();
    for (const dom::Node* node = nextInDocument(root, root); node != nullptr;
         node = nextInDocument(*node, root)) {
        if (node->type() != dom::NodeType::text) starts.push_back(node->sourceOffset());
    }
    return starts;
}

}  // namespace tavisk::reference
