#include "ui/editor/helpTree.h"

#include <algorithm>

#include "document/helpNames.h"
#include "editor/helpSession.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

wxDataViewItem itemOf(dom::Node& row) { return wxDataViewItem(&row); }

}  // namespace

HelpTree::HelpTree(wxWindow* parent) : HelpTreeRows(parent) {
    Bind(wxEVT_KEY_DOWN, &HelpTree::onKey, this);
    Bind(wxEVT_CHAR, &HelpTree::onChar, this);
}

HelpTree::~HelpTree() { detach(); }

void HelpTree::attach(HelpSession& session) {
    detach();
    session_ = &session;
    session.rowRemoved = [this](dom::Node& parent, dom::Node* next) {
        rowRemoved(parent, next ? indexAmongSiblings(*next) : parent.childCount());
        showSelection();
    };
    showRows(session.file.baseXMLNode);
    Expand(itemOf(*session.file.baseXMLNode));
    showSelection();
    if (isRow(session.selectedRow)) Expand(itemOf(*session.selectedRow));
}

void HelpTree::detach() {
    if (!session_) return;
    session_->rowRemoved = nullptr;
    session_ = nullptr;
    hideRows();
}

void HelpTree::run(const std::function<void()>& operation) {
    const Place before = currentPlace();
    try {
        operation();
    } catch (...) {
        follow(before);
        throw;
    }
    follow(before);
}

HelpTree::Place HelpTree::currentPlace() const {
    dom::Node* const node = session_->currentnode;
    if (!isRow(node)) return {};
    Place place{node, nullptr, 0, 1, node->childCount()};
    if (node != session_->file.baseXMLNode) {
        place.parent = node->parent();
        place.index = indexAmongSiblings(*node);
        place.siblings = place.parent->childCount();
    }
    return place;
}

void HelpTree::follow(const Place& before) {
    const bool moved = before.node && followRow(before);
    showSelection();
    if (moved && isRow(session_->selectedRow)) Expand(itemOf(*session_->selectedRow));
}

bool HelpTree::followRow(const Place& before) {
    dom::Node* node = session_->file.baseXMLNode;
    if (before.parent) {
        const std::size_t siblings = before.parent->childCount();
        if (siblings < before.siblings) {
            rowRemoved(*before.parent, before.index);
            return false;
        }
        if (siblings > before.siblings) {
            rowInserted(*before.parent->lastChild());
            return false;
        }
        node = before.parent->firstChild();
        for (std::size_t i = 0; i < before.index; ++i)
            node = node->next();
    }
    if (node == before.node) {
        if (node->childCount() > before.children) rowInserted(*node->lastChild());
        return false;
    }
    if (before.parent) {
        for (dom::Node* row = before.parent->firstChild(); row; row = row->next()) {
            if (row != before.node) continue;
            rowMoved(*row, before.index);
            return true;
        }
    }
    rowReplaced(*node);
    return false;
}

void HelpTree::showSelection() {
    if (isRow(session_->selectedRow)) {
        select(*session_->selectedRow);
    } else {
        selectNothing();
    }
}

bool HelpTree::TryBefore(wxEvent& event) {
    if (session_ && event.GetEventType() == wxEVT_DATAVIEW_SELECTION_CHANGED) {
        dom::Node* const row = selected();
        // One action can change the selection in several steps, or take it away.
        if (!row) showSelection();
        if (!row || row == session_->selectedRow) return true;
    }
    return HelpTreeRows::TryBefore(event);
}

void HelpTree::onKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool left = key == WXK_LEFT || key == WXK_NUMPAD_LEFT;
    const bool right = key == WXK_RIGHT || key == WXK_NUMPAD_RIGHT;
    dom::Node* const row = selected();
    if (!row || event.HasAnyModifiers() || !(left || right)) {
        event.Skip();
        return;
    }
    const bool expanded = IsExpanded(itemOf(*row));
    if (left && expanded) {
        Collapse(itemOf(*row));
    } else if (left && row != session_->file.baseXMLNode) {
        choose(*row->parent());
    } else if (right && expanded) {
        choose(*row->firstChild());
    } else if (right) {
        Expand(itemOf(*row));
    }
}

/// Typing the begin of a name selects the row. There is no box for what is typed: one would take
/// the keys of the menu, and the next click, from the tree.
void HelpTree::onChar(wxKeyEvent& event) {
    constexpr long pause = 1000;
    if (event.GetTimestamp() - lastTyped_ > pause) typed_.clear();
    const wxChar typed = event.GetUnicodeKey();
    const bool isPart = typed_.empty() ? wxIsalnum(typed) : wxIsprint(typed);
    dom::Node* const row = selected();
    if (!row || event.HasModifiers() || !isPart) {
        event.Skip();
        return;
    }
    typed_ += wxString(typed).Lower();
    lastTyped_ = event.GetTimestamp();
    const bool again = std::count(typed_.begin(), typed_.end(), typed_[0]) ==
                       static_cast<std::ptrdiff_t>(typed_.length());
    dom::Node* found = findName(typed_.length() == 1 ? below(*row) : *row, typed_);
    if (!found && again) found = findName(below(*row), typed_.Left(1));
    if (found && found != row) choose(*found);
}

dom::Node& HelpTree::below(dom::Node& row) const {
    if (row.hasChildren() && IsExpanded(itemOf(row))) return *row.firstChild();
    dom::Node* at = &row;
    while (at != session_->file.baseXMLNode && !at->next())
        at = at->parent();
    return at == session_->file.baseXMLNode ? *at : *at->next();
}

dom::Node* HelpTree::findName(dom::Node& start, const wxString& text) const {
    dom::Node* row = &start;
    do {
        if (toWx(shownName(row->baseName())).Lower().StartsWith(text)) return row;
        row = &below(*row);
    } while (row != &start);
    return nullptr;
}

}  // namespace tavisk
