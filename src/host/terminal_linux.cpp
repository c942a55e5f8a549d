#include "host/terminal.h"

#include <csignal>
#include <unistd.h>

namespace tavisk {

bool errorOutputIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

void reportFailedWrites() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tavisk
