#include "base/files.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include "base/error.h"
#include "base/fileSystem.h"

namespace tavisk {
namespace {

using fileSystem::Access;
using fileSystem::OpenFile;
using fileSystem::Status;

constexpr std::size_t blockSize = std::size_t{64} << 10;

/// Some files of the system say that they are empty and are not.
constexpr std::size_t smallest = 4096;

bool isName(const std::string& path) {
    return !path.empty() && path.find('\0') == std::string::npos;
}

void checkFileName(const std::string& path) {
    const bool folder =
        isName(path) && fileSystem::separators().find(path.back()) != std::string_view::npos;
    if (!isName(path) || folder) raise(ErrorNumber::badFileName);
}

/// With its separator; empty for the working folder.
std::string folderOf(const std::string& path) {
    return path.substr(0, path.find_last_of(fileSystem::separators()) + 1);
}

std::optional<Status> statusOf(const std::string& path) {
    if (!isName(path)) return std::nullopt;
    const auto found = fileSystem::statusOf(path);
    if (const Status* status = std::get_if<Status>(&found)) return *status;
    return std::nullopt;
}

/// `missing` says what it means here that a name is not there.
OpenFile openOrRaise(const std::string& path, Access access, ErrorNumber missing) {
    auto opened = fileSystem::openFile(path, access);
    if (OpenFile* file = std::get_if<OpenFile>(&opened)) return std::move(*file);
    const ErrorNumber error = std::get<ErrorNumber>(opened);
    raise(error == ErrorNumber::fileNotFound ? missing : error);
}

OpenFile openForReading(const std::string& path) {
    checkFileName(path);
    auto opened = fileSystem::openFile(path, Access::read);
    if (OpenFile* file = std::get_if<OpenFile>(&opened)) return std::move(*file);
    const ErrorNumber error = std::get<ErrorNumber>(opened);
    const std::string folder = folderOf(path);
    const bool lost = error == ErrorNumber::fileNotFound && !folder.empty() && !statusOf(folder);
    raise(lost ? ErrorNumber::pathNotFound : error);
}

std::string readAll(const OpenFile& file, std::size_t sizeHint) {
    const Bytes bytes =
        readToEnd([&file](char* to, std::size_t room) { return file.read(to, room); }, sizeHint);
    return {bytes.data.get(), bytes.size};
}

/// A new file beside the one that it is going to replace; gone again unless it is moved there.
class Replacement {
public:
    explicit Replacement(const std::string& target) : file_(create(folderOf(target), name_)) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (moved_) return;
        try {
            file_.close();  // not every system removes an open file
        } catch (...) {
            // It is going away.
        }
        fileSystem::removeFile(name_);
    }

    const OpenFile& file() const noexcept { return file_; }

    void moveTo(const std::string& target, const std::optional<Status>& old) {
        fileSystem::moveOver(file_, name_, target, old);
        moved_ = true;
    }

private:
    static OpenFile create(const std::string& folder, std::string& name) {
        static std::atomic<unsigned long> counter{0};
        for (;;) {
            name = folder + ".tavisk-" + std::to_string(fileSystem::processNumber()) + "-" +
                   std::to_string(counter.fetch_add(1));
            // One that an earlier process of this number has left is passed over.
            if (statusOf(name)) continue;
            return openOrRaise(name, Access::create, ErrorNumber::pathNotFound);
        }
    }

