// Run-time errors that know which file they are about.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/files.h"

namespace tavisk {

class FileError : public RunTimeError {
public:
    FileError(ErrorNumber number, std::string file)
        : RunTimeError(number), file_(std::move(file)) {}

    const std::string& file() const noexcept { return file_; }

private:
    std::string file_;
};

/// Passes everything on; an error comes back with the path it happened on.
class NamingFiles final : public Files {
public:
    explicit NamingFiles(Files& files) : files_(files) {}

    bool fileExists(const std::string& path) override;
    bool folderExists(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::string read(const std::string& path) override;
    void replaceBy(const std::string& path,
                   const std::function<void(const Write&)>& produce) override;
    void overwrite(const std::string& path, std::string_view bytes) override;

private:
    Files& files_;
};

}  // namespace tavisk
