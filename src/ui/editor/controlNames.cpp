// What the captions do not say: a "+" is one of four, and a list has no caption at all.
#include <wx/window.h>

#include "ui/editor/editorParts.h"
#include "ui/toolkit/accessible.h"

namespace tavisk {
namespace {

struct ControlName {
    const char* control;
    const char* name;     ///< told instead of the caption; null: the caption says it all
    const char* toolTip;  ///< null: none
};

constexpr const char* none = nullptr;

constexpr ControlName both(const char* control, const char* name) { return {control, name, name}; }

constexpr ControlName controlNames[] = {
    {"toolNodes", "Commands for nodes", none},
    {"TreeXML", "Help nodes", none},

    both("chkStyle(1)", "Title bold"),
    both("chkStyle(2)", "Title italic"),
    both("chkStyle(4)", "Title underline"),
    both("chkStyle(8)", "Answer bold"),
    both("chkStyle(16)", "Answer italic"),
    both("chkStyle(32)", "Answer underline"),
    both("ChangeColor(0)", "Title color..."),
    both("ChangeColor(1)", "Answer color..."),
    both("cmdChangeFont(0)", "Title font smaller"),
    both("cmdChangeFont(2)", "Title font larger"),
    both("cmdChangeFont(3)", "Answer font smaller"),
    both("cmdChangeFont(5)", "Answer font larger"),
    both("cmdMoveGaps(0)", "Gap above smaller"),
    both("cmdMoveGaps(2)", "Gap above larger"),
    both("cmdMoveGaps(3)", "Gap below smaller"),
    both("cmdMoveGaps(5)", "Gap below larger"),

    {"txtValue", "Information Text", none},
    {"lstFormulas", "Formulas", none},
    both("cmdInsertFormulaAtCursor", "Insert formula at cursor"),
    both("cmdInsertFormulaAtEnd", "Insert formula at end"),
    {"cmdFormulaDel", none, "Formulas are removed in the host program"},
    {"lstImages", "Pictures", none},
    both("cmdInsertImage", "Insert picture at cursor"),
    both("cmdAppendImage", "Insert picture at end"),
    both("cmdImageOverlay", "Insert picture as overlay at end"),
    both("cmdExternImage", "Insert external picture at cursor"),
};

}  // namespace

void describeControls(wxWindow& window) {
    for (const auto& [control, name, toolTip] : controlNames) {
        wxWindow* const found = wxWindow::FindWindowByName(control, &window);
        if (!found) continue;
        if (name) setAccessibleName(*found, name);
        if (toolTip) found->SetToolTip(toolTip);
    }
}

}  // namespace tavisk
