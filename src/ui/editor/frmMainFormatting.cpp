// The formatting commands of the property panel.
#include <wx/button.h>
#include <wx/checkbox.h>

#include "editor/formattingCommands.h"
#include "ui/editor/frmMain.h"

namespace tavisk {

void frmMain::bindFormatting() {
    for (const auto& [index, button] : controls.cmdChangeFont)
        onClick(button, wxEVT_BUTTON, [this, i = index] { changeFontSize(session_, i); });
    for (const auto& [index, button] : controls.cmdMoveGaps)
        onClick(button, wxEVT_BUTTON, [this, i = index] { moveGap(session_, i); });
    for (const auto& [index, button] : controls.ChangeColor) {
        onClick(button, wxEVT_BUTTON,
                [this, side = static_cast<Side>(index)] { changeColour(session_, side, dialogs); });
    }
    for (std::size_t i = 0; i < styleBits.size(); ++i) {
        wxCheckBox* const box = controls.chkStyle.at(styleBits[i]);
        onClick(box, wxEVT_CHECKBOX,
                [this, box, i] { clickStyle(session_, static_cast<int>(i), box->GetValue()); });
    }
    for (const auto& [index, box] : controls.chkHidden) {
        onClick(box, wxEVT_CHECKBOX, [this, box = box, side = static_cast<Side>(index)] {
            clickHidden(session_, side, box->GetValue());
        });
    }
    onClick(controls.chkColumnBreak, wxEVT_CHECKBOX,
            [this] { clickColumnBreak(session_, controls.chkColumnBreak->GetValue()); });
    onClick(controls.chkPageBreak, wxEVT_CHECKBOX,
            [this] { clickPageBreak(session_, controls.chkPageBreak->GetValue()); });
}

}  // namespace tavisk
