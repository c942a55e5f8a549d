// The rendered copy of the help tree, with every token in every attribute expanded.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "formulas/formulaCatalogue.h"
#include "formulas/formulaparse.h"
#include "page/imageMarkup.h"
#include "page/nodeRow.h"
#include "xml/dom.h"

namespace tavisk {

/// Copies nodes of one document; the copies are detached nodes of the same document.
class NodeParser {
public:
    /// `imageTemp` ends in "/".
    NodeParser(dom::Document& document, const FormulaCatalogue& catalogue, std::string imageTemp,
               OverlayMarkup overlays = OverlayMarkup::vmlToo);

    /// A copy of the node and of everything below it: line feeds are "<br>" and formula, image and
    /// overlay tokens are expanded in every attribute. Null gives an empty result.
    dom::OwnedNode nodeparse(const dom::Node* xmlnode);

    /// What `nodeparse` puts into the attributes of the node alone. Holds until the next call.
    std::span<const ShownAttribute> expandAttributes(const dom::Node& xmlnode);

private:
    void expand(std::string& text);

    dom::Document& document_;
    std::string imageTemp_;
    OverlayMarkup overlayMarkup_;
    FormulaParser formulas_;
    ImageParser images_;
    std::optional<OverlayParser> overlays_;  ///< made on first use: its sizes can be in error
    std::vector<std::string> texts_;         ///< expanded; one per attribute, used again
    std::vector<ShownAttribute> shown_;
};

}  // namespace tavisk
