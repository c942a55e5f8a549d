/* A host whose event loop runs all the time: loopHost gtk|glib. Calls are made from sources of that
 * loop; the commands that come while one runs are answered meanwhile. Further commands:
 *
 *     ticks - -       how often the host's own timer has run
 *     busy - -        from now on the host has something to do whenever nothing else happens
 *     window - -      opens a window with a button that counts its clicks
 *     clicks - -      that count
 *     many FILE N     N edits of FILE, each ended by OK at once; bytes in use after the first
 *                     quarter and after the last
 *     quit - -        ends the host's loop, or rather asks it to end; so does the end of the input
 */
#include <gtk/gtk.h>

#include "calls.h"

static GMainLoop* loop; /* null in gtk_main */
static long ticks, clicks;

static gboolean tick(gpointer ignored) {
    (void)ignored;
    ++ticks;
    return G_SOURCE_CONTINUE;
}

static gboolean stayBusy(gpointer ignored) {
    (void)ignored;
    return G_SOURCE_CONTINUE;
}

static void countClick(GtkButton* button, gpointer ignored) {
    (void)button;
    (void)ignored;
    ++clicks;
}

static void openWindow(void) {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* button = gtk_button_new_with_label("Host button");
    gtk_window_set_title(GTK_WINDOW(window), "Host window");
    gtk_container_add(GTK_CONTAINER(window), button);
    gtk_window_move(GTK_WINDOW(window), 0, 0); /* where nothing covers it */
    g_signal_connect(button, "clicked", G_CALLBACK(countClick), NULL);
    gtk_widget_show_all(window);
}

static void quit(void) {
    if (loop) {
        g_main_loop_quit(loop);
    } else {
        gtk_main_quit();
    }
}

/* ---- many edits */

static void clickButton(GtkWidget* widget, gpointer label) {
    if (GTK_IS_BUTTON(widget) &&
        g_strcmp0(gtk_button_get_label(GTK_BUTTON(widget)), (const char*)label) == 0) {
        gtk_button_clicked(GTK_BUTTON(widget));
    } else if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), clickButton, label);
    }
}

static gboolean clickOk(gpointer label) {
    GList* windows = gtk_window_list_toplevels();
    for (GList* window = windows; window; window = window->next) {
        if (gtk_widget_is_visible(GTK_WIDGET(window->data)))
            clickButton(GTK_WIDGET(window->data), label);
    }
    g_list_free(windows);
    return G_SOURCE_CONTINUE;
}

static void editOften(const struct Line* line) {
    static char okLabel[] = "_OK";
    const int count = atoi(line->argument);
    char* xml = readFile(line->file);
    size_t early = 0;
    const guint clicker = g_timeout_add(5, clickOk, okLabel);
    for (int i = 1; i <= count; ++i) {
        char* result = NULL;
        const int number = tavisk_edit_xml(xml, &result, NULL);
        tavisk_free(result);
        if (number != 0) answer(line->tag, number, "an edit failed");
        if (i == count / 4) early = memoryInUse();
    }
    g_source_remove(clicker);
    free(xml);
    printf("%s %zu %zu\n", line->tag, early, memoryInUse());
    fflush(stdout);
}

/* ---- commands */

static gboolean performLater(gpointer data) {
    struct Line* line = (struct Line*)data;
    if (strcmp(line->command, "many") == 0) {
        editOften(line);
    } else {
        perform(line);
    }
    g_free(line);
    return G_SOURCE_REMOVE;
}

static gpointer performInThread(gpointer line) {
    performElsewhere(line);
    g_free(line);
    return NULL;
}

static void performNow(const struct Line* line) {
    if (strcmp(line->command, "ticks") == 0) {
        printf("%s %ld\n", line->tag, ticks);
    } else if (strcmp(line->command, "clicks") == 0) {
        printf("%s %ld\n", line->tag, clicks);
    } else if (strcmp(line->command, "busy") == 0) {
        g_idle_add(stayBusy, NULL);
        answer(line->tag, 0, NULL);
    } else if (strcmp(line->command, "window") == 0) {
        openWindow();
        answer(line->tag, 0, NULL);
    } else if (strcmp(line->command, "quit") == 0) {
        answer(line->tag, 0, NULL);
        quit();
    } else {
        perform(line);
    }
    fflush(stdout);
}

static gboolean readCommand(GIOChannel* input, GIOCondition condition, gpointer ignored) {
    (void)condition;
    (void)ignored;
    gchar* text = NULL;
    if (g_io_channel_read_line(input, &text, NULL, NULL, NULL) != G_IO_STATUS_NORMAL) {
        quit();
        return G_SOURCE_REMOVE;
    }
    struct Line* line = g_new0(struct Line, 1);
    g_strlcpy(line->text, text, sizeof line->text);
    g_free(text);
    if (!split(line)) {
        quit();
    } else if (line->threaded) {
        g_thread_unref(g_thread_new("caller", performInThread, line));
        return G_SOURCE_CONTINUE;
    } else if (isWindowCall(line->command) || strcmp(line->command, "many") == 0) {
        /* From a source of its own: this one is to be read meanwhile. */
        g_timeout_add(0, performLater, line);
        return G_SOURCE_CONTINUE;
    } else {
        performNow(line);
    }
    g_free(line);
    return G_SOURCE_CONTINUE;
}

int main(int count, char** words) {
    const int isGtk = count > 1 && strcmp(words[1], "gtk") == 0;
    if (isGtk) {
        gtk_init(&count, &words);
    } else {
        loop = g_main_loop_new(NULL, FALSE);
    }
    g_timeout_add(10, tick, NULL);
    GIOChannel* input = g_io_channel_unix_new(STDIN_FILENO);
    g_io_add_watch(input, G_IO_IN | G_IO_HUP, readCommand, NULL);
    if (isGtk) {
        gtk_main();
    } else {
        g_main_loop_run(loop);
        g_main_loop_unref(loop);
    }
    g_io_channel_unref(input);
    return 0;
}
