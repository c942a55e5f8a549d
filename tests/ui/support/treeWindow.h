// A frame with nothing but the tree, and what the tree shows as text.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include "document/helpNames.h"
#include "editor/editorSession.h"
#include "ui/editor/helpTree.h"
#include "ui/support/pump.h"

namespace tavisk::test {

/// One line per row, in order, each level indented by one space. A row with children has "-" behind
/// its name when it is expanded, else "+".
inline std::string rowLine(std::size_t level, const std::string& name, bool children,
                           bool expanded) {
    return std::string(level, ' ') + name + (expanded ? " -" : children ? " +" : "") + '\n';
}

/// The rows as the native view has them, from top to bottom, whether scrolled into view or not.
std::string shownRows(HelpTree& tree);

/// A row that the control can ask for, expanded or not.
struct ModelRow {
    const dom::Node* node = nullptr;
    std::size_t level = 0;
    std::string name;
};
std::vector<ModelRow> modelRows(const HelpTree& tree);

/// What a screen reader has of the rows: "tree: ", then the name of each with "|" behind it.
std::string toldRows(const HelpTree& tree);

/// How much wider the rows are than what is seen of them.
int hiddenWidth(const HelpTree& tree);

/// The rows that the document has below rows that are expanded.
inline std::string documentRows(const HelpTree& tree, dom::Node& row, std::size_t level = 0) {
    const bool expanded = tree.IsExpanded(wxDataViewItem(&row));
    std::string lines = rowLine(level, shownName(row.baseName()), row.hasChildren(), expanded);
    for (dom::Node* child = row.firstChild(); expanded && child; child = child->next())
        lines += documentRows(tree, *child, level + 1);
    return lines;
}

/// What the toolkit complains about, such as a view that is out of step with its rows, fails the
/// test.
class ToolkitComplaints {
public:
    ToolkitComplaints();
    ToolkitComplaints(const ToolkitComplaints&) = delete;
    ToolkitComplaints& operator=(const ToolkitComplaints&) = delete;
    ~ToolkitComplaints();

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

class TreeWindow {
public:
    explicit TreeWindow(std::string_view nodes) : core(nodes) {
        frame = new wxFrame(nullptr, wxID_ANY, "tree", wxPoint(50, 50), wxSize(400, 500));
        tree = new HelpTree(frame);
        tree->attach(core.session);
        tree->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
            ++selections;
            try {
                selectNode(core.session, *tree->selected());
            } catch (const RunTimeError& caught) {
                error = caught.number();
            }
        });
        frame->Show();
        frame->Raise();
        tree->SetFocus();
        pumpUntil([this] { return frame->IsActive() && tree->HasFocus(); });
        pumpPending();
    }
    TreeWindow(const TreeWindow&) = delete;
    TreeWindow& operator=(const TreeWindow&) = delete;
    ~TreeWindow() {
        tree->detach();
        delete frame;
        pumpPending();
    }

    std::string rows() const { return shownRows(*tree); }
    /// Key of the row that the control has selected; empty while there is none.
    std::string selectedKey() const {
        dom::Node* const row = tree->selected();
        return row ? KeyOfTreeNode(*core.session.file.baseXMLNode, *row, keySeparator) : "";
    }

    void expand(std::string_view key) { tree->Expand(item(key)); }
    void collapse(std::string_view key) { tree->Collapse(item(key)); }
    bool isExpanded(std::string_view key) { return tree->IsExpanded(item(key)); }
    bool isVisible(std::string_view key) {
        return tree->GetItemRect(item(key), nullptr).GetHeight() > 0;
    }
    wxDataViewItem item(std::string_view key) { return wxDataViewItem(&core.row(key)); }

    /// Selects a row of the session and runs one of the commands on it.
    template <class Command>
    void run(std::string_view key, Command command) {
        core.select(key);
        tree->run([&] { command(core.session, core.dialogs); });
        pumpPending();
    }

    /// Real input.
    void click(std::string_view key) {
        const wxRect place = tree->GetItemRect(item(key), nullptr);
        user.MouseMove(tree->ClientToScreen(place.GetPosition() + wxPoint(5, place.height / 2)));
        user.MouseClick();
    }
    void press(int key, int modifiers = 0) { user.Char(key, modifiers); }
    bool waitForSelection(std::string_view key) {
        return pumpUntil([&] { return selectedKey() == key; }, std::chrono::seconds(10));
    }

    mutable EditorSession core;
    wxFrame* frame = nullptr;
    HelpTree* tree = nullptr;
    wxUIActionSimulator user;
    int selections = 0;  ///< how often the handler ran
    int error = 0;       ///< that the handler ended in

private:
    ToolkitComplaints complaints_;
};

}  // namespace tavisk::test
