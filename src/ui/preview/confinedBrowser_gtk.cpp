#include <csignal>
#include <dlfcn.h>
#include <span>
#include <string_view>
#include <utility>
#include <webkit2/webkit2.h>
#include <wx/webview.h>

#include "ui/preview/confinedBrowser.h"

namespace tavisk {
namespace {

/// As if a server had sent it with every page, so that no page can take it back.
constexpr const char* contentPolicy =
    "default-src 'none'; img-src file: data:; style-src file: 'unsafe-inline'; base-uri 'none'";

/// Nobody can listen there: what gets past the policy ends here.
constexpr const char* deadProxy = "http://127.0.0.1:0";

/// A signal that neither the host nor the toolkit uses; 0 if there is none.
int freeSignal() {
    sigset_t blocked;
    if (pthread_sigmask(SIG_SETMASK, nullptr, &blocked) != 0) return 0;
    // From the end, because programs that use these signals count from the start.
    for (int number = SIGRTMAX - 1; number > SIGRTMIN; --number) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) == 0 && !(action.sa_flags & SA_SIGINFO) &&
            action.sa_handler == SIG_DFL && sigismember(&blocked, number) == 0)
            return number;
    }
    return 0;
}

/// The engine starts in a process that belongs to somebody else.
void prepareEngine() {
    static bool prepared = false;
    if (std::exchange(prepared, true)) return;
    // When it starts, the engine takes over a signal, SIGUSR1 unless told otherwise, which may be
    // the host's now or later. Telling it by the environment would change that of the host, and
    // makes the engine complain on standard error; who has done so wants it.
    if (g_getenv("JSC_SIGNAL_FOR_GC")) return;
    using Configure = bool (*)(int);
    const auto configure =
        reinterpret_cast<Configure>(dlsym(RTLD_DEFAULT, "JSConfigureSignalForGC"));
    if (const int signal = freeSignal(); configure && signal != 0) configure(signal);
}

/// The toolkit makes its views in the context that all of a process share, the host's own among
/// them, which keeps a store on the disk. While this lives, a view is made in a context of its own;
/// that can only be said as the view is made.
class OwnContext {
public:
    explicit OwnContext(PageReach reach)
        : reach_(reach),
          views_(G_OBJECT_CLASS(g_type_class_ref(WEBKIT_TYPE_WEB_VIEW))),
          context_(webkit_web_context_new_ephemeral()) {
        if (reach_ == PageReach::files) leadNowhere(*context_);
        former_ = std::exchange(views_->constructor, construct);
        now_ = this;
    }
    OwnContext(const OwnContext&) = delete;
    OwnContext& operator=(const OwnContext&) = delete;
    ~OwnContext() {
        now_ = nullptr;
        views_->constructor = former_;
        g_object_unref(context_);
        g_type_class_unref(views_);
    }

private:
    static void leadNowhere(WebKitWebContext& context) {
        WebKitNetworkProxySettings* const proxy =
            webkit_network_proxy_settings_new(deadProxy, nullptr);
        webkit_website_data_manager_set_network_proxy_settings(
            webkit_web_context_get_website_data_manager(&context), WEBKIT_NETWORK_PROXY_MODE_CUSTOM,
            proxy);
        webkit_network_proxy_settings_free(proxy);
    }

    static GObject* construct(GType type, guint count, GObjectConstructParam* properties) {
        for (GObjectConstructParam& property : std::span(properties, count)) {
            const std::string_view name = property.pspec->name;
            if (name == "web-context") g_value_set_object(property.value, now_->context_);
            if (name == "default-content-security-policy" && now_->reach_ == PageReach::files)
                g_value_set_static_string(property.value, contentPolicy);
        }
        return now_->former_(type, count, properties);
    }

    static inline OwnContext* now_ = nullptr;

    PageReach reach_;
    GObjectClass* views_;
    WebKitWebContext* context_;
    decltype(GObjectClass::constructor) former_ = nullptr;
};

}  // namespace

wxWebView* newConfinedBrowser(wxWindow& parent, const char* name, PageReach reach) {
    prepareEngine();
    const OwnContext own(reach);
    return wxWebView::New(&parent, wxID_ANY, wxWebViewDefaultURLStr, wxDefaultPosition,
                          wxDefaultSize, wxWebViewBackendDefault, wxBORDER_NONE, name);
}

}  // namespace tavisk
