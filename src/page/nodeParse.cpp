#include "page/nodeParse.h"

#include <utility>

#include "base/text.h"

namespace tavisk {
namespace {

/// Texts without a line feed and without a backquote that are short enough come out as they are.
bool hasNothingToExpand(std::string_view text) {
    return text.size() <= maxCount && text.find('`') == std::string_view::npos &&
           text.find('\n') == std::string_view::npos;
}

}  // namespace

NodeParser::NodeParser(dom::Document& document, const FormulaCatalogue& catalogue,
                       std::string imageTemp, OverlayMarkup overlays)
    : document_(document),
      imageTemp_(std::move(imageTemp)),
      overlayMarkup_(overlays),
      formulas_(catalogue),
      images_(document, imageTemp_) {}

dom::OwnedNode NodeParser::nodeparse(const dom::Node* xmlnode) {
    if (xmlnode == nullptr) return {};
    dom::OwnedNode copy = document_.clone(*xmlnode, false);
    std::size_t index = 0;
    for (const ShownAttribute& attribute : expandAttributes(*xmlnode)) {
        document_.setAttributeText(*copy, index++, attribute.text());
    }
    for (const dom::Node* child = xmlnode->firstChild(); child != nullptr; child = child->next()) {
        document_.append(*copy, nodeparse(child));
    }
    return copy;
}

std::span<const ShownAttribute> NodeParser::expandAttributes(const dom::Node& xmlnode) {
    const auto attributes = xmlnode.attributes();
    if (texts_.size() < attributes.size()) texts_.resize(attributes.size());
    shown_.clear();
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        std::string_view text = attributes[i].text();
        if (!overlays_ || !hasNothingToExpand(text)) {
            texts_[i].assign(text);
            expand(texts_[i]);
            text = texts_[i];
        }
        shown_.emplace_back(attributes[i].baseName(), text);
    }
    return shown_;
}

void NodeParser::expand(std::string& text) {
    if (text.find('\n') != std::string::npos) text = replaceAll(text, "\n", "<br>");
    formulas_.parse(text);
    images_.parse(text);
    if (!overlays_) overlays_.emplace(document_, imageTemp_, 1.0, overlayMarkup_);
    overlays_->parse(text);
}

}  // namespace tavisk
