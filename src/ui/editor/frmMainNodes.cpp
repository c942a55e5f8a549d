// Selecting nodes, and the commands of the node menu and the toolbar.
#include <wx/dataview.h>

#include "editor/nodeCommands.h"
#include "ui/editor/frmMain.h"
#include "ui/editor/helpTree.h"

namespace tavisk {

void frmMain::bindNodes() {
    controls.TreeXML->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED,
                           [this](wxDataViewEvent&) { act([this] { TreeXML_NodeClick(); }); });
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const auto run = [this, i](wxCommandEvent&) { act([this, i] { runNodeCommand(i); }); };
        Bind(wxEVT_MENU, run, menuId(i));
        Bind(wxEVT_MENU, run, toolId(i));
    }
}

void frmMain::TreeXML_NodeClick() {
    if (dom::Node* const row = controls.TreeXML->selected()) {
        selectNode(session_, *row);
    } else if (session_.selectedRow) {
        controls.TreeXML->select(*session_.selectedRow);
    }
}

void frmMain::runNodeCommand(std::size_t index) {
    controls.TreeXML->run([&] { nodeCommands()[index].run(session_, dialogs); });
}

}  // namespace tavisk
