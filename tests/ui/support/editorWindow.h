// The real editor window on a document whose files are in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/menu.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "editor/editorSession.h"
#include "editor/nodeCommands.h"
#include "ui/editor/answerBox.h"
#include "ui/editor/frmMain.h"
#include "ui/editor/helpTree.h"
#include "ui/editor/pictureBox.h"
#include "ui/support/dialogAnswers.h"
#include "ui/support/pump.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {

/// A whole document.
struct HelpXml {
    std::string text;
};

/// Shown, not modal, so that a test can go on. What is clicked runs its handler before the call
/// returns.
class EditorWindow {
public:
    /// `nodes` stand in the `cabinet` element, `elements` behind it.
    explicit EditorWindow(std::string_view nodes, std::string_view elements = {})
        : EditorWindow(HelpXml{"<cabinetinfo><cabinet>" + std::string(nodes) + "</cabinet>" +
                               std::string(elements) + "</cabinetinfo>"}) {}
    explicit EditorWindow(const HelpXml& document) {
        const auto refusal = core.load(document.text);
        if (refusal) throw std::runtime_error("the test's own document: " + refusal->reason);
        window = new frmMain(core.session);
        window->Show();
        pumpUntil([this] { return window->IsShownOnScreen(); });
        pumpPending();
    }
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;
    ~EditorWindow() { delete window; }

    EditorControls& controls() { return window->controls; }
    HelpSession& session() { return core.session; }

    static void click(wxButton* button) { send(*button, wxEVT_BUTTON, button->GetId()); }
    static void tick(wxCheckBox* box, bool ticked) {
        box->SetValue(ticked);
        wxCommandEvent event(wxEVT_CHECKBOX, box->GetId());
        event.SetEventObject(box);
        event.SetInt(ticked ? 1 : 0);
        box->GetEventHandler()->ProcessEvent(event);
    }
    static void choose(wxChoice* list, int index) {
        list->SetSelection(index);
        send(*list, wxEVT_CHOICE, list->GetId());
    }
    void fileMenu(const wxMenuItem* entry) { send(*window, wxEVT_MENU, entry->GetId()); }
    /// The entry of the node menu with this name, for example "cmdNew".
    void menu(std::string_view name) { send(*window, wxEVT_MENU, menuId(named(name))); }
    /// The toolbar button with this tool tip.
    void tool(std::string_view toolTip) { send(*window, wxEVT_MENU, toolId(tipped(toolTip))); }

    /// As users can: not while it is disabled.
    void menuIfEnabled(std::string_view name) {
        if (window->GetMenuBar()->IsEnabled(menuId(named(name)))) menu(name);
    }
    void toolIfEnabled(std::string_view toolTip) {
        if (controls().toolNodes->GetToolEnabled(toolId(tipped(toolTip)))) tool(toolTip);
    }

    /// Clicks the row that a key leads to.
    void select(std::string_view key) {
        controls().TreeXML->choose(core.row(key));
        pumpPending();
    }
    /// As if the user had typed it all.
    void type(const std::u16string& text) {
        controls().txtValue->SetValue(toWx(text));  // unlike ChangeValue, with the event
    }

    /// The report of an error that what comes next must end in.
    void expectReport(int number, const std::string& text) {
        dialogs.expectBox("Run-time error '" + std::to_string(number) + "':\n\n" + text, "Tavisk",
                          wxOK | wxICON_ERROR);
    }

    std::string tree() const { return core.tree(); }
    std::string current() const { return core.current(); }
    static std::string label(const wxWindow* control) {
        return utf8Of(wxControl::RemoveMnemonics(control->GetLabel()));
    }
    static std::vector<std::string> entries(const wxChoice* list) {
        std::vector<std::string> texts;
        for (unsigned i = 0; i < list->GetCount(); ++i)
            texts.push_back(utf8Of(list->GetString(i)));
        return texts;
    }

    EditorSession core;
    DialogAnswers dialogs;
    frmMain* window = nullptr;

private:
    static void send(wxWindow& target, const wxEventTypeTag<wxCommandEvent>& type, int id) {
        wxCommandEvent event(type, id);
        event.SetEventObject(&target);
        target.GetEventHandler()->ProcessEvent(event);
    }
    static std::size_t named(std::string_view name) {
        return indexOf([&](const NodeCommand& c) { return c.name && c.name == name; });
    }
    static std::size_t tipped(std::string_view tip) {
        return indexOf([&](const NodeCommand& c) { return c.toolIndex > 0 && c.toolTip == tip; });
    }
    template <class Is>
    static std::size_t indexOf(Is is) {
        for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
            if (is(nodeCommands()[i])) return i;
        }
        throw std::runtime_error("the test's own command");
    }
};

}  // namespace tavisk::test
