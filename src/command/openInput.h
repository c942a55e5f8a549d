// Opens a file of any name for reading.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace tavisk {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

using InputFile = std::unique_ptr<std::FILE, CloseFile>;

/// Null where it cannot be opened; `errno` says why.
InputFile openInput(const std::string& path);

}  // namespace tavisk
