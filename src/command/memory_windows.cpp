#include "command/memory.h"

namespace tavisk {

// The system's heap keeps what it will need again.
void keepFreedMemory() {}

}  // namespace tavisk
