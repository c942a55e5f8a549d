// Where a command reads and writes besides documents, and where its results go.
#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "base/files.h"

namespace tavisk {

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
};

/// Hands over a result piece by piece.
using Produce = std::function<void(const Files::Write& write)>;

/// All of it, or a FileError that names standard output.
void writeStandardOutput(std::ostream& out, const Produce& produce);
void writeStandardOutput(std::ostream& out, std::string_view text);

/// The file is replaced whole or not at all. A symbolic link stays one: the file behind it is
/// replaced.
void writeOutputFile(Files& files, const std::string& path, const Produce& produce);

/// With everything above it.
void createFolders(Files& files, const std::string& folder);

}  // namespace tavisk
