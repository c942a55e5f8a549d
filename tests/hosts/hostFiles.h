/* Whole files for the test hosts. */
#ifndef HOST_FILES_H
#define HOST_FILES_H

#include <stdio.h>
#include <stdlib.h>

/* The bytes with NULs behind them, enough for a UTF-16 text to end. */
static inline char* readFile(const char* path) {
    FILE* file = fopen(path, "rb");
    if (!file) return NULL;
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    rewind(file);
    char* bytes = (char*)calloc((size_t)size + 2, 1);
    if (bytes && fread(bytes, 1, (size_t)size, file) != (size_t)size) bytes[0] = 0;
    fclose(file);
    return bytes;
}

static inline void writeFile(const char* path, const void* bytes, size_t size) {
    FILE* file = fopen(path, "wb");
    if (!file) return;
    fwrite(bytes, 1, size, file);
    fclose(file);
}

#endif
