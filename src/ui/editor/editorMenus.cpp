// The menus and the toolbar of the editor window.
#include <algorithm>
#include <array>
#include <vector>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/toolbar.h>

#include "editor/nodeCommands.h"
#include "ui/editor/editorControls.h"
#include "ui/editor/editorParts.h"
#include "ui/editor/icons.h"
#include "ui/toolkit/accessible.h"

namespace tavisk {
namespace {

constexpr int iconSize = 24;
constexpr int firstMenuId = wxID_HIGHEST + 1;
constexpr int firstToolId = firstMenuId + 100;

/// Buttons of the toolbar that start a new group.
constexpr std::array groupStarts{3, 6};

struct ToolEntry {
    int id;
    const NodeCommand* command;
};

std::vector<ToolEntry> toolEntries() {
    std::vector<ToolEntry> entries;
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        if (nodeCommands()[i].toolIndex > 0) entries.push_back({toolId(i), &nodeCommands()[i]});
    }
    std::ranges::sort(entries, {}, [](const ToolEntry& entry) { return entry.command->toolIndex; });
    return entries;
}

/// The pictures are in the colours of the theme, which the user may change at any time.
void showIcons(wxToolBar& toolbar) {
    for (const auto& [id, command] : toolEntries()) {
        toolbar.SetToolNormalBitmap(id, icon(command->icon, iconSize));
        toolbar.SetToolDisabledBitmap(id, disabledIcon(command->icon, iconSize));
    }
}

}  // namespace

int menuId(std::size_t index) { return firstMenuId + static_cast<int>(index); }
int toolId(std::size_t index) { return firstToolId + static_cast<int>(index); }

void buildMenus(wxFrame& frame, EditorControls& controls) {
    auto* const mnuFile = new wxMenu;
    controls.cmdRefresh = mnuFile->Append(wxID_ANY, "&Refresh");
    controls.cmdExit = mnuFile->Append(wxID_ANY, "E&xit");

    auto* const mnuNodes = new wxMenu;
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        if (!command.name) continue;
        wxString text = command.caption;
        if (*command.shortcut) text << '\t' << command.shortcut;
        mnuNodes->Append(menuId(i), text);
    }

    auto* const bar = new wxMenuBar;
    bar->Append(mnuFile, "&File");
    bar->Append(mnuNodes, "&Nodes");
    frame.SetMenuBar(bar);
}

void buildToolbar(wxFrame& frame, EditorControls& controls) {
    wxToolBar* const toolbar =
        frame.CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_NODIVIDER, wxID_ANY, "toolNodes");
    toolbar->SetToolBitmapSize(toolbar->FromDIP(wxSize(iconSize, iconSize)));
    for (const auto& [id, command] : toolEntries()) {
        if (std::ranges::count(groupStarts, command->toolIndex)) toolbar->AddSeparator();
        toolbar->AddTool(id, command->toolTip, icon(command->icon, iconSize),
                         disabledIcon(command->icon, iconSize), wxITEM_NORMAL, command->toolTip);
    }
    toolbar->Realize();
    toolbar->Bind(wxEVT_SYS_COLOUR_CHANGED, [toolbar](wxSysColourChangedEvent& event) {
        showIcons(*toolbar);
        event.Skip();
    });
    controls.toolNodes = toolbar;
}

}  // namespace tavisk
