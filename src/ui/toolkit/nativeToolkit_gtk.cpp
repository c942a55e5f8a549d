#include <dlfcn.h>
#include <gtk/gtk.h>
#include <link.h>
#include <mutex>
#include <string_view>
#include <utility>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/strconv.h>
#include <wx/toplevel.h>

#include "base/error.h"
#include "ui/toolkit/nativeToolkit.h"

namespace tavisk {
namespace {

/// Two versions of GTK in one process would end it.
bool processHasOtherGtk() {
    const auto isOther = [](dl_phdr_info* library, std::size_t, void*) {
        const std::string_view name(library->dlpi_name);
        return static_cast<int>(name.find("/libgtk-x11-2.0.so") != std::string_view::npos ||
                                name.find("/libgtk-4.so") != std::string_view::npos);
    };
    return dl_iterate_phdr(isOther, nullptr) != 0;
}

/// A host may have an event source that is ready for ever; whatever waits for quiet has an end.
constexpr int mostEventsOfOnePass = 100;

/// Ends of loops that wxWidgets ran inside the innermost one of ours. It ends ours with them.
int innerLoopsEnded = 0;
/// The host has ended its own loop while one of ours was running in it.
bool hostHasQuit = false;

class ComponentApp final : public wxApp {
public:
    /// The toolkit's own would set a variable in the host's environment, and complain on its
    /// standard error where GTK is running already.
    bool Initialize(int& count, wxChar** words) override {
        wxConvCurrent = &wxConvUTF8;
        const char** fileNameCharsets = nullptr;
        g_get_filename_charsets(&fileNameCharsets);
        static wxConvBrokenFileNames fileNames(fileNameCharsets[0]);
        wxConvFileName = &fileNames;
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): that is the point
        if (!wxAppBase::Initialize(count, words)) return false;
        WakeUpIdle();
        return true;
    }
    bool OnInit() override { return true; }
    // Handlers catch everything; what comes here nevertheless must not end the host.
    bool OnExceptionInMainLoop() override { return true; }
    void OnUnhandledException() override {}
    void OnEventLoopExit(wxEventLoopBase* loop) override {
        ++innerLoopsEnded;
        wxApp::OnEventLoopExit(loop);
    }

    /// The toolkit's own has the lowest priority of all: a host that is never idle would keep its
    /// pending events for ever.
    void WakeUpIdle() override {
        const std::lock_guard lock(idleMutex_);
        if (idleSource_ == 0) idleSource_ = g_idle_add(idle, this);
    }

private:
    static gboolean idle(gpointer data) {
        auto* const app = static_cast<ComponentApp*>(data);
        guint self = 0;
        {
            // A loop inside may need another source.
            const std::lock_guard lock(app->idleMutex_);
            self = std::exchange(app->idleSource_, 0);
        }
        const bool more = app->DoIdle();
        const std::lock_guard lock(app->idleMutex_);
        if (!more || app->idleSource_ != 0) return G_SOURCE_REMOVE;
        app->idleSource_ = self;
        return G_SOURCE_CONTINUE;
    }

    std::mutex idleMutex_;
    guint idleSource_ = 0;
};

/// A loop inside gtk_main. The toolkit's own would end the enclosing gtk_main as well, which is
/// right only where that one belongs to wxWidgets too.
class NestedLoop final : public wxGUIEventLoop {
protected:
    int DoRun() override {
        while (!m_shouldExit) {
            innerLoopsEnded = 0;
            gtk_main();
            if (!m_shouldExit && innerLoopsEnded == 0) hostHasQuit = true;
        }
        if (gtk_main_level() > 0 && (isInsideOwn_ || hostHasQuit)) gtk_main_quit();
        if (!isInsideOwn_) hostHasQuit = false;
        OnExit();
        return 0;
    }
    void DoYieldFor(long categories) override {
        eventsOfThisPass_ = 0;
        wxGUIEventLoop::DoYieldFor(categories);
    }

public:
    bool Pending() const override {
        return eventsOfThisPass_++ < mostEventsOfOnePass && wxGUIEventLoop::Pending();
    }

private:
    mutable int eventsOfThisPass_ = 0;
    bool isInsideOwn_ = wxEventLoopBase::GetActive() != nullptr;
};

}  // namespace

void startNativeToolkit() {
    // Events come to the thread that owns this context.
    if (processHasOtherGtk() || !g_main_context_acquire(nullptr))
        raise(ErrorNumber::cannotLoadObject);
    g_main_context_release(nullptr);
    // The host has chosen its locale; a GTK that is running already would complain.
    static bool localeIsTheHosts = gdk_display_get_default() != nullptr;
    if (!std::exchange(localeIsTheHosts, true)) gtk_disable_setlocale();
    if (!gtk_init_check(nullptr, nullptr)) raise(ErrorNumber::cannotLoadObject);
}

wxApp* newApplication() { return new ComponentApp; }

void setModal(wxTopLevelWindow& frame, bool modal) {
    gtk_window_set_modal(GTK_WINDOW(frame.GetHandle()), modal);
}

void dispatchPendingOnce() {
    for (int i = 0; i < mostEventsOfOnePass && g_main_context_iteration(nullptr, FALSE); ++i) {
    }
}

bool isInsideAccessibilityRequest() {
    const GSource* const source = g_main_current_source();
    Dl_info info{};
    return source && dladdr(reinterpret_cast<void*>(source->source_funcs->dispatch), &info) != 0 &&
           std::string_view(info.dli_fname).find("libatspi") != std::string_view::npos;
}

std::unique_ptr<wxGUIEventLoop> newNestedLoop() { return std::make_unique<NestedLoop>(); }

}  // namespace tavisk
