#include "formulas/formulaparse.h"

#include "formulas/tokens.h"

namespace tavisk {
namespace {

bool isFormula(TokenKind kind) { return kind == TokenKind::formula; }

std::u16string unknown(TokenKind, std::u16string_view) { return u"Unknown"; }

}  // namespace

FormulaParser::FormulaParser(const FormulaCatalogue& catalogue) : empty_(catalogue.firstformula()) {
    for (const FormulaEntry& entry : catalogue.entries())
        table_.add(entry.name, entry.value);
}

void FormulaParser::parse(std::string& text) {
    if (empty_) return;
    table_.replaceIn(text);
    rewriteTokens(text, isFormula, unknown);
}

std::string formulaparse(std::string_view fulltext, const FormulaCatalogue& catalogue) {
    std::string text(fulltext);
    FormulaParser(catalogue).parse(text);
    return text;
}

}  // namespace tavisk
