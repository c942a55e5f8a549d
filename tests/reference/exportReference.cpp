#include "reference/exportReference.h"

#include "reference/plainText.h"

namespace tavisk::reference {
namespace {

void removeFormulas(PlainNode& node) {
    std::vector<PlainNode> kept;
    for (PlainNode& child : node.children) {
        if (child.kind == Kind::element && child.name == u"formula") continue;
        removeFormulas(child);
        kept.push_back(child);
    }
    node.children = kept;
}

void appendFormula(PlainNode& document, std::vector<PlainAttribute> attributes) {
    document.children.back().children.push_back(
        PlainNode{Kind::element, u"formula", std::move(attributes), u"", {}});
}

// `names` receives what is appended once the walk is over: the tree is not changed while it is
// walked, and nothing appended behind `cabinet` is part of the walk.
void exportTokens(const PlainNode& node, const std::vector<PlainFormula>& catalogue,
                  std::vector<std::u16string>& names) {
    const std::u16string text = attributeOf(&node, u"value", u"");
    if (text.size() >= 2) {
        const int n = count16(text);
        int open = 0;
        for (int i = 1; i <= n; ++i) {
            if (charAt(text, i) != u'`') continue;
            if (open == 0) {
                open = i;
                continue;
            }
            const char16_t kind = charAt(text, open + 1);
            if (kind != u'~' && kind != u'!') {
                const std::u16string name = text.substr(static_cast<std::size_t>(open),
                                                        static_cast<std::size_t>(i - open - 1));
                bool known = false;
                for (const PlainFormula& entry : catalogue) {
                    if (entry.name == name) known = true;
                }
                if (!known) names.push_back(name);
            }
            open = 0;
        }
    }
    for (const PlainNode& child : node.children)
        exportTokens(child, catalogue, names);
}

}  // namespace

void prepareFormulaNodesForExport(PlainNode& document, std::vector<PlainFormula>& catalogue) {
    removeFormulas(document);
    bool codeSeen = false;
    bool typeSeen = false;
    for (const PlainFormula& entry : catalogue) {
        if (entry.name == u"code") {
            codeSeen = true;
        } else if (entry.name == u"type") {
            typeSeen = true;
        } else {
            appendFormula(document, {{u"name", entry.name},
                                     {u"description", entry.description},
                                     {u"standard", entry.standard ? u"1" : u"0"}});
        }
    }
    appendFormula(document, {{u"name", u"code"}, {u"standard", u"1"}});
    appendFormula(document, {{u"name", u"type"}, {u"standard", u"1"}});
    if (!codeSeen) catalogue.push_back(PlainFormula{u"code", u"", u"", true});
    if (!typeSeen) catalogue.push_back(PlainFormula{u"type", u"", u"", true});

    const std::vector<const PlainNode*> cabinets = elementsNamed(document, u"cabinet");
    if (cabinets.empty()) throw Failure{ErrorNumber::objectNotSet};
    std::vector<std::u16string> unknown;
    exportTokens(*cabinets.front(), catalogue, unknown);
    for (const std::u16string& name : unknown) {
        appendFormula(document, {{u"name", name}, {u"standard", u"0"}});
    }
}

}  // namespace tavisk::reference
