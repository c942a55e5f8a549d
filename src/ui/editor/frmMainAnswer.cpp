// The answer text and what is inserted into it.
#include <wx/button.h>

#include "editor/answerText.h"
#include "ui/editor/answerBox.h"
#include "ui/editor/frmMain.h"
#include "ui/toolkit/handlers.h"

namespace tavisk {

void frmMain::bindAnswer() {
    // Typing changes nothing else in the window, so nothing else is looked at.
    controls.txtValue->Bind(
        wxEVT_TEXT, [this](wxCommandEvent&) { guarded(dialogs, [this] { txtValue_Change(); }); });
    const auto selection = [this] { return controls.txtValue->selection(); };
    const auto formula = [this] { return session_.lstFormulas.text(); };
    const auto image = [this] { return session_.lstImages.text(); };

    onClick(controls.cmdInsertFormulaAtCursor, wxEVT_BUTTON,
            [=, this] { insertFormulaAtCursor(session_, formula(), selection()); });
    onClick(controls.cmdInsertFormulaAtEnd, wxEVT_BUTTON,
            [=, this] { insertFormulaAtEnd(session_, formula()); });
    onClick(controls.cmdInsertImage, wxEVT_BUTTON,
            [=, this] { insertImageAtCursor(session_, image(), selection()); });
    onClick(controls.cmdAppendImage, wxEVT_BUTTON,
            [=, this] { insertImageAtEnd(session_, image()); });
    onClick(controls.cmdImageOverlay, wxEVT_BUTTON,
            [=, this] { insertOverlay(session_, image()); });
    onClick(controls.cmdExternImage, wxEVT_BUTTON,
            [=, this] { insertExternalImage(session_, dialogs, selection()); });
}

void frmMain::txtValue_Change() {
    AnswerBox& box = *controls.txtValue;
    changeAnswerText(session_, box.text());
    box.colour(session_.panel.text, session_.panel.tokens);
}

}  // namespace tavisk
