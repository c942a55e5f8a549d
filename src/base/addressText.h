// Paths as they stand in an address: %XX for each byte that cannot stand there itself.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// Letters, digits, "-._~" and the slash stay as they are.
std::string escaped(std::string_view path);

/// What is no escape stays as it is.
std::string unescaped(std::string_view address);

}  // namespace tavisk
