#include "formulas/formulaExport.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/error.h"
#include "document/xmlParse.h"
#include "formulas/tokens.h"

namespace tavisk {

namespace {

constexpr std::string_view formulaElement = "formula";
constexpr std::string_view codeName = "code";
constexpr std::string_view typeName = "type";

bool isFormula(const dom::Node& node) {
    return node.isElement() && node.nodeName() == formulaElement;
}

/// Collects the names of formula tokens that nobody knows.
class UnknownTokens {
public:
    enum class Formulas { scan, skip };

    UnknownTokens(const FormulaCatalogue& catalogue, Formulas formulas) : formulas_(formulas) {
        known_.reserve(catalogue.entries().size() + 2);
        for (const FormulaEntry& entry : catalogue.entries())
            known_.insert(entry.name);
    }

    void know(std::string_view name) { known_.insert(name); }
    bool knows(std::string_view name) const { return known_.contains(name); }

    void collect(const dom::Node& node) {
        if (formulas_ == Formulas::skip && isFormula(node)) return;
        const std::string_view text = GetAttributeValue(&node, "value", "");
        scanTokens(text, tokens_);
        for (const Token& token : tokens_) {
            if (token.kind == TokenKind::image || token.kind == TokenKind::overlay) continue;
            const std::string_view name = tokenBody(text, token);
            if (!knows(name)) names_.emplace_back(name);
        }
        for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
            collect(*child);
        }
    }

    std::vector<std::string> take() { return std::move(names_); }

private:
    Formulas formulas_;
    std::unordered_set<std::string_view> known_;
    std::vector<Token> tokens_;
    std::vector<std::string> names_;
};

/// The first `cabinet` element that stands in no formula element. Error 91 when there is none.
const dom::Node& cabinetOutsideFormulas(const dom::Document& document) {
    for (const dom::Node* cabinet : document.elementsByTagName("cabinet")) {
        const dom::Node* above = cabinet->parent();
        while (above != nullptr && !isFormula(*above))
            above = above->parent();
        if (above == nullptr) return *cabinet;
    }
    raise(ErrorNumber::objectNotSet);
}

/// The elements that export writes, in their order.
class FreshFormulas {
public:
    explicit FreshFormulas(dom::Document& document) : document_(document) {}

    void add(std::string_view name, const std::string* description, bool standard) {
        dom::OwnedNode formula = document_.createElement(formulaElement);
        document_.addAttribute(*formula, "name", name);
        if (description != nullptr) {
            document_.addAttribute(*formula, "description", *description);
        }
        document_.addAttribute(*formula, "standard", standard ? "1" : "0");
        elements_.push_back(std::move(formula));
    }

    void appendTo(dom::Node& parent) {
        for (dom::OwnedNode& formula : elements_)
            document_.append(parent, std::move(formula));
    }

private:
    dom::Document& document_;
    std::vector<dom::OwnedNode> elements_;
};

}  // namespace

std::vector<std::string> prepareFormulaNodeForExport(const dom::Node& node,
                                                     const FormulaCatalogue& catalogue) {
    UnknownTokens unknown(catalogue, UnknownTokens::Formulas::scan);
    unknown.collect(node);
    return unknown.take();
}

void prepareFormulaNodesForExport(dom::Document& document, FormulaCatalogue& catalogue) {
    // Everything that can fail comes first, so that an error leaves no trace.
    const dom::Node& cabinet = cabinetOutsideFormulas(document);
    dom::Node& parent = *document.lastChild();
    if (!parent.isElement()) raise(ErrorNumber::invalidArgument);

    UnknownTokens unknown(catalogue, UnknownTokens::Formulas::skip);
    FormulaCatalogue extended;
    const bool extend = !unknown.knows(codeName) || !unknown.knows(typeName);
    if (extend) {
        extended = catalogue;
        for (const std::string_view name : {codeName, typeName}) {
            if (!unknown.knows(name)) extended.add({std::string(name), "", "", true});
            unknown.know(name);
        }
    }
    unknown.collect(cabinet);

    FreshFormulas fresh(document);
    for (const FormulaEntry& entry : catalogue.entries()) {
        if (entry.name == codeName || entry.name == typeName) continue;
        fresh.add(entry.name, &entry.description, entry.standard);
    }
    fresh.add(codeName, nullptr, true);
    fresh.add(typeName, nullptr, true);
    for (const std::string& name : unknown.take())
        fresh.add(name, nullptr, false);
    const std::vector<dom::Node*> old = document.elementsByTagName(formulaElement);

    // From the last to the first: a formula inside another one goes before it.
    std::for_each(old.rbegin(), old.rend(), [&](dom::Node* formula) { document.remove(*formula); });
    fresh.appendTo(parent);
    if (extend) catalogue = std::move(extended);
}

}  // namespace tavisk
