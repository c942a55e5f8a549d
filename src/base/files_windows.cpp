#include <algorithm>
#include <new>
#include <utility>
#include <windows.h>

#include "base/fileSystem.h"
#include "base/wideText_windows.h"

namespace tavisk::fileSystem {
namespace {

/// The compiler's headers lack it.
constexpr DWORD diskQuotaExceeded = 1295;

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

ErrorNumber numberOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND: return ErrorNumber::fileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_DIRECTORY:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME: return ErrorNumber::pathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
        case ERROR_USER_MAPPED_FILE:
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS: return ErrorNumber::permissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case diskQuotaExceeded:
        case ERROR_FILE_TOO_LARGE: return ErrorNumber::diskFull;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_CANT_RESOLVE_FILENAME: return ErrorNumber::badFileName;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY: throw std::bad_alloc();
        default: return ErrorNumber::deviceError;
    }
}

/// None for what can be no name.
std::optional<std::wstring> nameOf(const std::string& path) {
    try {
        return widePath(path);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

/// Where files are written, a name that is not there is that of a folder.
[[noreturn]] void raiseLast() {
    const ErrorNumber number = numberOf(::GetLastError());
    raise(number == ErrorNumber::fileNotFound ? ErrorNumber::pathNotFound : number);
}

HANDLE handleOf(const OpenFile& file) { return reinterpret_cast<HANDLE>(file.handle()); }

const auto closed = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);

std::optional<std::uint64_t> sizeOf(HANDLE file) {
    LARGE_INTEGER size{};
    const bool ordinary = ::GetFileType(file) == FILE_TYPE_DISK;
    if (!ordinary || ::GetFileSizeEx(file, &size) == 0) return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

DWORD blockOf(std::size_t size) {
    constexpr std::size_t largest = std::size_t{1} << 30;
    return static_cast<DWORD>(std::min(size, largest));
}

}  // namespace

std::string_view separators() noexcept { return "/\\"; }

unsigned long processNumber() noexcept { return ::GetCurrentProcessId(); }

std::variant<Status, ErrorNumber> statusOf(const std::string& path) {
    const std::optional<std::wstring> name = nameOf(path);
    if (!name) return ErrorNumber::badFileName;
    const HANDLE file = ::CreateFileW(name->c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return numberOf(::GetLastError());
    BY_HANDLE_FILE_INFORMATION found{};
    Status status;
    if (::GetFileType(file) == FILE_TYPE_DISK && ::GetFileInformationByHandle(file, &found) != 0) {
        status.folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        status.ordinary = !status.folder;
        status.size = std::uint64_t{found.nFileSizeHigh} << 32U | found.nFileSizeLow;
    }
    ::CloseHandle(file);
    return status;
}

OpenFile::OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, closed)) {}

OpenFile::~OpenFile() {
    if (handle_ != closed) ::CloseHandle(handleOf(*this));
}

std::optional<std::uint64_t> OpenFile::size() const { return sizeOf(handleOf(*this)); }

std::size_t OpenFile::read(char* to, std::size_t size) const {
    DWORD got = 0;
    if (::ReadFile(handleOf(*this), to, blockOf(size), &got, nullptr) != 0) return got;
    const DWORD error = ::GetLastError();
    // The other end of a pipe is closed.
    if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return 0;
    raise(numberOf(error));
}

void OpenFile::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        DWORD done = 0;
        if (::WriteFile(handleOf(*this), bytes.data(), blockOf(bytes.size()), &done, nullptr) ==
            0) {
            raiseLast();
        }
        bytes.remove_prefix(done);
    }
}

void OpenFile::moveTo(std::uint64_t position) const {
    LARGE_INTEGER to{};
    to.QuadPart = static_cast<LONGLONG>(position);
    if (::SetFilePointerEx(handleOf(*this), to, nullptr, FILE_BEGIN) == 0) raiseLast();
}

void OpenFile::close() {
    const std::intptr_t handle = std::exchange(handle_, closed);
    if (handle != closed && ::CloseHandle(reinterpret_cast<HANDLE>(handle)) == 0) raiseLast();
}

std::variant<OpenFile, ErrorNumber> openFile(const std::string& path, Access access) {
    const DWORD wanted = access == Access::read ? GENERIC_READ : GENERIC_WRITE;
    const DWORD existing = access == Access::create ? CREATE_NEW : OPEN_EXISTING;
    const std::optional<std::wstring> name = nameOf(path);
    if (!name) return ErrorNumber::badFileName;
    const HANDLE file = ::CreateFileW(name->c_str(), wanted, shareAll, nullptr, existing,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return numberOf(::GetLastError());
    return OpenFile(reinterpret_cast<std::intptr_t>(file));
}

void checkWritable(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesW(widePath(path).c_str());
    const bool known = attributes != INVALID_FILE_ATTRIBUTES;
    if (known && (attributes & FILE_ATTRIBUTE_READONLY) != 0) raise(ErrorNumber::permissionDenied);
    const auto opened = openFile(path, Access::write);
    if (const ErrorNumber* error = std::get_if<ErrorNumber>(&opened)) raise(*error);
}

void moveOver(OpenFile& fresh, const std::string& name, const std::string& target,
              const std::optional<Status>& old) {
    fresh.close();
    const std::wstring from = widePath(name);
    const std::wstring to = widePath(target);
    constexpr DWORD anyRights = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    if (old &&
        ::ReplaceFileW(to.c_str(), from.c_str(), nullptr, anyRights, nullptr, nullptr) != 0) {
        return;
    }
    // Not every file system can hand rights over.
    if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) raiseLast();
}

void removeFile(const std::string& path) noexcept {
    try {
        ::DeleteFileW(widePath(path).c_str());
    } catch (...) {
        // It stays.
    }
}

bool createFolder(const std::string& path) {
    if (::CreateDirectoryW(widePath(path).c_str(), nullptr) != 0) return true;
    if (::GetLastError() == ERROR_ALREADY_EXISTS) return false;
    raiseLast();
}

}  // namespace tavisk::fileSystem
