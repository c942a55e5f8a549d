// Rewrites the document's formula elements from the catalogue and from the tokens in the texts.
#pragma once

#include <string>
#include <vector>

#include "formulas/formulaCatalogue.h"
#include "xml/dom.h"

namespace tavisk {

/// Names of the unknown formula tokens in `value` of `node` and of everything below it, in document
/// order, each as often as it occurs. An external image token counts as a formula here. Error 6
/// for a text over 32,767 UTF-16 code units.
std::vector<std::string> prepareFormulaNodeForExport(const dom::Node& node,
                                                     const FormulaCatalogue& catalogue);

/// Removes all formula elements and appends fresh ones to the document's last child: the
/// catalogue's, "code", "type", then one per unknown token below `cabinet`; "code" and "type" enter
/// the catalogue. Error 91 when no `cabinet` would be left, 6 for a text over the limit. Document
/// and catalogue are unchanged after an error.
void prepareFormulaNodesForExport(dom::Document& document, FormulaCatalogue& catalogue);

}  // namespace tavisk
