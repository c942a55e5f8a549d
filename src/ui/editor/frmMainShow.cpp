// What the window shows of its session.
#include <wx/checkbox.h>
#include <wx/menu.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "editor/nodeCommands.h"
#include "ui/editor/answerBox.h"
#include "ui/editor/frmMain.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

void showTick(wxCheckBox& box, bool ticked) {
    if (box.GetValue() != ticked) box.SetValue(ticked);
}

void showColour(wxStaticText& label, Colour colour) {
    const wxColour shown(colour);
    if (label.GetForegroundColour() != shown) setSampleColour(label, shown);
}

void enable(wxWindow& window, bool enabled) {
    if (window.IsThisEnabled() != enabled) window.Enable(enabled);
}

}  // namespace

void frmMain::showSession() {
    if (!session_.loaded()) return;
    showFrames();
    showPanel();
    showFormulas();
    showImages();
}

void frmMain::showPanel() {
    const NodePanel& panel = session_.panel;
    setFieldText(*controls.lblCurrentField, panel.currentField);
    for (int i = 0; i < 2; ++i) {
        const auto at = static_cast<std::size_t>(i);
        setFieldText(*controls.lblColor.at(i), panel.colourCaptions[at]);
        showColour(*controls.lblColor.at(i), panel.colours[at]);
        setFieldText(*controls.lblGap.at(i), panel.gapCaptions[at]);
        setFieldText(*controls.lblFontSize.at(i), panel.fontSizeCaptions[at]);
        showTick(*controls.chkHidden.at(i), panel.hidden[at]);
    }
    for (std::size_t i = 0; i < styleBits.size(); ++i)
        showTick(*controls.chkStyle.at(styleBits[i]), panel.style[i]);
    showTick(*controls.chkColumnBreak, panel.columnBreak);
    showTick(*controls.chkPageBreak, panel.pageBreak);
    if (shownNode_ == session_.currentnode) {
        controls.txtValue->show(panel.text, panel.tokens);
    } else {
        controls.txtValue->showOther(panel.text, panel.tokens);
        shownNode_ = session_.currentnode;
    }
}

void frmMain::showFrames() {
    const NodePanel& panel = session_.panel;
    for (wxStaticBox* frame : {controls.fraFormatting, controls.fraTitle, controls.fraValue,
                               controls.fraEditor, controls.fraGaps})
        setFrameEnabled(*frame, panel.framesEnabled);

    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        if (command.name)
            GetMenuBar()->Enable(menuId(i), panel.nodeCommandsEnabled || command.alwaysInMenu());
        if (command.toolIndex > 0)
            controls.toolNodes->EnableTool(toolId(i), panel.framesEnabled || command.tag == 0);
    }
}

void frmMain::setFrameEnabled(wxStaticBox& frame, bool enabled) const {
    ::tavisk::enable(frame, enabled);
    const NodePanel& panel = session_.panel;
    for (wxWindow* child : frame.GetChildren()) {
        // The base node has no answer in the page, so its text is not for typing.
        const bool usable = child != controls.txtValue || panel.textUsable;
        ::tavisk::enable(*child, enabled && usable);
    }
}

}  // namespace tavisk
