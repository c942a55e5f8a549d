// Runs command lines inside the test, with streams and a folder of its own.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "command/commands.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

struct CommandRun {
    int exit;
    std::string out;
    std::string err;

    bool operator==(const CommandRun&) const = default;
};

inline void PrintTo(const CommandRun& run, std::ostream* to) {
    *to << "exit " << run.exit << "\nout: " << run.out << "\nerr: " << run.err;
}

inline CommandRun runWith(const std::string& input, const std::vector<std::string>& arguments) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const ExitCode exit = runCommand(arguments, Streams{in, out, err});
    return {static_cast<int>(exit), out.str(), err.str()};
}

inline CommandRun runIt(const std::vector<std::string>& arguments) {
    return runWith("", arguments);
}

}  // namespace tavisk::test
