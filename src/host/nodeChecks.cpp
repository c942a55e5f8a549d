#include "host/nodeChecks.h"

#include <array>
#include <string>
#include <utility>

#include "document/helpNames.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "host/attributeChecks.h"
#include "host/textChecks.h"
#include "platform/text.h"

namespace tavisk {
namespace {

struct Rule {
    std::string_view attribute;
    std::string_view missing;
    AttributeCheck check;
};

constexpr std::array rules{
    Rule{"titlecolor", "#000000", checkColour},
    Rule{"answercolor", "#000000", checkColour},
    Rule{"titlefontsize", "0", checkFontSize},
    Rule{"answerfontsize", "0", checkFontSize},
    Rule{"titlehidden", "0", checkFlag},
    Rule{"answerhidden", "0", checkFlag},
    Rule{"style", "0", checkStyle},
    Rule{"spacebefore", "0", checkGap},
    Rule{"spaceafter", "0", checkGap},
    Rule{"columnbreak", "0", checkFlag},
    Rule{"pagebreak", "0", checkFlag},
};

const char* kindOf(const dom::Node& node) {
    switch (node.type()) {
        case dom::NodeType::comment: return "A comment";
        case dom::NodeType::instruction: return "A processing instruction";
        default: return "Text outside the attributes";
    }
}

bool isSet(const dom::Node& node, std::string_view flag) {
    return GetAttributeValue(&node, flag, "0") == "1";
}

class NodeChecks {
public:
    NodeChecks(const dom::Node& cabinet, TokenNames& names, FindingList& findings)
        : cabinet_(cabinet), names_(names), findings_(findings) {}

    void visit(const dom::Node& node, bool nameIsTaken) {
        const std::size_t number = visited_++;
        lookAt(node, number);
        if (&node == &cabinet_) {
            checkCabinet();
        } else {
            checkPlace(nameIsTaken);
        }
        if (node.isElement()) checkElement();

        std::unordered_set<std::string_view> names;
        std::size_t count = 0;
        for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
            ++count;
            visit(*child, child->isElement() && !names.insert(child->baseName()).second);
        }
        if (count > maxCount) {
            lookAt(node, number);
            add({Severity::error, "too-many-nodes",
                 "There are " + std::to_string(count) + " nodes below this one; " +
                     std::to_string(maxCount) + " are the limit."});
        }
    }

    NodeNumbers takeFailing() { return std::move(failing_); }

private:
    void lookAt(const dom::Node& node, std::size_t number) {
        node_ = &node;
        number_ = number;
        key_.clear();
    }

    void add(Problem problem, std::string_view attribute = {}) {
        if (key_.empty()) key_ = KeyOfElement(*node_, keySeparator, true);
        if (problem.severity == Severity::error) failing_.insert(number_);
        findings_.add(node_, {problem.severity, problem.code, key_, std::string(attribute),
                              problem.position, std::move(problem.message)});
    }

    void addIf(std::optional<Problem> problem, std::string_view attribute = {}) {
        if (problem) add(std::move(*problem), attribute);
    }

    void checkCabinet() {
        if (node_->hasChildren()) return;
        add({Severity::error, "no-help-nodes",
             "The cabinet has no help nodes; it can be neither loaded nor edited."});
    }

    void checkPlace(bool nameIsTaken) {
        if (!node_->isElement()) {
            add({Severity::warning, "not-an-element",
                 std::string(kindOf(*node_)) + " stands among the help nodes; it gets a row in the "
                                               "page and in the tree."});
            return;
        }
        const std::string_view name = node_->nodeName();
        if (name == "formula" || name == "image" || name == "location") {
            add({Severity::warning, "misplaced-element",
                 "An element named " + inQuotes(name) +
                     " inside the cabinet is shown as a help node, too; it belongs beside the "
                     "cabinet."});
        }
        if (nameIsTaken) {
            add({Severity::warning, "name-clash",
                 "A node beside this one has the same name; the key leads to the first of them."});
        }
    }

    void checkElement() {
        if (node_->attributes().size() > maxCount) {
            add({Severity::error, "too-many-attributes",
                 "The element has more than " + std::to_string(maxCount) + " attributes."});
            return;
        }
        for (const dom::Attribute& attribute : node_->attributes())
            addIf(checkLength(attribute.text()), attribute.baseName());
        for (const Rule& rule : rules) {
            addIf(rule.check(GetAttributeValue(node_, rule.attribute, rule.missing)),
                  rule.attribute);
        }
        const bool hasRow = node_ != &cabinet_;
        if (hasRow) checkTitle();
        checkAnswer(hasRow && !isSet(*node_, "answerhidden"));
    }

    void checkTitle() {
        std::optional<Problem> problem =
            checkCharacters(node_->baseName(), isSet(*node_, "titlehidden"));
        if (!problem) return;
        problem->position.reset();  // positions are those of attribute texts
        add(std::move(*problem));
    }

    void checkAnswer(bool shown) {
        const std::string_view text = GetAttributeValue(node_, "value", "");
        if (checkLength(text)) return;
        for (Problem& problem : checkTokens(text, names_))
            add(std::move(problem), "value");
        addIf(checkCharacters(text, !shown && !givesHeading(*node_)), "value");
    }

    const dom::Node& cabinet_;
    TokenNames& names_;
    FindingList& findings_;
    NodeNumbers failing_;
    std::size_t visited_ = 0;
    const dom::Node* node_ = nullptr;
    std::size_t number_ = 0;
    std::string key_;
};

}  // namespace

bool givesHeading(const dom::Node& node) {
    return node.isElement() && lowerAscii(node.nodeName()) == "code";
}

NodeNumbers checkNodes(const dom::Node& cabinet, TokenNames& names, FindingList& findings) {
    NodeChecks checks(cabinet, names, findings);
    checks.visit(cabinet, false);
    return checks.takeFailing();
}

}  // namespace tavisk
