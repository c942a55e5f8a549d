// The reference's own document tree: values only, no sharing, nothing clever.
#pragma once

#include <string>
#include <vector>

namespace tavisk::reference {

enum class Kind { document, documentType, element, text, cdata, comment, instruction };

struct PlainAttribute {
    std::u16string name;  ///< with its prefix
    std::u16string text;

    bool operator==(const PlainAttribute&) const = default;
};

struct PlainNode {
    Kind kind = Kind::element;
    std::u16string name;  ///< an element's name with its prefix, an instruction's target
    std::vector<PlainAttribute> attributes;
    std::u16string data;  ///< of every kind but elements; a document type as written
    std::vector<PlainNode> children;

    bool operator==(const PlainNode&) const = default;
};

/// The part behind the prefix.
std::u16string localName(const std::u16string& name);

/// Empty for everything but elements and instructions.
std::u16string baseName(const PlainNode& node);

/// Elements of that name with its prefix below `from`, in document order.
std::vector<const PlainNode*> elementsNamed(const PlainNode& from, const std::u16string& name);

/// The first attribute whose name without prefix is `name`; `fallback` when there is none.
std::u16string attributeOf(const PlainNode* node, const std::u16string& name,
                           const std::u16string& fallback);

}  // namespace tavisk::reference
