// The texts of `tavisk --help`.
#pragma once

#include <optional>
#include <string>

#include "command/options.h"

namespace tavisk {

/// Of the whole tool, or of one command.
std::string helpText(std::optional<Action> topic);

}  // namespace tavisk
