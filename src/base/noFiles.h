// A file system without files, for work that leaves nothing on the disk.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/files.h"

namespace tavisk {

/// Every folder is there, no file is, and what is written is gone.
class NoFiles : public Files {
public:
    bool fileExists(const std::string&) override { return false; }
    bool folderExists(const std::string&) override { return true; }
    void createFolder(const std::string&) override {}
    std::string read(const std::string&) override { raise(ErrorNumber::fileNotFound); }
    void replaceBy(const std::string&, const std::function<void(const Write&)>& produce) override {
        produce([](std::string_view) {});
    }
    void overwrite(const std::string&, std::string_view) override {}
};

}  // namespace tavisk
