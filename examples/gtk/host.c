/* A host with a main loop and a window of its own; its button opens the editor on a document.
 *
 *     cc examples/gtk/host.c -o host $(pkg-config --cflags --libs tavisk gtk+-3.0 libxml-2.0)
 *     ./host DOCUMENT
 */
#include <gtk/gtk.h>
#include <tavisk/tavisk.h>

#include <libxml/parser.h>

/* What a real host computes from the item's construction. */
static const char* const values[][2] = {
    {"code", "D45"}, {"type", "Door"}, {"width", "450"}, {"height", "720"}};

static GtkWidget* button;

static void setValue(xmlNode* formula) {
    xmlChar* name = xmlGetNoNsProp(formula, BAD_CAST "name");
    for (size_t i = 0; i < G_N_ELEMENTS(values); ++i) {
        if (xmlStrEqual(name, BAD_CAST values[i][0]))
            xmlSetProp(formula, BAD_CAST "value", BAD_CAST values[i][1]);
    }
    xmlFree(name);
}

static xmlDoc* parsed(const char* document) {
    return xmlReadMemory(document, (int)strlen(document), NULL, "UTF-8",
                         XML_PARSE_NONET | XML_PARSE_HUGE);
}

/* The document with the present value of every formula; null if it is no XML. */
static char* withValues(const char* document) {
    xmlDoc* tree = parsed(document);
    if (!tree) return NULL;
    for (xmlNode* node = xmlDocGetRootElement(tree)->children; node; node = node->next) {
        if (xmlStrEqual(node->name, BAD_CAST "formula")) setValue(node);
    }
    xmlChar* text = NULL;
    int length = 0;
    xmlDocDumpMemoryEnc(tree, &text, &length, "UTF-8");
    xmlFreeDoc(tree);
    return (char*)text;
}

/* Whether the editor was left by "Refresh Formula Values". */
static gboolean wantsRefresh(const char* document) {
    xmlDoc* tree = parsed(document);
    gboolean marked = FALSE;
    for (xmlNode* node = xmlDocGetRootElement(tree)->children; node; node = node->next)
        marked = marked || xmlStrEqual(node->name, BAD_CAST "location");
    xmlFreeDoc(tree);
    return marked;
}

/* As long as the user refreshes, compute the values and open the editor at the same place. */
static gboolean editHelp(gpointer file) {
    char* document = NULL;
    gboolean again = g_file_get_contents(file, &document, NULL, NULL);
    while (again) {
        char *given = withValues(document), *edited = NULL, *error = NULL;
        const int failed = tavisk_edit_xml(given, &edited, &error);
        if (failed) {
            g_printerr("%s: %s\n", (const char*)file, error);
        } else {
            g_free(document);
            document = g_strdup(edited);
        }
        again = !failed && wantsRefresh(document);
        if (!failed && !again) g_file_set_contents(file, document, -1, NULL);
        tavisk_free(error);
        tavisk_free(edited);
        xmlFree(given);
    }
    g_free(document);
    gtk_widget_set_sensitive(button, TRUE);
    return G_SOURCE_REMOVE;
}

/* Later, when the click is done: one that came from a screen reader waits for its answer. */
static void clicked(GtkButton* ignored, gpointer file) {
    (void)ignored;
    gtk_widget_set_sensitive(button, FALSE);
    g_idle_add(editHelp, file);
}

int main(int count, char** words) {
    gtk_init(&count, &words);
    if (count != 2) return 2;
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    button = gtk_button_new_with_label("Edit help");
    gtk_window_set_title(GTK_WINDOW(window), "Door");
    gtk_container_set_border_width(GTK_CONTAINER(window), 40);
    gtk_container_add(GTK_CONTAINER(window), button);
    g_signal_connect(button, "clicked", G_CALLBACK(clicked), words[1]);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
