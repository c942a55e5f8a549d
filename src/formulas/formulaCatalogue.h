// The formulas that a help document knows: loading, describing and adding them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "xml/dom.h"

namespace tavisk {

struct FormulaEntry {
    std::string name;
    std::string value;
    std::string description;
    bool standard = false;
};

/// Entries stay in the order of loading and adding and are never removed.
class FormulaCatalogue {
public:
    /// True while there is no entry.
    bool firstformula() const noexcept { return entries_.empty(); }
    const std::vector<FormulaEntry>& entries() const noexcept { return entries_; }

    /// Reads every `formula` element of the document.
    void load(const dom::Document& document);
    void add(FormulaEntry entry) { entries_.push_back(std::move(entry)); }
    bool contains(std::string_view name) const noexcept;

    /// What `lblFormulaHelp` shows for the name chosen in the list.
    std::string descriptionOf(std::string_view name) const;

    /// Asks for name and description and adds a standard formula, unless the user gives up or is
    /// refused. `listed` is called with the new name before the success message, so that the list
    /// shows it by then. Error 5, and nothing added, for what XML cannot hold.
    template <class Listed>
    void addByPrompt(Dialogs& dialogs, Listed listed) {
        if (const std::string name = promptAndAdd(dialogs); !name.empty()) {
            listed(name);
            announceAdded(dialogs);
        }
    }

private:
    std::string promptAndAdd(Dialogs& dialogs);
    static void announceAdded(Dialogs& dialogs);

    std::vector<FormulaEntry> entries_;
};

/// A formula token: the name between backquotes.
std::string formulaToken(std::string_view name);

}  // namespace tavisk
