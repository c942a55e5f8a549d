#include "command/mappedInput.h"

namespace tavisk {

/// A file cannot be replaced while it is mapped, and saving over the input does just that.
std::optional<dom::Source> mapInput(const fileSystem::OpenFile&) { return std::nullopt; }

void reportShrunkInput() {}

}  // namespace tavisk
