// The texts of `tavisk --help`.
#pragma once

#include <optional>
#include <string_view>

#include "command/commandLine.h"

namespace tavisk {

/// Of the whole tool, or of one command.
std::string_view helpText(std::optional<Action> topic);

}  // namespace tavisk
