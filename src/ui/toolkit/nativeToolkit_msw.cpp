#include <utility>
#include <vector>
#include <windows.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/msw/private.h>
#include <wx/toplevel.h>

#include "base/error.h"
#include "ui/toolkit/nativeToolkit.h"

namespace tavisk {
namespace {

/// A host may post to itself for ever; whatever waits for quiet has an end.
constexpr int mostEventsOfOnePass = 100;

class ComponentApp final : public wxApp {
public:
    bool OnInit() override { return true; }
    // Handlers catch everything; what comes here nevertheless must not end the host.
    bool OnExceptionInMainLoop() override { return true; }
    void OnUnhandledException() override {}
};

/// The end of the host's own loop, which only one of ours that runs inside it gets to see, waits
/// until ours has ended.
class NestedLoop final : public wxGUIEventLoop {
protected:
    int DoRun() override {
        bool hostHasQuit = false;
        int exitCode = 0;
        while (!m_shouldExit) {
            exitCode = wxGUIEventLoop::DoRun();
            if (!m_shouldExit) hostHasQuit = true;
        }
        if (hostHasQuit) PostQuitMessage(exitCode);
        return exitCode;
    }
};

/// The module that this is linked into: the program, or the host's library.
HMODULE ownModule() {
    HMODULE module = nullptr;
    // Windows, window classes and hooks of the toolkit lead here for as long as the process lives.
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(reinterpret_cast<const void*>(&ownModule)),
                       &module);
    return module;
}

/// The windows that one modal frame holds back. Each is enabled again before the frame hides, for
/// then the desktop looks for the window to be active next.
class HeldBack {
public:
    explicit HeldBack(wxTopLevelWindow& frame) : frame_(frame) {
        EnumWindows(disable, reinterpret_cast<LPARAM>(this));
        frame.Bind(wxEVT_SHOW, &HeldBack::onShow, this);
    }
    HeldBack(const HeldBack&) = delete;
    HeldBack& operator=(const HeldBack&) = delete;
    ~HeldBack() {
        frame_.Unbind(wxEVT_SHOW, &HeldBack::onShow, this);
        release();
    }

    bool isFor(const wxTopLevelWindow& frame) const { return &frame_ == &frame; }

private:
    static BOOL CALLBACK disable(HWND window, LPARAM self) {
        auto& held = *reinterpret_cast<HeldBack*>(self);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        const bool own = window == held.handle() || GetWindow(window, GW_OWNER) == held.handle();
        // Another thread may be waiting for this one.
        if (process != GetCurrentProcessId() || own || !IsWindowVisible(window) ||
            GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId())
            return TRUE;
        if (!EnableWindow(window, FALSE)) held.windows_.push_back(window);
        return TRUE;
    }
    HWND handle() const { return static_cast<HWND>(frame_.GetHandle()); }
    void onShow(wxShowEvent& event) {
        if (!event.IsShown()) {
            release();
            // wxWidgets has disabled its own windows itself.
            if (const HWND owner = GetWindow(handle(), GW_OWNER)) EnableWindow(owner, TRUE);
        }
        event.Skip();
    }
    void release() {
        for (const HWND window : std::exchange(windows_, {}))
            EnableWindow(window, TRUE);
    }

    wxTopLevelWindow& frame_;
    std::vector<HWND> windows_;
};

std::vector<std::unique_ptr<HeldBack>>& heldBack() {
    static std::vector<std::unique_ptr<HeldBack>> frames;
    return frames;
}

}  // namespace

void startNativeToolkit() {
    const HMODULE module = ownModule();
    if (!module) raise(ErrorNumber::cannotLoadObject);
    wxSetInstance(module);
}

wxApp* newApplication() { return new ComponentApp; }

void setModal(wxTopLevelWindow& frame, bool modal) {
    if (modal) {
        heldBack().push_back(std::make_unique<HeldBack>(frame));
    } else {
        std::erase_if(heldBack(), [&](const auto& held) { return held->isFor(frame); });
    }
}

void dispatchPendingOnce() {
    MSG message;
    for (int i = 0;
         i < mostEventsOfOnePass && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0; ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool isInsideAccessibilityRequest() {
    // Whoever sends from outside waits for the answer.
    return (InSendMessageEx(nullptr) & (ISMEX_SEND | ISMEX_REPLIED)) == ISMEX_SEND;
}

std::unique_ptr<wxGUIEventLoop> newNestedLoop() { return std::make_unique<NestedLoop>(); }

}  // namespace tavisk
