// How hosts learn where this library is.
#pragma once

#include <tavisk/com.h>

namespace tavisk {

/// Fails, or throws, without leaving anything half done.
HRESULT registerLibrary();

/// Removes what `registerLibrary` of this very library wrote, and nothing else. Having nothing to
/// remove is no failure.
HRESULT unregisterLibrary();

}  // namespace tavisk
