// Visits a window that a modal call opens.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <wx/eventfilter.h>
#include <wx/toplevel.h>

#include "ui/support/pump.h"

namespace tavisk::test {

/// Runs `visit` when the next top-level window of this name has come to the screen. The visit must
/// have closed it when it ends; a window that it leaves open, and one that never comes, fail the
/// test.
class WhenShown final : public wxEventFilter {
public:
    WhenShown(wxString name, std::function<void(wxTopLevelWindow&)> visit)
        : name_(std::move(name)), visit_(std::move(visit)) {
        wxEvtHandler::AddFilter(this);
    }
    WhenShown(const WhenShown&) = delete;
    WhenShown& operator=(const WhenShown&) = delete;
    ~WhenShown() override {
        wxEvtHandler::RemoveFilter(this);
        if (!visited_) ADD_FAILURE() << "never shown: " << name_;
    }

    int FilterEvent(wxEvent& event) override {
        if (visited_ || event.GetEventType() != wxEVT_SHOW) return Event_Skip;
        auto* const window = dynamic_cast<wxTopLevelWindow*>(event.GetEventObject());
        if (window && window->GetName() == name_ && static_cast<wxShowEvent&>(event).IsShown()) {
            visited_ = true;
            window->CallAfter([this, window] { visit(*window); });
        }
        return Event_Skip;
    }

private:
    void visit(wxTopLevelWindow& window) {
        EXPECT_TRUE(pumpUntil([&] { return window.IsShownOnScreen(); }));
        visit_(window);
        if (!window.IsShown()) return;
        ADD_FAILURE() << "left open: " << name_;
        window.Close(true);
    }

    wxString name_;
    std::function<void(wxTopLevelWindow&)> visit_;
    bool visited_ = false;
};

}  // namespace tavisk::test
