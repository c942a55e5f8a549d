#include <cstdlib>
#include <fstream>
#include <gtk/gtk.h>
#include <sstream>
#include <stdexcept>
#include <unistd.h>
#include <webkit2/webkit2.h>

#include "ui/support/previewNative_gtk.h"

namespace tavisk::test {
namespace {

namespace fs = std::filesystem;

WebKitWebView* viewOf(const wxWebView& browser) {
    return WEBKIT_WEB_VIEW(browser.GetNativeBackend());
}

std::string nameOf(WebKitContextMenuItem* item) {
    switch (webkit_context_menu_item_get_stock_action(item)) {
        case WEBKIT_CONTEXT_MENU_ACTION_COPY: return "copy";
        case WEBKIT_CONTEXT_MENU_ACTION_COPY_LINK_TO_CLIPBOARD: return "copyLink";
        case WEBKIT_CONTEXT_MENU_ACTION_COPY_IMAGE_TO_CLIPBOARD: return "copyImage";
        case WEBKIT_CONTEXT_MENU_ACTION_SELECT_ALL: return "all";
        default: return "?";
    }
}

}  // namespace

struct AskedAddresses::Hook {
    guint signal = g_signal_lookup("decide-policy", WEBKIT_TYPE_WEB_VIEW);
    gulong id = 0;
    std::vector<std::string> addresses;

    static gboolean asked(GSignalInvocationHint*, guint, const GValue* values, gpointer data) {
        auto* decision = WEBKIT_POLICY_DECISION(g_value_get_object(values + 1));
        if (!WEBKIT_IS_NAVIGATION_POLICY_DECISION(decision)) return TRUE;
        WebKitNavigationAction* action = webkit_navigation_policy_decision_get_navigation_action(
            WEBKIT_NAVIGATION_POLICY_DECISION(decision));
        static_cast<Hook*>(data)->addresses.emplace_back(
            webkit_uri_request_get_uri(webkit_navigation_action_get_request(action)));
        return TRUE;
    }
};

AskedAddresses::AskedAddresses() : hook_(std::make_unique<Hook>()) {
    hook_->id = g_signal_add_emission_hook(hook_->signal, 0, Hook::asked, hook_.get(), nullptr);
}

AskedAddresses::~AskedAddresses() { g_signal_remove_emission_hook(hook_->signal, hook_->id); }

std::size_t AskedAddresses::count(std::string_view address) const {
    return static_cast<std::size_t>(
        std::count(hook_->addresses.begin(), hook_->addresses.end(), address));
}

std::string shownText(const wxWebView& browser) {
    GtkClipboard* const clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
    const std::string nothing = "(nothing copied)";
    gtk_clipboard_set_text(clipboard, nothing.c_str(), -1);
    webkit_web_view_execute_editing_command(viewOf(browser), WEBKIT_EDITING_COMMAND_SELECT_ALL);
    webkit_web_view_execute_editing_command(viewOf(browser), WEBKIT_EDITING_COMMAND_COPY);
    std::string text = nothing;
    pumpUntil([&] {
        if (gchar* const copied = gtk_clipboard_wait_for_text(clipboard)) {
            text = copied;
            g_free(copied);
        }
        return text != nothing;
    });
    return text;
}

std::uint32_t shownColour(const wxWebView& browser, int x, int y) {
    struct Answer {
        bool came = false;
        cairo_surface_t* surface = nullptr;
    } answer;
    webkit_web_view_get_snapshot(
        viewOf(browser), WEBKIT_SNAPSHOT_REGION_VISIBLE, WEBKIT_SNAPSHOT_OPTIONS_NONE, nullptr,
        [](GObject* view, GAsyncResult* result, gpointer data) {
            auto* const to = static_cast<Answer*>(data);
            to->surface =
                webkit_web_view_get_snapshot_finish(WEBKIT_WEB_VIEW(view), result, nullptr);
            to->came = true;
        },
        &answer);
    if (!pumpUntil([&] { return answer.came; }) || !answer.surface)
        throw std::runtime_error("the browser gives no picture of its page");
    cairo_surface_t* const point = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1);
    cairo_t* const pen = cairo_create(point);
    cairo_set_source_surface(pen, answer.surface, -x, -y);
    cairo_paint(pen);
    cairo_destroy(pen);
    cairo_surface_flush(point);
    const std::uint32_t colour =
        *reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(point)) & 0xFFFFFFU;
    cairo_surface_destroy(point);
    cairo_surface_destroy(answer.surface);
    return colour;
}

