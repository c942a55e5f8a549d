// Visits the preview window while it is modal.
#pragma once

#include <functional>
#include <utility>
#include <wx/timer.h>

#include "ui/support/previewWindow.h"

namespace tavisk::test {

inline frmPreview* shownPreview() {
    return dynamic_cast<frmPreview*>(wxWindow::FindWindowByName("frmPreview"));
}

using Action = std::function<void(frmPreview&)>;

inline void closeByCode(frmPreview& window) { window.Close(); }

/// Runs while a window is modal, after its page has been loaded. `close` comes last and does not
/// wait, so that the modal loop itself handles what it does.
class WhileModal {
public:
    explicit WhileModal(Action body, Action close = closeByCode) {
        timer_.Bind(wxEVT_TIMER, [this, body = std::move(body),
                                  close = std::move(close)](wxTimerEvent&) {
            frmPreview* const window = shownPreview();
            ran_ = window && pumpUntil([&] { return window->pageLoaded() && window->IsActive(); });
            if (ran_) body(*window);
            if (window) close(*window);
        });
        timer_.StartOnce(1);
    }
    bool ran() const { return ran_; }

private:
    wxTimer timer_;
    bool ran_ = false;
};

}  // namespace tavisk::test
