// The rendered copy of the help tree, with every token in every attribute expanded.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formulas/formulaCatalogue.h"
#include "formulas/formulaparse.h"
#include "platform/dom.h"
#include "render/imageMarkup.h"

namespace tavisk {

/// Copies nodes of one document; the copies are detached nodes of the same document.
class NodeParser {
public:
    /// `imageTemp` ends in "/".
    NodeParser(dom::Document& document, const FormulaCatalogue& catalogue, std::string imageTemp);

    /// A copy of the node and of everything below it: line feeds are "<br>" and formula, image and
    /// overlay tokens are expanded in every attribute. Null gives an empty result.
    dom::OwnedNode nodeparse(const dom::Node* xmlnode);

    /// The same without what is below the node.
    dom::OwnedNode parseAlone(const dom::Node& xmlnode);

private:
    void expand(std::string& text);

    dom::Document& document_;
    std::string imageTemp_;
    FormulaParser formulas_;
    ImageParser images_;
    std::optional<OverlayParser> overlays_;  ///< made on first use: its sizes can be in error
    std::string text_;
};

}  // namespace tavisk
