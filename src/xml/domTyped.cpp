#include "xml/domTyped.h"

#include <algorithm>

#include "base/base64.h"
#include "base/error.h"
#include "xml/domNamespaces.h"

namespace tavisk::dom {
namespace {

constexpr std::string_view dataTypes = "urn:schemas-microsoft-com:datatypes";
constexpr std::string_view base64Type = "bin.base64";

bool hasBase64Type(const Node& element) {
    return std::ranges::any_of(element.attributes(), [&](const Attribute& attribute) {
        const std::string_view name = attribute.name();
        return attribute.baseName() == "dt" && name.size() > 3 && attribute.text() == base64Type &&
               namespaceOf(element, name.substr(0, name.size() - 3)) == dataTypes;
    });
}

void setAttribute(Document& document, Node& element, std::string_view name, std::string_view text) {
    const auto attributes = element.attributes();
    const auto found = std::ranges::find(attributes, name, &Attribute::name);
    if (found == attributes.end()) {
        document.addAttribute(element, name, text);
    } else {
        document.setAttributeText(element, static_cast<std::size_t>(found - attributes.begin()),
                                  text);
    }
}

bool holdsText(const Node& node) {
    return node.type() == NodeType::text || node.type() == NodeType::cdata;
}

}  // namespace

std::string content(const Node& element) {
    std::string text;
    for (const Node* node = nextInDocument(element, element); node != nullptr;
         node = nextInDocument(*node, element)) {
        if (holdsText(*node)) text += node->data();
    }
    return text;
}

void setBase64Value(Document& document, Node& element, std::string_view bytes) {
    if (!hasBase64Type(element)) {
        setAttribute(document, element, "xmlns:dt", dataTypes);
        setAttribute(document, element, "dt:dt", base64Type);
    }
    document.setContent(element, encodeBase64(bytes));
}

void base64Value(const Node& element, std::string& bytes) {
    const Node* const only = element.firstChild();
    const bool simple = only != nullptr && only->next() == nullptr && holdsText(*only);
    const bool good =
        simple ? decodeBase64(only->data(), bytes) : decodeBase64(content(element), bytes);
    if (!good) raise(ErrorNumber::typeMismatch);
}

}  // namespace tavisk::dom
