// The formula and picture lists.
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>

#include "editor/imageCommands.h"
#include "editor/wx/frmMain.h"
#include "editor/wx/helpTree.h"
#include "editor/wx/pictureBox.h"
#include "platform/wx/strings.h"

namespace tavisk {
namespace {

void choose(DropDownList& list, const wxChoice& control) {
    const int chosen = control.GetSelection();
    list.index =
        chosen == wxNOT_FOUND ? std::nullopt : std::optional(static_cast<std::size_t>(chosen));
}

/// Only what differs is touched: a list of many names takes long to fill.
void show(const DropDownList& list, wxChoice& control) {
    const auto& entries = list.entries;
    bool same = control.GetCount() == entries.size();
    for (unsigned i = 0; same && i < control.GetCount(); ++i)
        same = control.GetString(i) == toWx(entries[i]);
    if (!same) {
        wxArrayString names;
        for (const std::string& entry : entries)
            names.push_back(toWx(entry));
        control.Set(names);
    }
    const int chosen = list.index ? static_cast<int>(*list.index) : wxNOT_FOUND;
    if (control.GetSelection() != chosen) control.SetSelection(chosen);
}

}  // namespace

void frmMain::bindFormulas() {
    onClick(controls.lstFormulas, wxEVT_CHOICE,
            [this] { choose(session_.lstFormulas, *controls.lstFormulas); });
    onClick(controls.cmdFormulaAdd, wxEVT_BUTTON, [this] { cmdFormulaAdd_Click(); });
}

void frmMain::cmdFormulaAdd_Click() {
    session_.formulaCatalogue.addByPrompt(
        dialogs, [this](const std::string& name) { session_.lstFormulas.entries.push_back(name); });
}

void frmMain::showFormulas() {
    show(session_.lstFormulas, *controls.lstFormulas);
    if (!session_.lstFormulas.index) return;
    const wxString help =
        toWx(session_.formulaCatalogue.descriptionOf(session_.lstFormulas.text()));
    setFieldText(*controls.lblFormulaHelp, utf8Of(help));
}

void frmMain::bindPictures() {
    onClick(controls.lstImages, wxEVT_CHOICE,
            [this] { choose(session_.lstImages, *controls.lstImages); });
    onClick(controls.cmdImageAdd, wxEVT_BUTTON, [this] { addImage(session_, dialogs); });
    onClick(controls.cmdImageDel, wxEVT_BUTTON, [this] { cmdImageDel_Click(); });
}

void frmMain::cmdImageDel_Click() {
    removeImage(session_, dialogs);
    // A picture that stood among the help nodes was a row of the tree.
    controls.TreeXML->attach(session_);
}

void frmMain::showImages() {
    show(session_.lstImages, *controls.lstImages);
    const std::string_view entry = session_.lstImages.text();
    if (entry == shownPicture_) return;
    shownPicture_ = entry;
    controls.Picture1->show(chosenPicture(session_));
}

}  // namespace tavisk
