// wxWidgets inside a process that belongs to somebody else.
#pragma once

#include <functional>
#include <memory>
#include <wx/frame.h>
#include <wx/weakref.h>

namespace tavisk {

/// Starts wxWidgets, or takes the host's own where there is one; later calls do nothing. Error 361
/// when there is no display, when this is another thread than the one of the first call, or when
/// the process already holds a toolkit that cannot share it.
void startToolkit();

/// What belongs to the host and what a toolkit is known to change: signal handlers, locale, the
/// current folder, the application's exit when a last window closes. As they were, when this ends.
class HostState {
public:
    HostState();
    HostState(const HostState&) = delete;
    HostState& operator=(const HostState&) = delete;
    ~HostState();

private:
    struct Saved;
    std::unique_ptr<Saved> saved_;
};

/// One pass over the pending window messages.
void yieldOnce();

/// A top-level window that can be shown modally although it is no dialog, because it has a menu bar
/// or is shown over windows that wxWidgets does not know.
class ModalFrame : public wxFrame {
public:
    using wxFrame::wxFrame;

    /// Returns after `endModal`. The windows of the process take no input meanwhile; then the focus
    /// is where it was when this window was made.
    void showModal();
    void endModal();

private:
    std::function<void()> leave_;
    // A control loses the focus while its window takes no input.
    wxWeakRef<wxWindow> focusedBefore_{wxWindow::FindFocus()};
};

}  // namespace tavisk
