#include "reference/plainTree.h"

namespace tavisk::reference {

std::u16string localName(const std::u16string& name) {
    const std::size_t colon = name.find(u':');
    return colon == std::u16string::npos ? name : name.substr(colon + 1);
}

std::u16string baseName(const PlainNode& node) {
    if (node.kind == Kind::element) return localName(node.name);
    if (node.kind == Kind::instruction) return node.name;
    return u"";
}

std::vector<const PlainNode*> elementsNamed(const PlainNode& from, const std::u16string& name) {
    std::vector<const PlainNode*> found;
    for (const PlainNode& child : from.children) {
        if (child.kind == Kind::element && child.name == name) found.push_back(&child);
        const std::vector<const PlainNode*> below = elementsNamed(child, name);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

std::u16string attributeOf(const PlainNode* node, const std::u16string& name,
                           const std::u16string& fallback) {
    if (node == nullptr) return fallback;
    for (const PlainAttribute& attribute : node->attributes) {
        if (localName(attribute.name) == name) return attribute.text;
    }
    return fallback;
}

}  // namespace tavisk::reference
