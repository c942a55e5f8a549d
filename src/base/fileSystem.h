// What whole files need of a system. Paths are UTF-8; what fails raises the error numbers of
// files.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/error.h"

namespace tavisk::fileSystem {

/// What parts a path into folders.
std::string_view separators() noexcept;

unsigned long processNumber() noexcept;

struct Status {
    bool folder = false;
    bool ordinary = false;  ///< a file with a size, no pipe and no device
    std::uint64_t size = 0;
    unsigned mode = 0;  ///< rights, where a file has them as a number
};

/// Why there is no status: `fileNotFound` where nothing has that name yet.
std::variant<Status, ErrorNumber> statusOf(const std::string& path);

enum class Access {
    read,
    write,   ///< an existing file, from its beginning
    create,  ///< a file that must not be there yet
};

class OpenFile {
public:
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&&) = delete;
    ~OpenFile();

    /// Of an ordinary file.
    std::optional<std::uint64_t> size() const;

    /// Up to `size` bytes; 0 at the end only.
    std::size_t read(char* to, std::size_t size) const;
    void write(std::string_view bytes) const;
    void moveTo(std::uint64_t position) const;

    /// Some file systems report a full disk only here.
    void close();

    std::intptr_t handle() const noexcept { return handle_; }

private:
    friend std::variant<OpenFile, ErrorNumber> openFile(const std::string& path, Access access);

    explicit OpenFile(std::intptr_t handle) noexcept : handle_(handle) {}

    std::intptr_t handle_;
};

std::variant<OpenFile, ErrorNumber> openFile(const std::string& path, Access access);

/// Raises an error when the existing file `path` may not be written.
void checkWritable(const std::string& path);

/// Closes `fresh`, whose name is `name`, and makes it `target`: at once, whole or not at all, with
/// the rights of the file `old` that had this name before.
void moveOver(OpenFile& fresh, const std::string& name, const std::string& target,
              const std::optional<Status>& old);

/// A failure leaves the file.
void removeFile(const std::string& path) noexcept;

/// False when something has that name already.
bool createFolder(const std::string& path);

}  // namespace tavisk::fileSystem
