// A file system in memory, with switches that make its operations fail.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/files.h"

namespace tavisk::test {

class MemoryFiles final : public Files {
public:
    enum class Operation { createFolder, read, replace, overwrite };

    /// Puts a file in place, and the folders that lead to it.
    MemoryFiles& put(const std::string& path, std::string bytes) {
        addFolder(parentOf(path));
        files_[path] = std::move(bytes);
        return *this;
    }
    MemoryFiles& addFolder(const std::string& path) {
        for (std::string at = path; !at.empty() && folders_.insert(at).second; at = parentOf(at)) {
        }
        return *this;
    }

    /// From now on the operation ends in this error, for one path or for every path.
    void fail(Operation operation, ErrorNumber number, const std::string& path = anyPath) {
        failures_[{operation, path}] = number;
    }
    void heal() { failures_.clear(); }

    const std::map<std::string, std::string>& files() const noexcept { return files_; }
    /// The bytes of a file, or nothing when there is no such file.
    std::optional<std::string> bytesOf(const std::string& path) const {
        const auto found = files_.find(path);
        return found == files_.end() ? std::nullopt : std::optional(found->second);
    }

    bool fileExists(const std::string& path) override { return files_.count(path) != 0; }
    bool folderExists(const std::string& path) override { return isFolder(path); }

    void createFolder(const std::string& path) override {
        check(Operation::createFolder, path);
        const std::string folder = withoutSlash(path);
        if (!isFolder(parentOf(folder))) raise(ErrorNumber::pathNotFound);
        if (fileExists(folder)) raise(ErrorNumber::permissionDenied);
        folders_.insert(folder);
    }

    std::string read(const std::string& path) override {
        check(Operation::read, path);
        checkParent(path);
        const auto found = files_.find(path);
        if (found == files_.end()) raise(ErrorNumber::fileNotFound);
        return found->second;
    }

    void replaceBy(const std::string& path,
                   const std::function<void(const Write&)>& produce) override {
        check(Operation::replace, path);
        checkParent(path);
        std::string bytes;
        produce([&bytes](std::string_view part) { bytes += part; });
        files_[path] = std::move(bytes);
    }

    void overwrite(const std::string& path, std::string_view bytes) override {
        check(Operation::overwrite, path);
        checkParent(path);
        std::string& file = files_[path];
        file.replace(0, std::min(file.size(), bytes.size()), bytes);
    }

private:
    static inline const std::string anyPath = "*";

    static std::string withoutSlash(const std::string& path) {
        return path.size() > 1 && path.back() == '/' ? path.substr(0, path.size() - 1) : path;
    }
    static std::string parentOf(const std::string& path) {
        const std::size_t slash = path.rfind('/');
        return slash == std::string::npos ? std::string() : path.substr(0, slash);
    }

    /// The root and the working folder are always there.
    bool isFolder(const std::string& path) const {
        const std::string folder = withoutSlash(path);
        return folder.empty() || folder == "/" || folders_.count(folder) != 0;
    }
    void checkParent(const std::string& path) const {
        if (!isFolder(parentOf(path))) raise(ErrorNumber::pathNotFound);
        if (isFolder(path)) raise(ErrorNumber::permissionDenied);
    }
    void check(Operation operation, const std::string& path) const {
        for (const std::string& key : {path, anyPath}) {
            if (const auto found = failures_.find({operation, key}); found != failures_.end()) {
                raise(found->second);
            }
        }
    }

    std::map<std::string, std::string> files_;
    std::set<std::string> folders_;
    std::map<std::pair<Operation, std::string>, ErrorNumber> failures_;
};

}  // namespace tavisk::test
