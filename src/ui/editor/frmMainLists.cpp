// The formula and picture lists.
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>

#include "editor/imageCommands.h"
#include "ui/editor/frmMain.h"
#include "ui/editor/pictureBox.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

void take(DropDownList& list, const wxChoice& control) {
    const int chosen = control.GetSelection();
    list.index =
        chosen == wxNOT_FOUND ? std::nullopt : std::optional(static_cast<std::size_t>(chosen));
}

/// `shown` are the control's entries: filling it with many takes long, and so does reading them.
void show(const DropDownList& list, wxChoice& control, std::vector<std::string>& shown) {
    if (shown != list.entries) {
        wxArrayString names;
        names.reserve(list.entries.size());
        for (const std::string& entry : list.entries)
            names.push_back(toWx(entry));
        control.Set(names);
        shown = list.entries;
    }
    const int chosen = list.index ? static_cast<int>(*list.index) : wxNOT_FOUND;
    if (control.GetSelection() != chosen) control.SetSelection(chosen);
}

}  // namespace

void frmMain::bindFormulas() {
    onClick(controls.lstFormulas, wxEVT_CHOICE,
            [this] { take(session_.lstFormulas, *controls.lstFormulas); });
    onClick(controls.cmdFormulaAdd, wxEVT_BUTTON, [this] { cmdFormulaAdd_Click(); });
}

void frmMain::cmdFormulaAdd_Click() {
    session_.file.formulaCatalogue.addByPrompt(
        dialogs, [this](const std::string& name) { session_.lstFormulas.entries.push_back(name); });
}

void frmMain::showFormulas() {
    show(session_.lstFormulas, *controls.lstFormulas, shownFormulas_);
    if (!session_.lstFormulas.index) return;
    setFieldText(*controls.lblFormulaHelp,
                 session_.file.formulaCatalogue.descriptionOf(session_.lstFormulas.text()));
}

void frmMain::bindPictures() {
    onClick(controls.lstImages, wxEVT_CHOICE,
            [this] { take(session_.lstImages, *controls.lstImages); });
    onClick(controls.cmdImageAdd, wxEVT_BUTTON, [this] { addImage(session_, dialogs); });
    onClick(controls.cmdImageDel, wxEVT_BUTTON, [this] { removeImage(session_, dialogs); });
}

void frmMain::showImages() {
    show(session_.lstImages, *controls.lstImages, shownImages_);
    const std::string_view entry = session_.lstImages.text();
    if (entry == shownPicture_) return;
    shownPicture_ = entry;
    controls.Picture1->show(chosenPicture(session_));
}

}  // namespace tavisk