void clickAt(const wxWebView& browser, const wxPoint& place, int button) {
    // One after the other, as a hand does it: a browser that gets them all at once may take the
    // next movement for the start of a drag.
    struct Got {
        bool motion = false;
        bool release = false;
    } got;
    const auto note = [](WebKitWebView*, GdkEvent* event, Got* to) -> gboolean {
        to->motion |= event->type == GDK_MOTION_NOTIFY || event->type == GDK_ENTER_NOTIFY;
        to->release |= event->type == GDK_BUTTON_RELEASE;
        return FALSE;
    };
    const gulong id = g_signal_connect(
        viewOf(browser), "event",
        G_CALLBACK(static_cast<gboolean (*)(WebKitWebView*, GdkEvent*, Got*)>(note)), &got);
    wxUIActionSimulator pointer;
    // From elsewhere, so that there is a movement.
    pointer.MouseMove(browser.ClientToScreen(place + wxPoint(5, 5)));
    pointer.MouseMove(browser.ClientToScreen(place));
    const bool moved = pumpUntil([&] { return got.motion; });
    pointer.MouseClick(button);
    const bool clicked = pumpUntil([&] { return got.release; });
    g_signal_handler_disconnect(viewOf(browser), id);
    if (!moved || !clicked) throw std::runtime_error("the browser gets no click");
}

std::string menuAt(const wxWebView& browser, const wxPoint& place) {
    struct Menu {
        bool came = false;
        std::string entries;
    } menu;
    using Handler =
        gboolean (*)(WebKitWebView*, WebKitContextMenu*, GdkEvent*, WebKitHitTestResult*, Menu*);
    const Handler opening = [](WebKitWebView*, WebKitContextMenu* context, GdkEvent*,
                               WebKitHitTestResult*, Menu* to) -> gboolean {
        for (const GList* item = webkit_context_menu_get_items(context); item; item = item->next)
            to->entries += nameOf(WEBKIT_CONTEXT_MENU_ITEM(item->data)) + " ";
        to->came = true;
        return TRUE;
    };
    WebKitWebView* const view = viewOf(browser);
    const gulong id = g_signal_connect(view, "context-menu", G_CALLBACK(opening), &menu);
    clickAt(browser, place, wxMOUSE_BTN_RIGHT);
    pumpUntil([&] { return menu.came; });
    g_signal_handler_disconnect(view, id);
    return menu.entries;
}

bool takesDrops(const wxWebView& browser) {
    return gtk_drag_dest_get_target_list(GTK_WIDGET(viewOf(browser))) != nullptr;
}

std::vector<int> pageProcesses() {
    std::vector<int> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        std::ifstream file(entry.path() / "stat");
        std::stringstream text;
        text << file.rdbuf();
        // "pid (name) state parent ...", the name cut after 15 characters.
        const std::string line = text.str();
        const std::size_t end = line.rfind(") ");
        if (end == std::string::npos || line.find("(WebKitWebProces") == std::string::npos)
            continue;
        char state = 0;
        int parent = 0;
        std::istringstream rest(line.substr(end + 2));
        rest >> state >> parent;
        if (parent == getpid()) found.push_back(std::atoi(line.c_str()));
    }
    return found;
}

}  // namespace tavisk::test
