#include "ui/editor/frmMain.h"

#include <wx/button.h>
#include <wx/menu.h>

#include "ui/editor/answerBox.h"
#include "ui/editor/helpTree.h"
#include "ui/preview/frmPreview.h"
#include "ui/toolkit/handlers.h"
#include "ui/toolkit/longWork.h"

namespace tavisk {

frmMain::frmMain(HelpSession& session)
    : ModalFrame(nullptr, wxID_ANY, "Library Help XML Editor"), session_(session) {
    SetName("frmMain");
    controls = buildEditor(*this);
    controls.TreeXML->attach(session_);
    showSession();
    bindLifeCycle();
    bindNodes();
    bindFormatting();
    bindAnswer();
    bindFormulas();
    bindPictures();
    controls.TreeXML->SetFocus();
}

frmMain::~frmMain() { controls.TreeXML->detach(); }

void frmMain::act(const std::function<void()>& handler) noexcept {
    guarded(dialogs, handler);
    guarded(dialogs, [this] { showSession(); });
}

void frmMain::bindLifeCycle() {
    Bind(wxEVT_CLOSE_WINDOW, &frmMain::Form_Unload, this);
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { onKey(event); });
    const auto unload = [this] { Close(); };
    onClick(controls.cmdOK, wxEVT_BUTTON, [this] { cmdOK_Click(); });
    onClick(controls.cmdCancel, wxEVT_BUTTON, unload);
    onClick(controls.cmdRefreshButton, wxEVT_BUTTON, [this] { cmdRefresh_Click(); });
    onClick(controls.cmdPreview, wxEVT_BUTTON, [this] { cmdPreview_Click(); });
    const auto onMenu = [this](const wxMenuItem& item, const std::function<void()>& handler) {
        Bind(
            wxEVT_MENU, [this, handler](wxCommandEvent&) { act(handler); }, item.GetId());
    };
    onMenu(*controls.cmdRefresh, [this] { cmdRefresh_Click(); });
    onMenu(*controls.cmdExit, unload);
}

void frmMain::Form_Unload(wxCloseEvent& event) {
    bool unload = false;
    guarded(dialogs, [&] {
        unload = session_.mayUnload(dialogs, [this] {
            runLongWork(this, "Saving the document", [this] { session_.saveDocument(); });
        });
    });
    if (!unload && event.CanVeto()) {
        event.Veto();
        return;
    }
    endModal();
}

void frmMain::cmdOK_Click() {
    runLongWork(this, "Saving the document", [this] { session_.saveDocument(); });
    Close();
}

void frmMain::cmdRefresh_Click() {
    runLongWork(this, "Saving the document", [this] { session_.refresh(); });
    Close();
}

void frmMain::cmdPreview_Click() {
    std::string page;
    runLongWork(this, "Writing the page", [&] { page = session_.file.generatepreview(true); });
    showPreview(this, page);
}

void frmMain::onKey(wxKeyEvent& event) const {
    const wxWindow* const focus = FindFocus();
    const bool deletes = !event.HasAnyModifiers() && event.GetKeyCode() == WXK_DELETE;
    if (deletes && focus != controls.txtValue && !controls.TreeXML->HasFocus()) {
        // A shortcut of the tree only: with a button focused it would delete a node unseen.
    } else {
        event.Skip();
    }
}

}  // namespace tavisk
