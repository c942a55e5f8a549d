#include "ui/editor/helpTreeModel_msw.h"
#include "ui/support/asked_msw.h"
#include "ui/support/treeWindow.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {
namespace {

/// The rows that the control has are not for everybody.
struct Rows : HelpTreeRows {
    static wxDataViewItem at(const HelpTreeRows& tree, unsigned row) {
        return (tree.*(&Rows::GetItemByRow))(row);
    }
};

void addRows(const HelpTreeModel& model, const wxDataViewItem& parent, std::size_t level,
             std::vector<ModelRow>& rows) {
    wxDataViewItemArray children;
    model.GetChildren(parent, children);
    for (const wxDataViewItem& child : children) {
        wxVariant name;
        model.GetValue(name, child, 0);
        rows.push_back({nodeOf(child), level, utf8Of(name.GetString())});
        if (model.IsContainer(child)) addRows(model, child, level + 1, rows);
    }
}

}  // namespace

std::string shownRows(HelpTree& tree) {
    std::string lines;
    const wxDataViewModel& model = *tree.GetModel();
    for (unsigned row = 0; const wxDataViewItem item = Rows::at(tree, row); ++row) {
        std::size_t level = 0;
        for (wxDataViewItem above = model.GetParent(item); above.IsOk();
             above = model.GetParent(above))
            ++level;
        wxVariant name;
        model.GetValue(name, item, 0);
        // As the control has it, whatever the tree says.
        const bool expanded = tree.wxDataViewCtrl::IsExpanded(item);
        lines += rowLine(level, utf8Of(name.GetString()), model.IsContainer(item), expanded);
    }
    return lines;
}

std::vector<ModelRow> modelRows(const HelpTree& tree) {
    // Another model: the tree's own one remembers what its control was told.
    dom::Node* const top = dynamic_cast<const HelpTreeModel&>(*tree.GetModel()).top();
    const wxObjectDataPtr<HelpTreeModel> model(new HelpTreeModel(top));
    std::vector<ModelRow> rows;
    addRows(*model, wxDataViewItem(), 0, rows);
    return rows;
}

std::string toldRows(const HelpTree& tree) {
    const Asked asked(static_cast<HWND>(tree.GetHandle()));
    std::string names = asked.role() == ROLE_SYSTEM_OUTLINE ? "tree: " : "no tree: ";
    for (LONG row = 1; row <= asked.childCount(); ++row)
        names += asked.name(row) + "|";
    return names;
}

int hiddenWidth(const HelpTree& tree) {
    return tree.GetColumn(0)->GetWidth() - tree.GetClientSize().x;
}

// Those of wxWidgets fail every test.
struct ToolkitComplaints::Native {};
ToolkitComplaints::ToolkitComplaints() = default;
ToolkitComplaints::~ToolkitComplaints() = default;

}  // namespace tavisk::test
