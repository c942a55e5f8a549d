#include "host/mappedInput.h"

#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
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

}  // namespace

std::optional<dom::Source> mapInput(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return std::nullopt;
    struct stat found {};
    const bool ordinary = ::fstat(file, &found) == 0 && S_ISREG(found.st_mode);
    const auto size = static_cast<std::size_t>(found.st_size);
    // The rest of the last page reads as zeros; a full last page has no rest.
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void* bytes = MAP_FAILED;
    if (ordinary && size % page != 0) {
        bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file, 0);
    }
    ::close(file);
    if (bytes == MAP_FAILED) return std::nullopt;
    return dom::Source{{static_cast<const char*>(bytes),
                        [size](const char* mapped) { ::munmap(const_cast<char*>(mapped), size); }},
                       size};
}

void reportShrunkInput() { std::signal(SIGBUS, shrunk); }

}  // namespace tavisk
