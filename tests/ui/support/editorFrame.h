// The editor's controls in a plain frame, without a session behind them.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/statbox.h>

#include "ui/editor/answerBox.h"
#include "ui/editor/editorControls.h"
#include "ui/editor/helpTree.h"
#include "ui/editor/pictureBox.h"
#include "ui/support/pump.h"
#include "ui/support/sizeOnScreen.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {

struct EditorFrame {
    EditorFrame() : controls(buildEditor(*frame)) {}
    EditorFrame(const EditorFrame&) = delete;
    EditorFrame& operator=(const EditorFrame&) = delete;
    ~EditorFrame() {
        delete frame;
        pumpPending();
    }

    void show() {
        frame->Show();
        frame->Raise();
        pumpUntil([this] { return frame->IsShownOnScreen() && frame->IsActive(); });
        pumpPending();
    }
    /// With the frame that the desktop draws around it.
    void resize(int width, int height) {
        const wxWindow& inner = *controls.cmdOK->GetParent();
        const wxSize size = inner.GetSize() + wxSize(width, height) - frame->GetSize();
        frame->SetSize(width, height);
        EXPECT_TRUE(pumpUntil([&] {
            return hasSizeOnScreen(*frame, wxSize(width, height)) && inner.GetSize() == size;
        }));
        pumpPending();
    }

    wxWindow* find(const std::string& name) const {
        return wxWindow::FindWindowByName(name, frame);
    }
    /// All windows below one, in their order.
    static std::vector<wxWindow*> below(const wxWindow& parent) {
        std::vector<wxWindow*> windows;
        for (wxWindow* child : parent.GetChildren()) {
            windows.push_back(child);
            for (wxWindow* deeper : below(*child))
                windows.push_back(deeper);
        }
        return windows;
    }
    static std::string name(const wxWindow& window) { return utf8Of(window.GetName()); }

    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "");
    EditorControls controls;
};

}  // namespace tavisk::test
