// The file system as the component uses it: whole files in, whole files out.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
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

    using Write = std::function<void(std::string_view bytes)>;

    /// `produce` hands over the file's bytes piece by piece. The file then holds exactly these; it
    /// is left as it was when anything fails, an exception of `produce` included.
    virtual void replaceBy(const std::string& path,
                           const std::function<void(const Write& write)>& produce) = 0;

    /// The same for parts that exist already.
    void replace(const std::string& path, std::initializer_list<std::string_view> parts);

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
    void replaceBy(const std::string& path,
                   const std::function<void(const Write& write)>& produce) override;
    void overwrite(const std::string& path, std::string_view bytes) override;
};

struct Bytes {
    std::unique_ptr<char[]> data;  ///< followed by a NUL that `size` does not count
    std::size_t size = 0;
};

/// Everything that `read` gives, until it gives nothing. It puts up to `room` bytes where it is
/// told and says how many. The memory is that of the result from the beginning if `sizeHint` is
/// right; a pipe has no size and a file may grow.
Bytes readToEnd(const std::function<std::size_t(char* to, std::size_t room)>& read,
                std::size_t sizeHint);

}  // namespace tavisk
