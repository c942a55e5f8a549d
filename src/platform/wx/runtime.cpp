#include "platform/wx/runtime.h"

#include <thread>
#include <utility>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/utils.h>

#include "platform/error.h"
#include "platform/wx/nativeToolkit.h"

namespace tavisk {
namespace {

/// For hosts that have no wxWidgets of their own.
class ComponentApp final : public wxApp {
public:
    bool OnInit() override { return true; }
    // Handlers catch everything; what comes here nevertheless must not end the host.
    bool OnExceptionInMainLoop() override { return true; }
    void OnUnhandledException() override {}
};

bool startOwn() {
    wxDisableAsserts();
    wxLog::EnableLogging(false);  // in a host, nobody reads log windows
    wxApp::SetInstance(new ComponentApp);
    char name[] = "tavisk";
    char* words[] = {name, nullptr};
    int count = 1;
    if (!wxEntryStart(count, words)) return false;
    wxTheApp->SetExitOnFrameDelete(false);
    return true;
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
    if (wxTheApp && wxTheApp->IsGUI()) {
        if (!wxIsMainThread()) raise(ErrorNumber::cannotLoadObject);
    } else {
        checkNativeToolkit();
        if (!startQuietly(startOwn)) raise(ErrorNumber::cannotLoadObject);
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
    wxWindowDisabler others(this);
    leave_ = [&loop] { loop->Exit(); };
    Show();
    setModal(*this, true);
    Raise();
    loop->Run();
    leave_ = nullptr;
    setModal(*this, false);
}

void ModalFrame::endModal() {
    Hide();
    if (leave_) std::exchange(leave_, nullptr)();
}

}  // namespace tavisk
