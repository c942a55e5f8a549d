#include "platform/files.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <new>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/error.h"

namespace tavisk {
namespace {

constexpr std::size_t blockSize = std::size_t{64} << 10;

/// `missing` says what it means here that a name is not there.
[[noreturn]] void raiseErrno(int error, ErrorNumber missing) {
    switch (error) {
        case ENOENT: raise(missing);
        case ENOTDIR: raise(ErrorNumber::pathNotFound);
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case EEXIST:
        case ETXTBSY:
        case EBUSY: raise(ErrorNumber::permissionDenied);
        case ENOSPC:
        case EDQUOT:
        case EFBIG: raise(ErrorNumber::diskFull);
        case ENAMETOOLONG:
        case EINVAL:
        case EILSEQ:
        case ELOOP: raise(ErrorNumber::badFileName);
        case ENOMEM: throw std::bad_alloc();
        default: raise(ErrorNumber::deviceError);
    }
}

bool isName(const std::string& path) {
    return !path.empty() && path.find('\0') == std::string::npos;
}

void checkFileName(const std::string& path) {
    if (!isName(path) || path.back() == '/') raise(ErrorNumber::badFileName);
}

/// With its separator; empty for the working folder.
std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

bool status(const std::string& path, struct stat& found) {
    return isName(path) && ::stat(path.c_str(), &found) == 0;
}

class Descriptor {
public:
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    bool isOpen() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }

    /// Some file systems report a full disk only here.
    void close() {
        if (::close(std::exchange(number_, -1)) != 0 && errno != EINTR) {
            raiseErrno(errno, ErrorNumber::pathNotFound);
        }
    }

private:
    int number_;
};

Descriptor openFile(const std::string& path, int flags) {
    int number = 0;
    do {
        number = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    } while (number < 0 && errno == EINTR);
    return Descriptor(number);
}

Descriptor openForReading(const std::string& path) {
    checkFileName(path);
    Descriptor file = openFile(path, O_RDONLY);
    if (!file.isOpen()) {
        const int error = errno;
        struct stat parent {};
        const std::string folder = folderOf(path);
        const bool lost = !folder.empty() && !status(folder, parent);
        raiseErrno(error, lost ? ErrorNumber::pathNotFound : ErrorNumber::fileNotFound);
    }
    return file;
}

/// Everything that is left. The size is only a hint: a pipe has none and a file may grow.
std::string readAll(int file, std::size_t sizeHint) {
    std::string bytes(sizeHint + 1, '\0');
    std::size_t used = 0;
    for (;;) {
        const ssize_t got = ::read(file, bytes.data() + used, bytes.size() - used);
        if (got < 0) {
            if (errno == EINTR) continue;
            raiseErrno(errno, ErrorNumber::fileNotFound);
        }
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
        if (used == bytes.size()) bytes.resize(used + std::max(used, blockSize));
    }
    bytes.resize(used);
    return bytes;
}

void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t done = ::write(file, bytes.data(), bytes.size());
        if (done >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(done));
        } else if (errno != EINTR) {
            raiseErrno(errno, ErrorNumber::pathNotFound);
        }
    }
}

/// A new file beside the one that it is going to replace; gone again unless it is moved there.
class Replacement {
public:
    explicit Replacement(const std::string& target) : file_(create(folderOf(target), name_)) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (!moved_) ::unlink(name_.c_str());
    }

    int file() const noexcept { return file_.number(); }

    void moveTo(const std::string& target) {
        file_.close();
        if (::rename(name_.c_str(), target.c_str()) != 0) {
            raiseErrno(errno, ErrorNumber::pathNotFound);
        }
        moved_ = true;
    }

private:
    static Descriptor create(const std::string& folder, std::string& name) {
        static std::atomic<unsigned long> counter{0};
        for (;;) {
            name = folder + ".tavisk-" + std::to_string(::getpid()) + "-" +
                   std::to_string(counter.fetch_add(1));
            Descriptor file = openFile(name, O_WRONLY | O_CREAT | O_EXCL);
            if (file.isOpen()) return file;
            if (errno != EEXIST) raiseErrno(errno, ErrorNumber::pathNotFound);
        }
    }

    std::string name_;
    Descriptor file_;
    bool moved_ = false;
};

using Produce = std::function<void(const Files::Write&)>;

