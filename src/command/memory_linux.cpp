#include "command/memory.h"

#include <malloc.h>

namespace tavisk {

void keepFreedMemory() {
    // Larger blocks than this go back all the same: the library allows no more. There are no other
    // threads yet.
    ::mallopt(M_MMAP_THRESHOLD, 32 << 20);   // NOLINT(concurrency-mt-unsafe)
    ::mallopt(M_TRIM_THRESHOLD, 256 << 20);  // NOLINT(concurrency-mt-unsafe)
}

}  // namespace tavisk
