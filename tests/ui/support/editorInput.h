// The editor window under the user's own hands: real keys and mouse.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include "ui/support/editorWindow.h"
#include "ui/support/focus.h"

namespace tavisk::test {

class EditorInput : public EditorWindow {
public:
    explicit EditorInput(std::string_view nodes, std::string_view elements = {})
        : EditorWindow(nodes, elements) {
        window->Raise();
        pumpUntil([this] { return window->IsActive(); });
    }

    void focus(wxWindow* control) {
        control->SetFocus();
        ASSERT_TRUE(pumpUntil([&] { return focused() == control->GetName(); }))
            << control->GetName();
    }
    std::string focused() const { return focusedControl(*window); }

    // What is pressed arrives in its time: wait for what it does.
    void press(int key, int modifiers = wxMOD_NONE) { user.Char(key, modifiers); }
    void text(const char* characters) { user.Text(characters); }
    void mouse(const wxWindow* control) { mouse(control, wxPoint() + control->GetSize() / 2); }
    void mouse(const wxWindow* control, const wxPoint& at) {
        user.MouseMove(control->ClientToScreen(at));
        user.MouseClick();
    }
    void mouseRow(std::string_view key) {
        HelpTree* const tree = controls().TreeXML;
        const wxRect place = tree->GetItemRect(wxDataViewItem(&core.row(key)), nullptr);
        mouse(tree, place.GetPosition() + wxPoint(5, place.height / 2));
    }

    bool becomes(const std::string& tree) {
        return pumpUntil([&] { return EditorWindow::tree() == tree; });
    }

    wxUIActionSimulator user;
};

/// Lets dialogs open on the screen, and runs `answer` when the first one takes keys.
class RealDialog : private wxTimer {
public:
    RealDialog(EditorInput& editor, std::function<void()> answer)
        : editor_(editor), answer_(std::move(answer)) {
        constexpr int milliseconds = 20;
        editor.dialogs.Unregister();
        Start(milliseconds);
    }

    /// Waits until the dialog has come and gone.
    bool answered() {
        return pumpUntil([this] { return !answer_ && editor_.window->IsActive(); });
    }

private:
    void Notify() override {
        if (answer_ && dialogTakesKeys(*editor_.window)) std::exchange(answer_, nullptr)();
    }

    EditorInput& editor_;
    std::function<void()> answer_;
};

}  // namespace tavisk::test
