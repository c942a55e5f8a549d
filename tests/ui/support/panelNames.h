// The panel of the editor window in lists: captions, what is ticked, what may be used.
#pragma once

#include <string>
#include <vector>
#include <wx/checkbox.h>
#include <wx/statbox.h>

#include "ui/support/editorWindow.h"

namespace tavisk::test {

using Names = std::vector<std::string>;

inline std::vector<wxStaticBox*> frames(const EditorControls& controls) {
    return {controls.fraFormatting, controls.fraTitle, controls.fraValue, controls.fraEditor,
            controls.fraGaps};
}

/// Names of the five frames and of what is directly in them, if they are in this state.
inline Names inFrames(const EditorControls& controls, bool enabled) {
    Names names;
    for (wxStaticBox* frame : frames(controls)) {
        if (frame->IsThisEnabled() == enabled) names.push_back(utf8Of(frame->GetName()));
        for (const wxWindow* child : frame->GetChildren()) {
            if (dynamic_cast<const wxStaticBox*>(child)) continue;
            if (child->IsThisEnabled() == enabled) names.push_back(utf8Of(child->GetName()));
        }
    }
    return names;
}

/// The style boxes that are ticked, by their bits.
inline std::vector<int> styles(const EditorControls& controls) {
    std::vector<int> bits;
    for (const auto& [bit, box] : controls.chkStyle) {
        if (box->GetValue()) bits.push_back(bit);
    }
    return bits;
}

/// The other boxes that are ticked.
inline Names boxes(const EditorControls& controls) {
    Names names;
    for (const wxCheckBox* box : {controls.chkHidden.at(0), controls.chkHidden.at(1),
                                  controls.chkColumnBreak, controls.chkPageBreak}) {
        if (box->GetValue()) names.push_back(utf8Of(box->GetName()));
    }
    return names;
}

/// All captions of the panel, in the order of filling.
inline Names captions(const EditorControls& controls) {
    Names texts;
    for (const auto* labels : {&controls.lblColor, &controls.lblGap, &controls.lblFontSize}) {
        for (const auto& [index, label] : *labels)
            texts.push_back(EditorWindow::label(label));
    }
    return texts;
}

}  // namespace tavisk::test
