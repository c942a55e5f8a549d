#include "command/process.h"

#include <csignal>
#include <malloc.h>
#include <unistd.h>

namespace tavisk {

std::vector<std::string> commandArguments(int count, char** words) {
    return {words + (count > 0 ? 1 : 0), words + count};
}

bool errorOutputIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

std::string_view missingForWindows() {
    return "A window needs a display: is DISPLAY or WAYLAND_DISPLAY set?\n";
}

void passBytesThrough() {}

void reportFailedWrites() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void keepFreedMemory() {
    // Larger blocks than this go back all the same: the library allows no more. There are no other
    // threads yet.
    ::mallopt(M_MMAP_THRESHOLD, 32 << 20);   // NOLINT(concurrency-mt-unsafe)
    ::mallopt(M_TRIM_THRESHOLD, 256 << 20);  // NOLINT(concurrency-mt-unsafe)
}

}  // namespace tavisk
