#include "ui/toolkit/runtime.h"

#include <thread>
#include <utility>
#include <wx/app.h>
#include <wx/bmpbndl.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/menu.h>
#include <wx/utils.h>

#include "base/error.h"
#include "ui/toolkit/iconSvg.h"
#include "ui/toolkit/nativeToolkit.h"

namespace tavisk {
namespace {

/// For hosts that have no wxWidgets of their own.
bool startOwn() {
    wxDisableAsserts();
    wxLog::EnableLogging(false);  // in a host, nobody reads log windows
    wxApp::SetInstance(newApplication());
    char name[] = "tavisk";
    char* words[] = {name, nullptr};
    int count = 1;
    if (!wxEntryStart(count, words)) return false;
    wxTheApp->SetExitOnFrameDelete(false);
    return true;
}

/// Puts off what the accessibility bus asks a frame to do until the request has been answered.
class PutOffRequests final : public wxEventFilter {
public:
    explicit PutOffRequests(wxFrame& frame) : frame_(frame) { wxEvtHandler::AddFilter(this); }
    PutOffRequests(const PutOffRequests&) = delete;
    PutOffRequests& operator=(const PutOffRequests&) = delete;
    ~PutOffRequests() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& event) override {
        // Other controls have a value, which has to be in step with its event; they open no
        // windows.
        const wxEventType type = event.GetEventType();
        if (type != wxEVT_BUTTON && type != wxEVT_MENU) return Event_Skip;
        wxWindow* const window = windowOf(event);
        if (wxGetTopLevelParent(window) != &frame_ || !isInsideAccessibilityRequest())
            return Event_Skip;
        window->GetEventHandler()->QueueEvent(event.Clone());
        return Event_Processed;
    }

private:
    static wxWindow* windowOf(const wxEvent& event) {
        if (const auto* menu = dynamic_cast<wxMenu*>(event.GetEventObject()))
            return menu->GetWindow();
        return dynamic_cast<wxWindow*>(event.GetEventObject());
    }

    wxFrame& frame_;
};

/// The product's mark, for the frame around a window and for lists of windows.
wxIconBundle windowIcons() {
    const std::string svg(iconSvg("tavisk"));
    const wxBitmapBundle drawing = wxBitmapBundle::FromSVG(svg.c_str(), wxSize(16, 16));
    wxIconBundle icons;
    for (const int size : {16, 24, 32, 48, 64})
        icons.AddIcon(drawing.GetIcon(wxSize(size, size)));
    return icons;
}

/// The thread that has the windows. Windows cannot change it, so it is kept for the process.
std::thread::id windowThread;

}  // namespace

void startToolkit() {
    const std::thread::id caller = std::this_thread::get_id();
    if (windowThread != std::thread::id()) {
        if (windowThread != caller) raise(ErrorNumber::cannotLoadObject);
        return;
    }
    if (!wxTheApp) {
        startNativeToolkit();
        if (!startOwn()) raise(ErrorNumber::cannotLoadObject);
    } else if (!wxTheApp->IsGUI() || !wxIsMainThread()) {
        raise(ErrorNumber::cannotLoadObject);
    }
    wxInitAllImageHandlers();
    windowThread = caller;
}

void yieldOnce() {
    dispatchPendingOnce();
    if (wxTheApp) wxTheApp->ProcessPendingEvents();
}

void ModalFrame::showModal() {
    const std::unique_ptr<wxGUIEventLoop> loop = newNestedLoop();
    {
        const PutOffRequests putOffRequests(*this);
        const wxWindowDisabler others(this);
        leave_ = [&loop] { loop->Exit(); };
        SetIcons(windowIcons());
        Show();
        setModal(*this, true);
        Raise();
        loop->Run();
        leave_ = nullptr;
        setModal(*this, false);
    }
    if (focusedBefore_) focusedBefore_->SetFocus();
}

void ModalFrame::endModal() {
    Hide();
    if (leave_) std::exchange(leave_, nullptr)();
}

}  // namespace tavisk
