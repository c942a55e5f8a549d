/* The calls of the test hosts in C. A line of standard input is "TAG COMMAND ARGUMENTS", and what
 * comes of it is a line of standard output "TAG ANSWER":
 *
 *     edit FILE OUT       OUT receives the text that comes back; the answer is the error's number,
 *     edit16 FILE OUT     and its text. The "16" go through UTF-16; their files are UTF-16.
 *     preview FILE 0|1
 *     preview16 FILE 0|1
 *     null - -            every function with null pointers; the numbers
 *     display NAME -      the process's display from now on; nothing without a NAME of "none"
 *     locale NAME -       the process's locale from now on, and what 1.5 looks like in it; "now" as
 *                         NAME changes nothing
 *     handlers - -        handlers of the host's own for two signals
 *     raise - -           both signals happen; how often the handlers have run
 *     memory - -          bytes in use
 *
 * "thread:" before the command does it in another thread.
 */
#ifndef CALLS_H
#define CALLS_H

#include <malloc.h>
#include <pthread.h>
#include <stdint.h>
#include <sys/wait.h>
#include <tavisk/tavisk.h>

#include "hostFiles.h"
#include "hostState.h"

/* Only where the sanitizer is. */
__attribute__((weak)) size_t __sanitizer_get_current_allocated_bytes(void);

static size_t memoryInUse(void) {
    if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
    return mallinfo2().uordblks;
}

static volatile sig_atomic_t userSignals, childSignals;
static void onUserSignal(int number) { userSignals = userSignals + (number == SIGUSR1); }
static void onChildSignal(int number) { childSignals = childSignals + (number == SIGCHLD); }

static void installHandlers(void) {
    struct sigaction action;
    memset(&action, 0, sizeof action);
    action.sa_flags = SA_RESTART;
    action.sa_handler = onUserSignal;
    sigaction(SIGUSR1, &action, NULL);
    action.sa_handler = onChildSignal;
    sigaction(SIGCHLD, &action, NULL);
}

static void raiseSignals(void) {
    raise(SIGUSR1);
    const pid_t child = fork();
    if (child == 0) _exit(0);
    waitpid(child, NULL, 0);
}

static void answer(const char* tag, int number, const char* text) {
    printf("%s %d%s%s\n", tag, number, text ? " " : "", text ? text : "");
    fflush(stdout);
}

static size_t length16(const uint16_t* text) {
    size_t length = 0;
    while (text[length])
        ++length;
    return length;
}

static int editFile(const char* file, const char* out, char** error) {
    char* xml = readFile(file);
    char* result = NULL;
    const int number = tavisk_edit_xml(xml, &result, error);
    writeFile(out, result, strlen(result));
    tavisk_free(result);
    free(xml);
    return number;
}

static int editFile16(const char* file, const char* out, char** error) {
    char* xml = readFile(file);
    uint16_t* result = NULL;
    const int number = tavisk_edit_xml_utf16((const uint16_t*)(const void*)xml, &result, error);
    writeFile(out, result, length16(result) * sizeof *result);
    tavisk_free(result);
    free(xml);
    return number;
}

static int previewFile(const char* file, int evaluate, char** error) {
    char* xml = readFile(file);
    const int number = tavisk_preview_xml(xml, evaluate, error);
    free(xml);
    return number;
}

static int previewFile16(const char* file, int evaluate, char** error) {
    char* xml = readFile(file);
    const int number = tavisk_preview_xml_utf16((const uint16_t*)(const void*)xml, evaluate, error);
    free(xml);
    return number;
}

static void callWithNull(const char* tag) {
    char* result = NULL;
    uint16_t* result16 = NULL;
    char* error = NULL;
    const int numbers[] = {tavisk_edit_xml(NULL, &result, &error),
                           tavisk_edit_xml("<a/>", NULL, NULL),
                           tavisk_edit_xml_utf16(NULL, &result16, NULL),
                           tavisk_edit_xml_utf16((const uint16_t*)u"<a/>", NULL, NULL),
                           tavisk_preview_xml(NULL, 1, NULL),
                           tavisk_preview_xml_utf16(NULL, 1, NULL)};
    printf("%s", tag);
    for (size_t i = 0; i < sizeof numbers / sizeof *numbers; ++i)
        printf(" %d", numbers[i]);
    printf(" %s %s\n", result || result16 ? "result" : "no result", error);
    fflush(stdout);
    tavisk_free(error);
    tavisk_free(NULL);
}

static void setDisplay(const char* name) {
    if (strcmp(name, "none") == 0) {
        unsetenv("DISPLAY");
    } else {
        setenv("DISPLAY", name, 1);
    }
}

/* Whether the command opens a window, and so is one that changes nothing of the host. */
static int isWindowCall(const char* command) {
    return strncmp(command, "edit", 4) == 0 || strncmp(command, "preview", 7) == 0;
}

static void callWindow(const char* tag, const char* command, const char* file,
                       const char* argument) {
    char* error = NULL;
    int number = -1;
    char* before = hostState();
    if (strcmp(command, "edit") == 0) number = editFile(file, argument, &error);
    if (strcmp(command, "edit16") == 0) number = editFile16(file, argument, &error);
    if (strcmp(command, "preview") == 0) number = previewFile(file, atoi(argument), &error);
    if (strcmp(command, "preview16") == 0) number = previewFile16(file, atoi(argument), &error);
    char* after = hostState();
    char* change = stateChange(before, after);
    if (change) {
        printf("%s changed: %s\n", tag, change);
        fflush(stdout);
    } else {
        answer(tag, number, error);
    }
    free(change);
    free(after);
    free(before);
    tavisk_free(error);
}

static void callOther(const char* tag, const char* command, const char* argument) {
    if (strcmp(command, "null") == 0) {
        callWithNull(tag);
    } else if (strcmp(command, "handlers") == 0) {
        installHandlers();
        answer(tag, 0, NULL);
    } else if (strcmp(command, "raise") == 0) {
        raiseSignals();
        printf("%s %d %d\n", tag, userSignals, childSignals);
    } else if (strcmp(command, "memory") == 0) {
        printf("%s %zu\n", tag, memoryInUse());
    } else if (strcmp(command, "display") == 0) {
        setDisplay(argument);
        answer(tag, 0, NULL);
    } else if (strcmp(command, "locale") == 0) {
        const char* name = setlocale(LC_ALL, strcmp(argument, "now") == 0 ? NULL : argument);
        printf("%s %s %.1f\n", tag, name ? name : "none", 1.5);
    } else {
        answer(tag, -1, "unknown command");
    }
    fflush(stdout);
}

/* A line of standard input in its words. */
struct Line {
    char text[2000];
    const char *tag, *command, *file, *argument;
    int threaded;
};

/* The words of `line->text`; 0 where some are missing. */
static int split(struct Line* line) {
    static const char thread[] = "thread:";
    char* rest = NULL;
    line->tag = strtok_r(line->text, " \n", &rest);
    line->command = strtok_r(NULL, " \n", &rest);
    line->file = strtok_r(NULL, " \n", &rest);
    line->argument = strtok_r(NULL, " \n", &rest);
    if (!line->argument) return 0;
    line->threaded = strncmp(line->command, thread, strlen(thread)) == 0;
    if (line->threaded) line->command += strlen(thread);
    return 1;
}

static void perform(const struct Line* line) {
    if (isWindowCall(line->command)) {
        callWindow(line->tag, line->command, line->file, line->argument);
    } else {
        callOther(line->tag, line->command, line->file);
    }
}

/* For pthread_create. */
static void* performElsewhere(void* line) {
    perform((const struct Line*)line);
    return NULL;
}

#endif
