#include "formulas/formulaCatalogue.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "document/xmlParse.h"
#include "xml/xmlCharacters.h"

namespace tavisk {

namespace {

constexpr const char* addTitle = "Add Formula";

}  // namespace

void FormulaCatalogue::load(const dom::Document& document) {
    entries_.clear();
    for (const dom::Node* formula : document.elementsByTagName("formula")) {
        FormulaEntry entry;
        entry.standard = GetAttributeValue(formula, "standard", "0") == "1";
        entry.name = GetAttributeValue(formula, "name", "");
        entry.description = GetAttributeValue(formula, "description", "");
        entry.value = GetAttributeValue(formula, "value", "");
        add(std::move(entry));
    }
}

bool FormulaCatalogue::contains(std::string_view name) const noexcept {
    return std::any_of(entries_.begin(), entries_.end(),
                       [name](const FormulaEntry& entry) { return entry.name == name; });
}

std::string FormulaCatalogue::descriptionOf(std::string_view name) const {
    const auto found =
        std::find_if(entries_.begin(), entries_.end(),
                     [name](const FormulaEntry& entry) { return entry.name == name; });
    if (found == entries_.end() || found->description.empty()) {
        return "Description: No help exists for the selected formula.";
    }
    return "Description: " + found->description;
}

std::string FormulaCatalogue::promptAndAdd(Dialogs& dialogs) {
    std::string name = dialogs.inputBox("Please enter the formula", addTitle, "");
    if (name.empty()) return {};
    std::string description =
        dialogs.inputBox("Please enter a description for this formula", addTitle, name);
    if (description.empty()) return {};
    if (contains(name)) {
        dialogs.messageBox({"This name is already in use", addTitle, BoxStyle::okInformation});
        return {};
    }
    // Nothing removes an entry again, and one that cannot be written would make every save fail.
    if (!isXmlText(name) || !isXmlText(description)) raise(ErrorNumber::invalidArgument);
    add({name, "unknown formula", std::move(description), true});
    return name;
}

void FormulaCatalogue::announceAdded(Dialogs& dialogs) {
    dialogs.messageBox({"Formula added successfully", addTitle, BoxStyle::ok});
}

std::string formulaToken(std::string_view name) {
    std::string token = "`";
    token += name;
    token += '`';
    return token;
}

}  // namespace tavisk
