// Where a command reads and writes besides files.
#pragma once

#include <iosfwd>

namespace tavisk {

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
};

}  // namespace tavisk
