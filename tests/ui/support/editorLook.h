// How the editor window looks, as the eye sees it.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

#include "ui/support/editorFrame.h"

namespace tavisk::test {

/// What a caption needs to be seen whole.
int leastWidth(wxWindow& control);

/// The text of a label as it is drawn.
std::string drawnText(const wxStaticText& label);

/// Whether its middle was left out because there was no room for it.
bool isElidedInTheMiddle(const wxStaticText& label);

/// The lines of a label that wraps its text.
struct Wrapped {
    int lines = 0;  ///< that are seen
    wxSize size;    ///< of these
    bool cut = false;
};
Wrapped wrapped(const wxStaticText& label);

bool elidesLongNames(const wxChoice& list);

bool isDrawnUnderlined(const wxCheckBox& box);

struct EditorLookTest : testing::Test {
    EditorFrame editor;
    EditorControls& controls = editor.controls;

    /// Everything within the frames, and what is beside them.
    std::vector<wxWindow*> placed() const {
        std::vector<wxWindow*> windows = editor.below(*editor.frame);
        std::erase_if(windows, [](const wxWindow* window) {
            return window->GetParent()->IsTopLevel() || !window->IsShown();
        });
        return windows;
    }

    /// Names of the controls that stand out of what they are in; empty when all is well.
    std::string outside() const {
        std::string names;
        for (const wxWindow* window : placed()) {
            const wxSize room = window->GetParent()->GetVirtualSize();
            if (!wxRect(room).Contains(window->GetRect())) names += editor.name(*window) + ' ';
        }
        return names;
    }
    /// Names of the controls whose captions have less room than they need.
    std::string cutOff() const {
        std::string names;
        for (wxWindow* window : placed()) {
            const bool captioned =
                dynamic_cast<wxButton*>(window) || dynamic_cast<wxCheckBox*>(window);
            const auto* const label = dynamic_cast<wxStaticText*>(window);
            if (!captioned && (!label || label->HasFlag(wxST_NO_AUTORESIZE))) continue;
            if (window->GetSize().x < leastWidth(*window) ||
                window->GetSize().y < window->GetBestSize().y)
                names += editor.name(*window) + ' ';
        }
        return names;
    }
    /// Pairs of neighbours that cover each other.
    std::string overlapping() const {
        std::string names;
        for (const wxWindow* window : placed()) {
            for (const wxWindow* other : window->GetParent()->GetChildren()) {
                if (other == window) break;
                if (other->IsShown() && window->GetRect().Intersects(other->GetRect()))
                    names += editor.name(*window) + '/' + editor.name(*other) + ' ';
            }
        }
        return names;
    }
    wxScrolledWindow* details() const {
        return dynamic_cast<wxScrolledWindow*>(controls.fraEditor->GetParent());
    }
    bool scrolls() const { return details()->GetVirtualSize() != details()->GetClientSize(); }

    void longCaptions() {
        for (wxWindow* window : editor.below(*editor.frame)) {
            if (!dynamic_cast<wxButton*>(window) && !dynamic_cast<wxCheckBox*>(window)) continue;
            window->SetLabel(window->GetLabel() + "-Einstellungen");
            window->SetMinSize(wxDefaultSize);
        }
        details()->SendSizeEvent();
        controls.cmdOK->GetParent()->Layout();
        pumpPending();
    }
};

}  // namespace tavisk::test
