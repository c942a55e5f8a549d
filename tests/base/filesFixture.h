// Files on the disk, in a folder of each test's own.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "base/files.h"
#include "support/errors.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

class DiskFiles : public ::testing::Test {
protected:
    ~DiskFiles() override {
        std::error_code ignored;
        std::filesystem::permissions(pathOf(folder), std::filesystem::perms::owner_all, ignored);
    }

    std::string path(const std::string& name) const { return folder + "/" + name; }

    std::string put(const std::string& name, const std::string& bytes) const {
        return own_.write(name, bytes);
    }
    std::string bytesOf(const std::string& name) const { return own_.read(name); }
    std::ptrdiff_t count() const { return own_.count(); }

    int readError(const std::string& name) {
        return errorOf([&] { files.read(name); });
    }
    int replaceError(const std::string& name, std::string_view bytes = "new") {
        return errorOf([&] { files.replace(name, {bytes}); });
    }
    int overwriteError(const std::string& name, std::string_view bytes = "new") {
        return errorOf([&] { files.overwrite(name, bytes); });
    }

private:
    TemporaryFolder own_;

protected:
    const std::string folder = own_.path();
    tavisk::DiskFiles files;
};

}  // namespace tavisk::test
