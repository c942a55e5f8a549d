// Files as addresses.
#pragma once

#include <string>

namespace tavisk {

/// The address of a file for a reader in the current folder: relative where the file lies below it
/// or was named relatively, else whole. Percent-encoded.
std::string relativeAddress(const std::string& file);

}  // namespace tavisk
