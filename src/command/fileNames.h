// Names of files: those of a document's results, and those that a page or a report tells.
#pragma once

#include <string>

namespace tavisk {

/// The file's name without its extension; "document" for standard input. Empty for a name that no
/// file can have.
std::string documentName(const std::string& file);

/// The file of its page where that is one file; `folder` has no separator at its end.
std::string standalonePath(const std::string& folder, const std::string& file);

/// A folder as the page can name it: from the root, without "." and without a separator at its end.
/// Links stay as they are.
std::string absoluteFolder(const std::string& folder);

/// The folder that a file of this name lies in, from the root; the current folder for "-".
std::string folderOf(const std::string& path);

/// The address of a file for a reader in the current folder: relative where the file lies below it
/// or was named relatively, else whole. Percent-encoded.
std::string relativeAddress(const std::string& file);

}  // namespace tavisk
