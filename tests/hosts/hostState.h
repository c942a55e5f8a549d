/* What belongs to a host, as text: signal handlers, locale, folder, streams, environment. */
#ifndef HOST_STATE_H
#define HOST_STATE_H

#include <fcntl.h>
#include <locale.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

extern char** environ;

static void describeSignals(FILE* to) {
    sigset_t blocked;
    sigprocmask(SIG_SETMASK, NULL, &blocked);
    for (int number = 1; number <= 64; ++number) {
        const int restorer = 0x04000000; /* the C library's own, and only where it set a handler */
        struct sigaction action;
        memset(&action, 0, sizeof action);
        if (sigaction(number, NULL, &action) != 0) continue;
        fprintf(to, "signal %d: %lx %x%s, held back while it is handled:", number,
                (unsigned long)action.sa_sigaction, (unsigned)(action.sa_flags & ~restorer),
                sigismember(&blocked, number) ? " blocked" : "");
        for (int other = 1; other <= 64; ++other) {
            if (sigismember(&action.sa_mask, other)) fprintf(to, " %d", other);
        }
        fputc('\n', to);
    }
}

static void describeStreams(FILE* to) {
    for (int number = 0; number <= 2; ++number) {
        struct stat file;
        if (fstat(number, &file) != 0) continue;
        fprintf(to, "stream %d: %lu %lu %x %x\n", number, (unsigned long)file.st_dev,
                (unsigned long)file.st_ino, (unsigned)fcntl(number, F_GETFL),
                (unsigned)fcntl(number, F_GETFD));
    }
}

static char* hostState(void) {
    char* text = NULL;
    size_t size = 0;
    FILE* to = open_memstream(&text, &size);
    describeSignals(to);
    describeStreams(to);
    fprintf(to, "locale: %s\n", setlocale(LC_ALL, NULL));
    char* folder = getcwd(NULL, 0);
    fprintf(to, "folder: %s\n", folder ? folder : "");
    free(folder);
    const mode_t mask = umask(0);
    umask(mask);
    fprintf(to, "file mode mask: %o\n", (unsigned)mask);
    struct rlimit files;
    getrlimit(RLIMIT_NOFILE, &files);
    fprintf(to, "limit of files: %lu\n", (unsigned long)files.rlim_cur);
    for (char** variable = environ; *variable; ++variable)
        fprintf(to, "environment: %s\n", *variable);
    fclose(to);
    return text;
}

/* The first line that differs, as it is after; null without one. To be freed. */
static char* stateChange(const char* before, const char* after) {
    while (*before || *after) {
        const size_t length = strcspn(after, "\n");
        if (strcspn(before, "\n") != length || strncmp(before, after, length) != 0)
            return strndup(after, length);
        before += length + (before[length] == '\n');
        after += length + (after[length] == '\n');
    }
    return NULL;
}

#endif
