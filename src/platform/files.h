// The file system as the component uses it: whole files in, whole files out.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tavisk {

/// Paths are UTF-8. Failures are run-time errors: 52 bad name, 53 file not found, 57 device,
/// 61 disk full, 70 permission denied, 76 path not found.
class Files {
public:
    virtual ~Files() = default;

    virtual bool fileExists(const std::string& path) = 0;
    virtual bool folderExists(const std::string& path) = 0;

    /// Creates the last level only.
    virtual void createFolder(const std::string& path) = 0;

    virtual std::string read(const std::string& path) = 0;

    /// The file holds exactly the parts, one after the other, or is left as it was.
    virtual void replace(const std::string& path,
                         std::initializer_list<std::string_view> parts) = 0;

    /// The file begins with `bytes`; an older, longer file keeps its tail behind them. Left as it
    /// was on failure.
    virtual void overwrite(const std::string& path, std::string_view bytes) = 0;
};

class DiskFiles final : public Files {
public:
    bool fileExists(const std::string& path) override;
    bool folderExists(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::string read(const std::string& path) override;
    void replace(const std::string& path, std::initializer_list<std::string_view> parts) override;
    void overwrite(const std::string& path, std::string_view bytes) override;
};

}  // namespace tavisk
