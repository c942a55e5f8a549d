#include <array>
#include <utility>
#include <webkit2/webkit2.h>
#include <wx/webview.h>

#include "ui/preview/browserPolicy.h"

namespace tavisk {
namespace {

/// Nothing that a page of texts and pictures can do without.
void restrictSettings(WebKitSettings& settings) {
    constexpr std::array off{
        "enable-javascript",
        "enable-javascript-markup",
        "javascript-can-open-windows-automatically",
        "javascript-can-access-clipboard",
        "allow-modal-dialogs",
        "allow-file-access-from-file-urls",
        "allow-universal-access-from-file-urls",
        "allow-top-navigation-to-data-urls",
        "enable-back-forward-navigation-gestures",
        "enable-developer-extras",
        "enable-dns-prefetching",
        "enable-encrypted-media",
        "enable-fullscreen",
        "enable-html5-database",
        "enable-html5-local-storage",
        "enable-hyperlink-auditing",
        "enable-media",
        "enable-media-stream",
        "enable-mediasource",
        "enable-page-cache",
        "enable-plugins",
        "enable-webaudio",
        "enable-webgl",
        "enable-webrtc",
    };
    GObject* object = G_OBJECT(&settings);
    for (const char* name : off) {
        // The engine loses old settings and gains new ones with time.
        const GParamSpec* property = g_object_class_find_property(G_OBJECT_GET_CLASS(object), name);
        if (property && !(property->flags & G_PARAM_DEPRECATED))
            g_object_set(object, name, FALSE, nullptr);
    }
    // The page names no encoding.
    webkit_settings_set_default_charset(&settings, "windows-1252");
}

/// Whether what an entry of the browser's own menu does stays inside the page.
bool staysInside(WebKitContextMenuAction action) {
    switch (action) {
        case WEBKIT_CONTEXT_MENU_ACTION_COPY:
        case WEBKIT_CONTEXT_MENU_ACTION_COPY_IMAGE_TO_CLIPBOARD:
        case WEBKIT_CONTEXT_MENU_ACTION_COPY_LINK_TO_CLIPBOARD: return true;
        default: return false;
    }
}

struct OwnKey {
    guint key;
    GdkModifierType modifiers;
    BrowserKey meaning;
};

// The plus shares its key with the equals sign on many keyboards.
constexpr std::array ownKeys{
    OwnKey{GDK_KEY_Escape, static_cast<GdkModifierType>(0), BrowserKey::close},
    OwnKey{GDK_KEY_w, GDK_CONTROL_MASK, BrowserKey::close},
    OwnKey{GDK_KEY_plus, GDK_CONTROL_MASK, BrowserKey::zoomIn},
    OwnKey{GDK_KEY_equal, GDK_CONTROL_MASK, BrowserKey::zoomIn},
    OwnKey{GDK_KEY_KP_Add, GDK_CONTROL_MASK, BrowserKey::zoomIn},
    OwnKey{GDK_KEY_minus, GDK_CONTROL_MASK, BrowserKey::zoomOut},
    OwnKey{GDK_KEY_KP_Subtract, GDK_CONTROL_MASK, BrowserKey::zoomOut},
    OwnKey{GDK_KEY_0, GDK_CONTROL_MASK, BrowserKey::zoomNormal},
    OwnKey{GDK_KEY_KP_0, GDK_CONTROL_MASK, BrowserKey::zoomNormal},
};

void disconnectToolkit(wxWebView& browser, WebKitWebView* view, const char* signal) {
    g_signal_handlers_disconnect_matched(
        view, static_cast<GSignalMatchType>(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_DATA),
        g_signal_lookup(signal, WEBKIT_TYPE_WEB_VIEW), 0, nullptr, nullptr, &browser);
}

}  // namespace

struct BrowserPolicy::Native {
    WebKitWebView* view = nullptr;
    GtkWindow* window = nullptr;
    GtkAccelGroup* keys = nullptr;
    BrowserEvents events;
    HeldPage page;

    /// An exception must not reach the engine; the window reports those of its own actions.
    template <class Action>
    static void guard(Action&& action) noexcept {
        try {
            std::forward<Action>(action)();
        } catch (...) {
        }
    }

    bool mayNavigate(WebKitNavigationAction* action, bool newWindow) {
        const char* uri = webkit_uri_request_get_uri(webkit_navigation_action_get_request(action));
        const Navigation navigation{
            .address = uri ? uri : "",
            .linkClicked = webkit_navigation_action_get_navigation_type(action) ==
                               WEBKIT_NAVIGATION_TYPE_LINK_CLICKED &&
                           webkit_navigation_action_is_user_gesture(action),
            .newWindow = newWindow};
        const NavigationAnswer answer = page.answer(navigation);
        if (answer == NavigationAnswer::openOutside)
            guard([&] { events.addressClicked(std::string(navigation.address)); });
        return answer == NavigationAnswer::show;
    }

