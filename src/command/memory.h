// How the process deals with memory that it no longer needs.
#pragma once

namespace tavisk {

/// From here on it is kept for the next document and not given back to the system, which would have
/// to clear it first. For the command's own process only.
void keepFreedMemory();

}  // namespace tavisk
