#include "ui/support/limits.h"

namespace tavisk::test {

// There is nothing that it could not do.
void skipWhatCannotHold() {}

}  // namespace tavisk::test
