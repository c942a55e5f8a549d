#include <ctime>
#include <gtk/gtk.h>
#include <wx/textctrl.h>

#include "typing.h"

namespace tavisk::bench {
namespace {

GtkWidget* viewOf(wxTextCtrl& control) { return gtk_bin_get_child(GTK_BIN(control.GetHandle())); }

void send(GtkWidget* view, GdkEventType type, guint key) {
    GdkDisplay* const display = gtk_widget_get_display(view);
    GdkEvent* const event = gdk_event_new(type);
    event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(view)));
    event->key.send_event = TRUE;
    event->key.time = GDK_CURRENT_TIME;
    event->key.keyval = key;
    GdkKeymapKey* keys = nullptr;
    gint count = 0;
    if (gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), key, &keys,
                                          &count)) {
        event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
        g_free(keys);
    }
    gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
    gtk_main_do_event(event);
    gdk_event_free(event);
}

void painted(GdkFrameClock*, bool* done) { *done = true; }

}  // namespace

void pressKey(wxTextCtrl& control, char character) {
    GtkWidget* const view = viewOf(control);
    const guint key = gdk_unicode_to_keyval(static_cast<guint32>(character));
    send(view, GDK_KEY_PRESS, key);
    send(view, GDK_KEY_RELEASE, key);
}

void untilPainted(wxTextCtrl& control) {
    GdkFrameClock* const clock = gtk_widget_get_frame_clock(viewOf(control));
    bool done = false;
    const gulong handler = g_signal_connect(clock, "after-paint", G_CALLBACK(painted), &done);
    while (!done)
        g_main_context_iteration(nullptr, TRUE);
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    g_signal_handler_disconnect(clock, handler);
}

double processorTime() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    constexpr double billion = 1e9;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / billion;
}

}  // namespace tavisk::bench
