#include "command/mappedInput.h"

#include <csignal>
#include <cstddef>
#include <memory>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace tavisk {
namespace {

void shrunk(int) {
    constexpr std::string_view text =
        "Run-time error '57': Device I/O error\n"
        "The input file became shorter while it was read.\n";
    // Nothing can be done about a failing write here.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
    ::_exit(4);
}

/// `size` bytes of the file and at least one NUL behind them. Whole pages are the file's own; what
/// is left over is copied into a page of ours, which stays as it is when the file grows.
void* mapWithTail(int file, std::size_t size) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t whole = size / page * page;
    void* const all =
        ::mmap(nullptr, whole + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (all == MAP_FAILED) return nullptr;
    char* const tail = static_cast<char*>(all) + whole;
    const bool mapped = ::mmap(all, whole, PROT_READ, MAP_PRIVATE | MAP_FIXED | MAP_POPULATE, file,
                               0) != MAP_FAILED;
    const auto left = static_cast<ssize_t>(size - whole);
    if (mapped && ::pread(file, tail, size - whole, static_cast<off_t>(whole)) == left) return all;
    ::munmap(all, whole + page);
    return nullptr;
}

}  // namespace

std::optional<dom::Source> mapInput(const fileSystem::OpenFile& file) {
    // Small files are read faster than mapped.
    constexpr std::size_t worthMapping = std::size_t{256} << 10;
    const auto size = static_cast<std::size_t>(file.size().value_or(0));
    if (size < worthMapping) return std::nullopt;
    void* const bytes = mapWithTail(static_cast<int>(file.handle()), size);
    if (bytes == nullptr) return std::nullopt;
    const auto unmap = [size](const char* mapped) {
        const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        ::munmap(const_cast<char*>(mapped), size / page * page + page);
    };
    return dom::Source{{static_cast<const char*>(bytes), unmap}, size};
}

void reportShrunkInput() { std::signal(SIGBUS, shrunk); }

}  // namespace tavisk
