#include "command/fileError.h"

#include <exception>

namespace tavisk {
namespace {

template <class Operation>
auto naming(const std::string& path, Operation operation) {
    try {
        return operation();
    } catch (const RunTimeError& error) {
        throw FileError(static_cast<ErrorNumber>(error.number()), path);
    }
}

}  // namespace

bool NamingFiles::fileExists(const std::string& path) { return files_.fileExists(path); }

bool NamingFiles::folderExists(const std::string& path) { return files_.folderExists(path); }

void NamingFiles::createFolder(const std::string& path) {
    naming(path, [&] { files_.createFolder(path); });
}

std::string NamingFiles::read(const std::string& path) {
    return naming(path, [&] { return files_.read(path); });
}

void NamingFiles::replaceBy(const std::string& path,
                            const std::function<void(const Write&)>& produce) {
    // An error of `produce` is not about the file.
    std::exception_ptr own;
    try {
        naming(path, [&] {
            files_.replaceBy(path, [&](const Write& write) {
                try {
                    produce([&](std::string_view bytes) { naming(path, [&] { write(bytes); }); });
                } catch (...) {
                    own = std::current_exception();
                    throw;
                }
            });
        });
    } catch (...) {
        if (own) std::rethrow_exception(own);
        throw;
    }
}

void NamingFiles::overwrite(const std::string& path, std::string_view bytes) {
    naming(path, [&] { files_.overwrite(path, bytes); });
}

}  // namespace tavisk
