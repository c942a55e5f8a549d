#include <cstdlib>
#include <dlfcn.h>
#include <gtk/gtk.h>
#include <string>
#include <wx/evtloop.h>
#include <wx/toplevel.h>

#include "platform/error.h"
#include "platform/wx/nativeToolkit.h"

namespace tavisk {
namespace {

bool processHas(const char* symbol) { return dlsym(RTLD_DEFAULT, symbol) != nullptr; }

/// An environment variable as it is now, put back at the end.
class EnvironmentVariable {
public:
    explicit EnvironmentVariable(const char* name) : name_(name) {
        if (const char* value = std::getenv(name)) {
            value_ = value;
            set_ = true;
        }
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() {
        if (set_) {
            g_setenv(name_, value_.c_str(), TRUE);
        } else {
            g_unsetenv(name_);
        }
    }

private:
    const char* name_;
    std::string value_;
    bool set_ = false;
};

/// A loop inside gtk_main. The toolkit's own would end the enclosing gtk_main as well, which is
/// right only where that one belongs to wxWidgets too.
class NestedLoop final : public wxGUIEventLoop {
protected:
    int DoRun() override {
        const bool insideOwn = gtk_main_level() > 0 && isInsideOwn_;
        while (!m_shouldExit)
            gtk_main();
        if (insideOwn) gtk_main_quit();
        OnExit();
        return 0;
    }

private:
    bool isInsideOwn_ = wxEventLoopBase::GetActive() != nullptr;
};

}  // namespace

void checkNativeToolkit() {
    // GTK ends the process when it finds another version of itself.
    if (processHas("gtk_progress_get_type") || processHas("gtk_root_get_type"))
        raise(ErrorNumber::cannotLoadObject);
    // Events come to the thread that owns this context.
    if (!g_main_context_acquire(nullptr)) raise(ErrorNumber::cannotLoadObject);
    g_main_context_release(nullptr);
}

bool startQuietly(const std::function<bool()>& start) {
    const EnvironmentVariable fileNames("G_FILENAME_ENCODING");
    // A host that has GTK running already would read a warning about the locale.
    const auto drop = [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {};
    const guint handler = g_log_set_handler("Gtk", G_LOG_LEVEL_WARNING, drop, nullptr);
    const bool started = start();
    g_log_remove_handler("Gtk", handler);
    return started;
}

void setModal(wxTopLevelWindow& frame, bool modal) {
    gtk_window_set_modal(GTK_WINDOW(frame.GetHandle()), modal);
}

void dispatchPendingOnce() {
    // A host's idle source may be ready for ever, so a pass has an end.
    constexpr int most = 100;
    for (int i = 0; i < most && g_main_context_iteration(nullptr, FALSE); ++i) {
    }
}

std::unique_ptr<wxGUIEventLoop> newNestedLoop() { return std::make_unique<NestedLoop>(); }

}  // namespace tavisk