    static gboolean decidePolicy(WebKitWebView*, WebKitPolicyDecision* decision,
                                 WebKitPolicyDecisionType type, Native* self) {
        // What cannot be shown would become a download.
        const bool may =
            type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE
                ? webkit_response_policy_decision_is_mime_type_supported(
                      WEBKIT_RESPONSE_POLICY_DECISION(decision)) != FALSE
                : self->mayNavigate(webkit_navigation_policy_decision_get_navigation_action(
                                        WEBKIT_NAVIGATION_POLICY_DECISION(decision)),
                                    type == WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION);
        if (may) {
            webkit_policy_decision_use(decision);
        } else {
            webkit_policy_decision_ignore(decision);
        }
        return TRUE;
    }

    static gboolean contextMenu(WebKitWebView*, WebKitContextMenu* menu, GdkEvent*,
                                WebKitHitTestResult*, Native*) {
        GList* items = g_list_copy(webkit_context_menu_get_items(menu));
        for (GList* item = items; item; item = item->next) {
            auto* entry = WEBKIT_CONTEXT_MENU_ITEM(item->data);
            if (!staysInside(webkit_context_menu_item_get_stock_action(entry)))
                webkit_context_menu_remove(menu, entry);
        }
        g_list_free(items);
        webkit_context_menu_append(menu, webkit_context_menu_item_new_from_stock_action(
                                             WEBKIT_CONTEXT_MENU_ACTION_SELECT_ALL));
        return FALSE;
    }

    /// Before the page, whose process may be busy.
    static gboolean keyPress(GtkWidget*, GdkEventKey* event, Native* self) {
        return gtk_window_activate_key(self->window, event);
    }

    static gboolean ownKey(GtkAccelGroup*, GObject*, guint key, GdkModifierType, Native* self) {
        for (const OwnKey& own : ownKeys) {
            if (own.key == key) guard([&] { self->events.keyPressed(own.meaning); });
        }
        return TRUE;
    }

    static void terminated(WebKitWebView*, WebKitWebProcessTerminationReason, Native* self) {
        guard([&] { self->events.ended(); });
    }

    static gboolean chooseFile(WebKitWebView*, WebKitFileChooserRequest* request, Native*) {
        webkit_file_chooser_request_cancel(request);
        return TRUE;
    }
};

BrowserPolicy::BrowserPolicy(wxWebView& browser, PageReach, BrowserEvents events)
    : native_(std::make_unique<Native>()) {
    Native* native = native_.get();
    native->view = WEBKIT_WEB_VIEW(browser.GetNativeBackend());
    native->events = std::move(events);
    restrictSettings(*webkit_web_view_get_settings(native->view));

    // The toolkit's own handlers would answer first, and do not know whether the user clicked.
    for (const char* signal : {"decide-policy", "context-menu"})
        disconnectToolkit(browser, native->view, signal);
    const auto connect = [native](gpointer object, const char* signal, GCallback handler) {
        g_signal_connect(object, signal, handler, native);
    };
    connect(native->view, "decide-policy", G_CALLBACK(Native::decidePolicy));
    connect(native->view, "context-menu", G_CALLBACK(Native::contextMenu));
    connect(native->view, "web-process-terminated", G_CALLBACK(Native::terminated));
    connect(native->view, "run-file-chooser", G_CALLBACK(Native::chooseFile));
    connect(native->view, "key-press-event", G_CALLBACK(Native::keyPress));

    GtkWidget* const widget = GTK_WIDGET(native->view);
    native->window = GTK_WINDOW(gtk_widget_get_toplevel(widget));
    native->keys = gtk_accel_group_new();
    for (const OwnKey& own : ownKeys) {
        gtk_accel_group_connect(native->keys, own.key, own.modifiers, static_cast<GtkAccelFlags>(0),
                                g_cclosure_new(G_CALLBACK(Native::ownKey), native, nullptr));
    }
    gtk_window_add_accel_group(native->window, native->keys);
    // The toolkit gives the focus to the frame around the view, where it would stay.
    gtk_widget_set_can_focus(gtk_widget_get_ancestor(widget, GTK_TYPE_SCROLLED_WINDOW), FALSE);
    // A file dropped on the view would ask to replace the page.
    gtk_drag_dest_unset(widget);
}

BrowserPolicy::~BrowserPolicy() {
    gtk_window_remove_accel_group(native_->window, native_->keys);
    g_object_unref(native_->keys);
    g_signal_handlers_disconnect_by_data(native_->view, native_.get());
}

void BrowserPolicy::load(const std::string& address) {
    native_->page.load(address);
    webkit_web_view_load_uri(native_->view, address.c_str());
}

}  // namespace tavisk
