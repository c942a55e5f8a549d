// Where results go.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "base/files.h"

namespace tavisk {

/// Hands over a result piece by piece.
using Produce = std::function<void(const Files::Write& write)>;

/// All of it, or a FileError that names standard output.
void writeStandardOutput(std::ostream& out, const Produce& produce);
void writeStandardOutput(std::ostream& out, std::string_view text);

/// The file is replaced whole or not at all. A symbolic link stays one: the file behind it is
/// replaced.
void writeOutputFile(Files& files, const std::string& path, const Produce& produce);

/// A folder as the page can name it: from the root, without "." and without a separator at its end.
/// Links stay as they are.
std::string absoluteFolder(const std::string& folder);

/// The folder that a file of this name lies in, from the root; the current folder for "-".
std::string folderOf(const std::string& path);

/// With everything above it.
void createFolders(Files& files, const std::string& folder);

}  // namespace tavisk
