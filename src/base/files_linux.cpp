#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "base/fileSystem.h"

namespace tavisk::fileSystem {
namespace {

ErrorNumber numberOf(int error) {
    switch (error) {
        case ENOENT: return ErrorNumber::fileNotFound;
        case ENOTDIR: return ErrorNumber::pathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case EEXIST:
        case ETXTBSY:
        case EBUSY: return ErrorNumber::permissionDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return ErrorNumber::diskFull;
        case ENAMETOOLONG:
        case EINVAL:
        case EILSEQ:
        case ELOOP: return ErrorNumber::badFileName;
        case ENOMEM: throw std::bad_alloc();
        default: return ErrorNumber::deviceError;
    }
}

/// Where files are written, a name that is not there is that of a folder.
[[noreturn]] void raiseErrno() {
    const ErrorNumber number = numberOf(errno);
    raise(number == ErrorNumber::fileNotFound ? ErrorNumber::pathNotFound : number);
}

int flagsOf(Access access) {
    switch (access) {
        case Access::read: return O_RDONLY;
        case Access::write: return O_WRONLY;
        case Access::create: break;
    }
    return O_WRONLY | O_CREAT | O_EXCL;
}

int descriptor(const OpenFile& file) { return static_cast<int>(file.handle()); }

}  // namespace

std::string_view separators() noexcept { return "/"; }

unsigned long processNumber() noexcept { return static_cast<unsigned long>(::getpid()); }

std::variant<Status, ErrorNumber> statusOf(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0) return numberOf(errno);
    return Status{S_ISDIR(found.st_mode), S_ISREG(found.st_mode),
                  static_cast<std::uint64_t>(found.st_size), found.st_mode & 07777};
}

OpenFile::OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

OpenFile::~OpenFile() {
    if (handle_ >= 0) ::close(descriptor(*this));
}

std::optional<std::uint64_t> OpenFile::size() const {
    struct stat found {};
    if (::fstat(descriptor(*this), &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(found.st_size);
}

std::size_t OpenFile::read(char* to, std::size_t size) const {
    for (;;) {
        const ssize_t got = ::read(descriptor(*this), to, size);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno != EINTR) raise(numberOf(errno));
    }
}

void OpenFile::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t done = ::write(descriptor(*this), bytes.data(), bytes.size());
        if (done >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(done));
        } else if (errno != EINTR) {
            raiseErrno();
        }
    }
}

void OpenFile::moveTo(std::uint64_t position) const {
    if (::lseek(descriptor(*this), static_cast<off_t>(position), SEEK_SET) < 0) {
        raise(numberOf(errno));
    }
}

void OpenFile::close() {
    const int number = static_cast<int>(std::exchange(handle_, -1));
    if (number >= 0 && ::close(number) != 0 && errno != EINTR) raiseErrno();
}

std::variant<OpenFile, ErrorNumber> openFile(const std::string& path, Access access) {
    int number = 0;
    do {
        number = ::open(path.c_str(), flagsOf(access) | O_CLOEXEC, 0666);
    } while (number < 0 && errno == EINTR);
    if (number < 0) return numberOf(errno);
    return OpenFile(number);
}

void checkWritable(const std::string& path) {
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) raiseErrno();
}

void moveOver(OpenFile& fresh, const std::string& name, const std::string& target,
              const std::optional<Status>& old) {
    if (old && ::fchmod(descriptor(fresh), old->mode) != 0) raiseErrno();
    fresh.close();
    if (::rename(name.c_str(), target.c_str()) != 0) raiseErrno();
}

void removeFile(const std::string& path) noexcept { ::unlink(path.c_str()); }

bool createFolder(const std::string& path) {
    if (::mkdir(path.c_str(), 0777) == 0) return true;
    if (errno == EEXIST) return false;
    raiseErrno();
}

}  // namespace tavisk::fileSystem
