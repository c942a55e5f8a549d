#include "command/terminal.h"

#include <csignal>
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

}  // namespace tavisk
