// Runs command lines inside the test, with streams and a folder of its own.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <vector>

#include "host/commands.h"

namespace tavisk::test {

/// An empty folder that is gone with the test.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tavisk-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string path(std::string_view name) const { return (path_ / name).string(); }
    std::string path() const { return path_.string(); }

    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path(name);
    }
    std::string read(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(std::string_view name) const { return std::filesystem::exists(path_ / name); }

private:
    std::filesystem::path path_;
};

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
