// The class that hosts create. It holds no state; all its objects work on the one form.
#pragma once

#include <tavisk/com.h>

namespace tavisk {

/// With one reference, the caller's. Throws std::bad_alloc.
IclsTavisk* newClsTavisk();

}  // namespace tavisk
