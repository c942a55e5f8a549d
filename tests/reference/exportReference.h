// The export of formula definitions by the literal procedure.
#pragma once

#include <vector>

#include "reference/plainTree.h"
#include "reference/tokenReference.h"

namespace tavisk::reference {

/// Rewrites the formula elements of the document from the catalogue and from the tokens; a failure
/// leaves both half changed.
void prepareFormulaNodesForExport(PlainNode& document, std::vector<PlainFormula>& catalogue);

}  // namespace tavisk::reference
