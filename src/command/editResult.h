// What becomes of a document that comes back from the editor.
#pragma once

#include <string>

#include "base/files.h"

namespace tavisk {

/// Whether the user changed the document: the editor gives an unchanged one back as loading wrote
/// it anew, which is no reason to touch a file.
bool isEdited(const std::string& handedOver, const std::string& returned);

/// Whether both names lead to one file.
bool isSameFile(const std::string& a, const std::string& b);

/// Writes a document whose own place failed to `folder`, under a new name made from `file`'s, so
/// that the work is not lost. Returns the path.
std::string keepEdited(Files& files, const std::string& folder, const std::string& file,
                       const std::string& document);

}  // namespace tavisk
