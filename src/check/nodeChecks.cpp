#include "check/nodeChecks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "check/attributeChecks.h"
#include "check/textChecks.h"
#include "document/helpNames.h"
#include "document/nodeKeys.h"

namespace tavisk {
namespace {

/// The attributes of a node that are looked at.
enum : std::size_t {
    titleColour,
    answerColour,
    titleFontSize,
    answerFontSize,
    titleHidden,
    answerHidden,
    style,
    spaceBefore,
    spaceAfter,
    columnBreak,
    pageBreak,
    value,
    attributeCount
};

constexpr std::array<std::string_view, attributeCount> names{
    "titlecolor", "answercolor", "titlefontsize", "answerfontsize", "titlehidden", "answerhidden",
    "style",      "spacebefore", "spaceafter",    "columnbreak",    "pagebreak",   "value"};

/// What is missing is right in any case. The texts of `value` have checks of their own.
constexpr std::array<AttributeCheck, attributeCount> checks{
    checkColour, checkColour, checkFontSize, checkFontSize, checkFlag, checkFlag,
    checkStyle,  checkGap,    checkGap,      checkFlag,     checkFlag, nullptr};

/// The first attribute of each name, null where there is none.
using Attributes = std::array<const dom::Attribute*, attributeCount>;

Attributes attributesOf(const dom::Node& node) {
    Attributes attributes{};
    for (const dom::Attribute& attribute : node.attributes()) {
        const auto found = std::ranges::find(names, attribute.baseName());
        if (found == names.end()) continue;
        const dom::Attribute*& first = attributes[static_cast<std::size_t>(found - names.begin())];
        if (first == nullptr) first = &attribute;
    }
    return attributes;
}

const char* kindOf(const dom::Node& node) {
    switch (node.type()) {
        case dom::NodeType::comment: return "A comment";
        case dom::NodeType::instruction: return "A processing instruction";
        default: return "Text outside the attributes";
    }
}

bool isSet(const dom::Attribute* flag) { return flag != nullptr && flag->text() == "1"; }

/// Children that have the local name of an earlier one beside them; mostly there are none.
using NodeSet = std::unordered_set<const dom::Node*>;

NodeSet namesakes(const dom::Node& parent) {
    NodeSet found;
    // Comparing is faster than hashing as long as there are few.
    constexpr std::size_t few = 16;
    std::array<std::string_view, few> seen;
    std::size_t count = 0;
    std::unordered_set<std::string_view> seenOfMany;
    for (const dom::Node* child = parent.firstChild(); child != nullptr; child = child->next()) {
        if (!child->isElement()) continue;
        const std::string_view name = child->baseName();
        if (count < few) {
            const auto end = seen.begin() + static_cast<std::ptrdiff_t>(count);
            if (std::find(seen.begin(), end, name) != end) {
                found.insert(child);
            } else {
                seen[count++] = name;
            }
            continue;
        }
        if (seenOfMany.empty()) seenOfMany.insert(seen.begin(), seen.end());
        if (!seenOfMany.insert(name).second) found.insert(child);
    }
    return found;
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

        if (!node.hasChildren()) return;
        const NodeSet clashing = namesakes(node);
        std::size_t count = 0;
        for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
            ++count;
            visit(*child, !clashing.empty() && clashing.contains(child));
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
        const Attributes attributes = attributesOf(*node_);
        for (std::size_t i = 0; i < attributeCount; ++i) {
            if (attributes[i] == nullptr || checks[i] == nullptr) continue;
            addIf(checks[i](attributes[i]->text()), names[i]);
        }
        const bool hasRow = node_ != &cabinet_;
        if (hasRow) checkTitle(isSet(attributes[titleHidden]));
        if (attributes[value] == nullptr) return;
        checkAnswer(attributes[value]->text(), hasRow && !isSet(attributes[answerHidden]));
    }

    void checkTitle(bool hidden) {
        std::optional<Problem> problem = checkCharacters(node_->baseName(), hidden);
        if (!problem) return;
        problem->position.reset();  // positions are those of attribute texts
        add(std::move(*problem));
    }

    void checkAnswer(std::string_view text, bool shown) {
        if (checkLength(text)) return;
        for (Problem& problem : checkTokens(text, names_, tokens_))
            add(std::move(problem), names[value]);
        addIf(checkCharacters(text, !shown && !givesHeading(*node_)), names[value]);
    }

    const dom::Node& cabinet_;
    TokenNames& names_;
    std::vector<Token> tokens_;
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
