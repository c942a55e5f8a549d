// Findings as text for people and as JSON for programs.
#pragma once

#include <string>
#include <string_view>

#include "host/finding.h"

namespace tavisk {

/// One line per finding, and how many there are.
std::string textReport(std::string_view file, const Findings& findings);

/// One object, one finding per line.
std::string jsonReport(std::string_view file, const Findings& findings);

}  // namespace tavisk
