/* A host in C: edits the help of a door and shows its page.
 *
 *     cc examples/c/edit.c -o edit $(pkg-config --cflags --libs tavisk libxml-2.0)
 *     ./edit DOCUMENT
 */
#include <stdio.h>
#include <string.h>
#include <tavisk/tavisk.h>

#include <libxml/parser.h>

/* What a real host computes from the item's construction. */
static const char *const values[][2] = {
    {"code", "D45"}, {"type", "Door"}, {"width", "450"}, {"height", "720"}};

static void set_value(xmlNode *formula) {
    xmlChar *name = xmlGetNoNsProp(formula, BAD_CAST "name");
    for (size_t i = 0; i < sizeof values / sizeof values[0]; ++i) {
        if (xmlStrEqual(name, BAD_CAST values[i][0]))
            xmlSetProp(formula, BAD_CAST "value", BAD_CAST values[i][1]);
    }
    xmlFree(name);
}

/* The first element of that name beside the cabinet. */
static xmlNode *find(xmlDoc *tree, const char *name) {
    xmlNode *node = xmlDocGetRootElement(tree)->children;
    while (node && !xmlStrEqual(node->name, BAD_CAST name)) node = node->next;
    return node;
}

/* The text of a tree with the present value of every formula; xmlFree frees it. */
static char *with_values(xmlDoc *tree) {
    for (xmlNode *node = find(tree, "formula"); node; node = node->next) {
        if (xmlStrEqual(node->name, BAD_CAST "formula")) set_value(node);
    }
    xmlChar *text = NULL;
    int length = 0;
    xmlDocDumpMemoryEnc(tree, &text, &length, "UTF-8");
    return (char *)text;
}

static int write_file(const char *name, const char *text) {
    FILE *file = fopen(name, "wb");
    if (!file) return 0;
    const int written = fputs(text, file) >= 0;
    return fclose(file) == 0 && written;
}

int main(int count, char **words) {
    if (count != 2) return 2;
    const int options = XML_PARSE_NONET | XML_PARSE_HUGE;
    xmlDoc *tree = xmlReadFile(words[1], NULL, options);
    if (!tree) return 1;

    /* As long as the user refreshes, compute the values and open the editor at the same place. */
    char *given, *edited = NULL, *error = NULL;
    int failed;
    do {
        tavisk_free(edited);
        given = with_values(tree);
        failed = tavisk_edit_xml(given, &edited, &error);
        xmlFree(given);
        if (!failed) {
            xmlFreeDoc(tree);
            tree = xmlReadMemory(edited, (int)strlen(edited), NULL, "UTF-8", options);
        }
    } while (!failed && find(tree, "location"));

    if (!failed) failed = !write_file(words[1], edited);
    if (!failed) {
        given = with_values(tree);
        failed = tavisk_preview_xml(given, 1, &error);
        xmlFree(given);
    }
    if (failed) fprintf(stderr, "%s: %s\n", words[1], error ? error : "cannot be written");
    tavisk_free(error);
    tavisk_free(edited);
    xmlFreeDoc(tree);
    return failed != 0;
}
