#include "xml/domNamespaces.h"

#include <algorithm>
#include <utility>

namespace tavisk::dom {
namespace {

constexpr std::string_view declarations = "xmlns:";

/// Empty when the element does not declare the prefix.
std::string_view declaredOn(const Node& element, std::string_view prefix) {
    for (const Attribute& attribute : element.attributes()) {
        if (attribute.name().starts_with(declarations) && attribute.baseName() == prefix)
            return attribute.text();
    }
    return {};
}

std::string_view prefixOf(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

class FromAbove {
public:
    explicit FromAbove(const Node& top) : top_(top) {}

    void useAttributes(const Node& element) {
        for (const Attribute& attribute : element.attributes())
            use(element, prefixOf(attribute.name()));
    }

    void use(const Node& element, std::string_view prefix) {
        if (prefix.empty() || prefix == "xml" || prefix == "xmlns") return;
        if (std::ranges::find(found, prefix, &Namespace::prefix) != found.end()) return;
        const Node* at = &element;
        while (at != top_.parent() && declaredOn(*at, prefix).empty())
            at = at->parent();
        if (at == nullptr || at != top_.parent()) return;
        found.push_back({std::string(prefix), std::string(namespaceOf(*at, prefix))});
    }

    std::vector<Namespace> found;

private:
    const Node& top_;
};

}  // namespace

std::string_view namespaceOf(const Node& element, std::string_view prefix) {
    for (const Node* at = &element; at != nullptr; at = at->parent()) {
        const std::string_view address = declaredOn(*at, prefix);
        if (!address.empty()) return address;
    }
    return {};
}

std::vector<Namespace> namespacesFromAbove(const Node& top) {
    FromAbove above(top);
    above.useAttributes(top);
    for (const Node* node = nextInDocument(top, top); node != nullptr;
         node = nextInDocument(*node, top)) {
        if (!node->isElement()) continue;
        above.use(*node, prefixOf(node->nodeName()));
        above.useAttributes(*node);
    }
    return std::move(above.found);
}

}  // namespace tavisk::dom