void writeProduced(int file, const Produce& produce) {
    produce([file](std::string_view bytes) { writeAll(file, bytes); });
}

/// The file's status, or none when there is no file of that name yet.
std::optional<struct stat> statusOfTarget(const std::string& path) {
    checkFileName(path);
    struct stat found {};
    if (!status(path, found)) {
        if (errno != ENOENT) raiseErrno(errno, ErrorNumber::pathNotFound);
        return std::nullopt;
    }
    if (S_ISDIR(found.st_mode)) raise(ErrorNumber::permissionDenied);
    // A rename asks for rights on the folder only; a file that may not be written stays.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
        raiseErrno(errno, ErrorNumber::pathNotFound);
    }
    return found;
}

/// A symbolic link is replaced itself, not the file that it leads to.
void writeTarget(const std::string& path, const std::optional<struct stat>& old,
                 const Produce& produce) {
    if (old && !S_ISREG(old->st_mode)) {
        // A pipe or a device is no file that could be replaced.
        Descriptor file = openFile(path, O_WRONLY);
        if (!file.isOpen()) raiseErrno(errno, ErrorNumber::pathNotFound);
        writeProduced(file.number(), produce);
        file.close();
        return;
    }
    Replacement fresh(path);
    writeProduced(fresh.file(), produce);
    if (old && ::fchmod(fresh.file(), old->st_mode & 07777) != 0) {
        raiseErrno(errno, ErrorNumber::pathNotFound);
    }
    fresh.moveTo(path);
}

bool beginsWith(const std::string& path, std::string_view bytes) {
    const Descriptor file = openFile(path, O_RDONLY);
    if (!file.isOpen()) return false;
    const std::unique_ptr<char[]> block = std::make_unique_for_overwrite<char[]>(blockSize);
    while (!bytes.empty()) {
        const ssize_t got = ::read(file.number(), block.get(), std::min(blockSize, bytes.size()));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        const std::string_view piece(block.get(), static_cast<std::size_t>(got));
        if (!bytes.starts_with(piece)) return false;
        bytes.remove_prefix(piece.size());
    }
    return true;
}

std::string readTail(const std::string& path, std::size_t offset, std::size_t size) {
    const Descriptor file = openForReading(path);
    if (::lseek(file.number(), static_cast<off_t>(offset), SEEK_SET) < 0) {
        raiseErrno(errno, ErrorNumber::fileNotFound);
    }
    return readAll(file.number(), size - offset);
}

}  // namespace

bool DiskFiles::fileExists(const std::string& path) {
    struct stat found {};
    return status(path, found) && !S_ISDIR(found.st_mode);
}

bool DiskFiles::folderExists(const std::string& path) {
    struct stat found {};
    return status(path, found) && S_ISDIR(found.st_mode);
}

void DiskFiles::createFolder(const std::string& path) {
    if (!isName(path)) raise(ErrorNumber::badFileName);
    if (::mkdir(path.c_str(), 0777) == 0) return;
    const int error = errno;
    // Another process may have been faster.
    if (error != EEXIST || !folderExists(path)) raiseErrno(error, ErrorNumber::pathNotFound);
}

std::string DiskFiles::read(const std::string& path) {
    const Descriptor file = openForReading(path);
    struct stat found {};
    const bool known = ::fstat(file.number(), &found) == 0 && S_ISREG(found.st_mode);
    return readAll(file.number(), known ? static_cast<std::size_t>(found.st_size) : blockSize);
}

void DiskFiles::replaceBy(const std::string& path, const Produce& produce) {
    writeTarget(path, statusOfTarget(path), produce);
}

void DiskFiles::overwrite(const std::string& path, std::string_view bytes) {
    const std::optional<struct stat> old = statusOfTarget(path);
    std::string tail;
    if (old && S_ISREG(old->st_mode)) {
        const auto size = static_cast<std::size_t>(old->st_size);
        // Pictures seldom change from preview to preview, and writing costs far more than reading.
        if (size >= bytes.size() && beginsWith(path, bytes)) return;
        if (size > bytes.size()) tail = readTail(path, bytes.size(), size);
    }
    writeTarget(path, old, [&](const Write& write) {
        write(bytes);
        write(tail);
    });
}

}  // namespace tavisk
