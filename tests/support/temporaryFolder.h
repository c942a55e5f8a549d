// A folder for the files of one test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include "base/paths.h"

namespace tavisk::test {

/// An empty folder that is gone with the test.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() /
                    ("tavisk-" + std::to_string(random()) + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string path(std::string_view name) const { return textOf(path_ / pathOf(name)); }
    std::string path() const { return textOf(path_); }

    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / pathOf(name), std::ios::binary) << bytes;
        return path(name);
    }
    std::string read(std::string_view name) const {
        std::ifstream file(path_ / pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(std::string_view name) const { return std::filesystem::exists(path_ / pathOf(name)); }

    /// Files in the folder, hidden ones included.
    std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(path_),
                             std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path path_;
};

}  // namespace tavisk::test
