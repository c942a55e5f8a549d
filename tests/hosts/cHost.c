/* A host in C that has never heard of a toolkit: it waits for its standard input. */
#include "calls.h"

int main(void) {
    struct Line line;
    while (fgets(line.text, sizeof line.text, stdin)) {
        if (!split(&line)) return 2;
        if (line.threaded) {
            pthread_t thread;
            if (pthread_create(&thread, NULL, performElsewhere, &line) != 0) return 1;
            pthread_join(thread, NULL);
        } else {
            perform(&line);
        }
    }
    return 0;
}