    std::string name_;
    OpenFile file_;
    bool moved_ = false;
};

using Produce = std::function<void(const Files::Write&)>;

void writeProduced(const OpenFile& file, const Produce& produce) {
    produce([&file](std::string_view bytes) { file.write(bytes); });
}

/// The file's status, or none when there is no file of that name yet.
std::optional<Status> statusOfTarget(const std::string& path) {
    checkFileName(path);
    const auto found = fileSystem::statusOf(path);
    if (const ErrorNumber* error = std::get_if<ErrorNumber>(&found)) {
        if (*error != ErrorNumber::fileNotFound) raise(*error);
        return std::nullopt;
    }
    const auto& status = std::get<Status>(found);
    if (status.folder) raise(ErrorNumber::permissionDenied);
    // A file is replaced with rights on the folder only; one that may not be written stays.
    fileSystem::checkWritable(path);
    return status;
}

/// A symbolic link is replaced itself, not the file that it leads to.
void writeTarget(const std::string& path, const std::optional<Status>& old,
                 const Produce& produce) {
    if (old && !old->ordinary) {
        // A pipe or a device is no file that could be replaced.
        OpenFile file = openOrRaise(path, Access::write, ErrorNumber::pathNotFound);
        writeProduced(file, produce);
        file.close();
        return;
    }
    Replacement fresh(path);
    writeProduced(fresh.file(), produce);
    fresh.moveTo(path, old);
}

bool beginsWith(const std::string& path, std::string_view bytes) {
    const auto opened = fileSystem::openFile(path, Access::read);
    const OpenFile* const file = std::get_if<OpenFile>(&opened);
    if (file == nullptr) return false;
    const std::unique_ptr<char[]> block = std::make_unique_for_overwrite<char[]>(blockSize);
    try {
        while (!bytes.empty()) {
            const std::size_t got = file->read(block.get(), std::min(blockSize, bytes.size()));
            const std::string_view piece(block.get(), got);
            if (got == 0 || !bytes.starts_with(piece)) return false;
            bytes.remove_prefix(got);
        }
    } catch (const RunTimeError&) {
        return false;
    }
    return true;
}

std::string readTail(const std::string& path, std::size_t offset, std::uint64_t size) {
    const OpenFile file = openForReading(path);
    file.moveTo(offset);
    return readAll(file, static_cast<std::size_t>(size - offset));
}

}  // namespace

void Files::replace(const std::string& path, std::initializer_list<std::string_view> parts) {
    replaceBy(path, [parts](const Write& write) {
        for (const std::string_view part : parts)
            write(part);
    });
}

bool DiskFiles::fileExists(const std::string& path) {
    const std::optional<Status> found = statusOf(path);
    return found && !found->folder;
}

bool DiskFiles::folderExists(const std::string& path) {
    const std::optional<Status> found = statusOf(path);
    return found && found->folder;
}

void DiskFiles::createFolder(const std::string& path) {
    if (!isName(path)) raise(ErrorNumber::badFileName);
    // Another process may have been faster.
    if (!fileSystem::createFolder(path) && !folderExists(path)) {
        raise(ErrorNumber::permissionDenied);
    }
}

std::string DiskFiles::read(const std::string& path) {
    const OpenFile file = openForReading(path);
    return readAll(file, static_cast<std::size_t>(file.size().value_or(blockSize)));
}

void DiskFiles::replaceBy(const std::string& path, const Produce& produce) {
    writeTarget(path, statusOfTarget(path), produce);
}

void DiskFiles::overwrite(const std::string& path, std::string_view bytes) {
    const std::optional<Status> old = statusOfTarget(path);
    std::string tail;
    if (old && old->ordinary) {
        const std::uint64_t size = old->size;
        // Pictures seldom change from preview to preview, and writing costs far more than reading.
        if (size >= bytes.size() && beginsWith(path, bytes)) return;
        if (size > bytes.size()) tail = readTail(path, bytes.size(), size);
    }
    writeTarget(path, old, [&](const Write& write) {
        write(bytes);
        write(tail);
    });
}

Bytes readToEnd(const std::function<std::size_t(char* to, std::size_t room)>& read,
                std::size_t sizeHint) {
    // One byte more than there should be, so that the end is seen without growing, and the NUL.
    std::size_t capacity = std::max(sizeHint, smallest) + 2;
    Bytes bytes{std::make_unique_for_overwrite<char[]>(capacity), 0};
    while (const std::size_t got = read(bytes.data.get() + bytes.size, capacity - bytes.size - 1)) {
        bytes.size += got;
        if (bytes.size + 1 < capacity) continue;
        auto larger = std::make_unique_for_overwrite<char[]>(capacity *= 2);
        std::memcpy(larger.get(), bytes.data.get(), bytes.size);
        bytes.data = std::move(larger);
    }
    bytes.data[bytes.size] = '\0';
    return bytes;
}

}  // namespace tavisk
