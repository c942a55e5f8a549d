// Replaces formula tokens by the formulas' values.
#pragma once

#include <string>
#include <string_view>

#include "formulas/formulaCatalogue.h"
#include "formulas/tokenTable.h"

namespace tavisk {

/// `formulaparse` for one state of the catalogue, prepared once and used for many texts.
class FormulaParser {
public:
    explicit FormulaParser(const FormulaCatalogue& catalogue);

    /// Rewrites `text` in place. Error 6 when the text with its values is over 32,767 UTF-16 code
    /// units; `text` is unspecified then.
    void parse(std::string& text);

private:
    bool empty_;
    TokenTable table_;
};

/// The text with known formulas replaced by their values and unknown ones by "Unknown". Positions
/// are not corrected after a replacement by "Unknown": later tokens can be missed or pair
/// differently, and pages depend on that. An empty catalogue leaves every text as it is.
std::string formulaparse(std::string_view fulltext, const FormulaCatalogue& catalogue);

}  // namespace tavisk
