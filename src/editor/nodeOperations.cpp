#include "editor/nodeOperations.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "document/helpNames.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"
#include "xml/domNamespaces.h"

namespace tavisk {

namespace {

constexpr std::string_view documentElementName = "cabinetinfo";

bool isNamed(const dom::Node* node, std::string_view name) noexcept {
    return node && node->baseName() == name;
}

/// Nothing when the user gives up. `name` is what was typed, or found, so far.
std::optional<std::string> acceptedName(Dialogs& dialogs, std::string name, const dom::Node& parent,
                                        std::string_view firstLine) {
    const std::string prompt =
        std::string(firstLine) +
        "\r\n\r\nName must be unique to the branch it is in, start with a letter, and contain only "
        "letters, numbers, spaces and -'s.";
    while (!IsValidNodeName(name, &parent)) {
        name = dialogs.inputBox(prompt, "Bad Name", name);
        if (name.empty()) return std::nullopt;
    }
    return name;
}

/// What was typed at `prompt`, corrected until it can be used below `parent`; nothing when the user
/// gives up or types `unchanged`.
std::optional<std::string> typedName(Dialogs& dialogs, std::string_view prompt,
                                     const std::string& unchanged, const dom::Node& parent) {
    // Adding asks under the title of renaming too; users know it so.
    std::string name = dialogs.inputBox(prompt, "Rename Node", unchanged);
    if (name == unchanged || name.empty()) return std::nullopt;
    return acceptedName(dialogs, std::move(name), parent, "Invalid name, please re-enter name:");
}

TreeChange addNode(HelpSession& session, dom::Node& parent, Dialogs& dialogs) {
    const auto name = typedName(dialogs, "Enter the name for the new node:", "", parent);
    if (!name) return {};
    dom::Document& document = *session.file.articledoc;
    dom::Node& node = document.append(parent, document.createElement(elementName(*name)));
    selectNode(session, node);
    return {TreeChange::Kind::added, &node, &parent};
}

/// The sibling |steps| places away, or the last one on the way there; null when there is none.
dom::Node* siblingAt(const dom::Node& node, int steps) noexcept {
    const bool up = steps > 0;
    dom::Node* found = nullptr;
    const dom::Node* from = &node;
    for (int left = up ? steps : -steps; left > 0; --left) {
        dom::Node* const neighbour = up ? from->previous() : from->next();
        if (!neighbour) break;
        from = found = neighbour;
    }
    return found;
}

/// Everything between the node and its new place moves one place towards the old one.
void moveTo(dom::Document& document, dom::Node& node, dom::Node& place, bool up) {
    dom::OwnedNode hole = document.createData(dom::NodeType::comment, "");
    const dom::Node* const end = hole.get();
    dom::OwnedNode carried = document.replace(node, std::move(hole));
    dom::Node* at = &place;
    while (at) {
        dom::Node* const following = at == end ? nullptr : up ? at->next() : at->previous();
        carried = document.replace(*at, std::move(carried));
        at = following;
    }
}

/// Building the tree again selects the row that the selection's key leads to.
void selectAgain(HelpSession& session, const std::string& key) {
    dom::Node* const row = findStartNode(*session.file.baseXMLNode, key);
    session.selectedRow = row ? row : session.currentnode;
}

}  // namespace

dom::OwnedNode copyWithName(dom::Document& document, const dom::Node& element,
                            std::string_view name) {
    dom::OwnedNode copy = document.createElement(elementName(name));
    // A text or comment has no attributes to walk; a copy would lose what it says.
    if (!element.isElement()) raise(ErrorNumber::objectNotSet);
    for (const dom::Attribute& attribute : element.attributes())
        document.addAttribute(*copy, attribute.name(), attribute.text());
    for (const dom::Node* child = element.firstChild(); child; child = child->next())
        document.append(*copy, document.clone(*child, true));
    return copy;
}

TreeChange addSibling(HelpSession& session, Dialogs& dialogs) {
    if (!session.currentnode) return {};
    if (session.currentnode == session.file.baseXMLNode) {
        dialogs.messageBox(
            {"Cannot add a node beside the base-node", "Error", BoxStyle::okCritical});
        return {};
    }
    dom::Node* const parent = session.currentnode->parent();
    return parent ? addNode(session, *parent, dialogs) : TreeChange{};
}

TreeChange addChild(HelpSession& session, Dialogs& dialogs) {
    return session.currentnode ? addNode(session, *session.currentnode, dialogs) : TreeChange{};
}

TreeChange renameNode(HelpSession& session, Dialogs& dialogs) {
    dom::Node* const element = session.currentnode;
    if (!element || !element->parent()) return {};
    dom::Node& parent = *element->parent();

    const auto name = typedName(
        dialogs, "Enter the new name for the node:", shownName(element->baseName()), parent);
    if (!name) return {};
    dom::OwnedNode renamed = copyWithName(*session.file.articledoc, *element, *name);
    dom::Node* const node = renamed.get();
    const dom::OwnedNode old = session.file.articledoc->replace(*element, std::move(renamed));
    if (session.file.baseXMLNode == element) session.file.baseXMLNode = node;
    session.currentnode = session.selectedRow = node;
    return {TreeChange::Kind::renamed, node, &parent};
}

TreeChange deleteNode(HelpSession& session, Dialogs& dialogs) {
    dom::Node* const element = session.currentnode;
    if (!element || !element->parent()) return {};
    dom::Node& parent = *element->parent();

    // The base node is known by itself too: the document element may be spelt in capitals.
    if (element == session.file.baseXMLNode || isNamed(&parent, documentElementName)) {
        dialogs.messageBox({"Cannot delete base-node", "Error", BoxStyle::okCritical});
        return {};
    }
    const bool onlyChild = parent.firstChild() == parent.lastChild();
    if (onlyChild && isNamed(parent.parent(), documentElementName)) {
        dialogs.messageBox({"Cannot delete last node", "Error", BoxStyle::okCritical});
        return {};
    }
    if (element->hasChildren() &&
        dialogs.messageBox(
            {"All child nodes will also be deleted. Are you sure you want to do this?",
             "Warning...", BoxStyle::okCancelQuestion}) == Answer::cancel) {
        return {};
    }

    // With names that are not unique the selected row can be another one than the element's.
    dom::Node* const rowAbove = session.selectedRow->parent();
    const dom::OwnedNode removed = session.file.articledoc->remove(*element);
    session.currentnode = nullptr;  // nothing may point at it, even if selecting fails
    selectNode(session, rowAbove ? *rowAbove : parent);
    return {TreeChange::Kind::removed, nullptr, &parent};
}

TreeChange moveNode(HelpSession& session, int steps, Dialogs& dialogs) {
    dom::Node* const element = session.currentnode;
    if (!element || steps == 0) return {};
    const bool up = steps > 0;
    dom::Node* const place = siblingAt(*element, steps);
    if (!place) {
        // One text ends in a full stop, the other does not.
        dialogs.messageBox(
            {up ? "This node is already at the top" : "This node is already at the bottom.",
             "Cannot Move", BoxStyle::okInformation});
        return {};
    }
    const std::string key =
        KeyOfTreeNode(*session.file.baseXMLNode, *session.selectedRow, keySeparator);
    moveTo(*session.file.articledoc, *element, *place, up);
    selectAgain(session, key);
    return {TreeChange::Kind::moved, element, element->parent()};
}

TreeChange cutNode(HelpSession& session, Dialogs& dialogs) {
    copyNode(session);
    return deleteNode(session, dialogs);
}

void copyNode(HelpSession& session) {
    if (!session.currentnode) raise(ErrorNumber::objectNotSet);
    std::vector<dom::Namespace> namespaces = dom::namespacesFromAbove(*session.currentnode);
    session.clipboardnode = session.file.articledoc->clone(*session.currentnode, true);
    session.clipboardNamespaces = std::move(namespaces);
}

TreeChange pasteNode(HelpSession& session, Dialogs& dialogs) {
    dom::Node* const parent = session.currentnode;
    if (!parent || !session.clipboardnode) return {};
    const dom::Node& copied = *session.clipboardnode;
    const auto name = acceptedName(dialogs, shownName(copied.baseName()), *parent,
                                   "Invalid name, please rename:");
    if (!name) return {};
    dom::Document& document = *session.file.articledoc;
    dom::OwnedNode copy = copyWithName(document, copied, *name);
    for (const dom::Namespace& needed : session.clipboardNamespaces) {
        if (dom::namespaceOf(*parent, needed.prefix) != needed.address)
            document.addAttribute(*copy, "xmlns:" + needed.prefix, needed.address);
    }
    dom::Node& node = document.append(*parent, std::move(copy));
    return {TreeChange::Kind::pasted, &node, parent};
}

}  // namespace tavisk
