// Where a command reads and writes besides files, and what it ends with.
#pragma once

#include <iosfwd>

namespace tavisk {

/// What the process ends with.
enum class ExitCode : int { done = 0, found = 1, usage = 2, rejected = 3, runTimeError = 4 };

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
};

}  // namespace tavisk
