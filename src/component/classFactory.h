// The factory of the class that hosts create.
#pragma once

#include <tavisk/com.h>

namespace tavisk {

/// With one reference, the caller's. Throws std::bad_alloc.
IClassFactory* newClassFactory();

}  // namespace tavisk
