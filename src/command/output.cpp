#include "command/output.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "command/fileError.h"

namespace tavisk {

namespace fs = std::filesystem;

void writeStandardOutput(std::ostream& out, const Produce& produce) {
    errno = 0;
    const auto check = [&out] {
        if (out) return;
        const bool full = errno == ENOSPC || errno == EFBIG;
        throw FileError(full ? ErrorNumber::diskFull : ErrorNumber::deviceError, "standard output");
    };
    produce([&](std::string_view text) {
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        check();
    });
    out.flush();
    check();
}

void writeStandardOutput(std::ostream& out, std::string_view text) {
    writeStandardOutput(out, [text](const Files::Write& write) { write(text); });
}

void writeOutputFile(Files& files, const std::string& path, const Produce& produce) {
    std::error_code error;
    fs::path target = pathOf(path);
    if (fs::is_symlink(target, error)) {
        // A link that leads nowhere, or to something without a name like a pipe, is opened as it
        // is.
        if (fs::path behind = fs::canonical(target, error); !error) target = std::move(behind);
    }
    files.replaceBy(textOf(target), produce);
}

void createFolders(Files& files, const std::string& folder) {
    if (files.folderExists(folder)) return;
    const fs::path above = pathOf(folder).parent_path();
    if (above != pathOf(folder)) createFolders(files, textOf(above));
    files.createFolder(folder);
}

}  // namespace tavisk
