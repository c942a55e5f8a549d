// The editor window.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "editor/helpSession.h"
#include "ui/editor/editorControls.h"
#include "ui/toolkit/runtime.h"
#include "ui/toolkit/wxDialogs.h"

class wxKeyEvent;

namespace tavisk {

/// Shows a loaded session and passes every action on to it. The session must stay loaded for as
/// long as the window lives. Controls are public so that tests can look at them.
class frmMain final : public ModalFrame {
public:
    explicit frmMain(HelpSession& session);
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;
    ~frmMain() override;

    EditorControls controls;
    WxDialogs dialogs{this, [this] { showSession(); }};

private:
    // Each group of handlers has its own file.
    void bindLifeCycle();
    void bindNodes();
    void bindFormatting();
    void bindAnswer();
    void bindFormulas();
    void bindPictures();

    void Form_Unload(wxCloseEvent& event);
    void cmdOK_Click();
    void cmdRefresh_Click();
    void cmdPreview_Click();
    void onKey(wxKeyEvent& event) const;

    void TreeXML_NodeClick();
    void runNodeCommand(std::size_t index);

    void txtValue_Change();
    void cmdFormulaAdd_Click();

    /// Runs a handler: errors are reported, and the window shows the session afterwards.
    void act(const std::function<void()>& handler) noexcept;
    /// `act` on clicks of a button, list or check box.
    template <class Control, class Event>
    void onClick(Control* control, const Event& event, std::function<void()> handler);

    /// Brings the controls into step with the session; those that are so already are left alone.
    void showSession();
    void showPanel();
    void showFrames();
    void showFormulas();
    void showImages();
    void setFrameEnabled(wxStaticBox& frame, bool enabled) const;

    HelpSession& session_;
    const dom::Node* shownNode_ = nullptr;  ///< whose text is shown; to be compared only
    std::vector<std::string> shownFormulas_;
    std::vector<std::string> shownImages_;
    std::string shownPicture_;  ///< entry of the list whose picture is shown
};

template <class Control, class Event>
void frmMain::onClick(Control* control, const Event& event, std::function<void()> handler) {
    control->Bind(event, [this, handler = std::move(handler)](wxCommandEvent&) { act(handler); });
}

}  // namespace tavisk
