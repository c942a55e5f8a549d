#include "windows/support/complaints.h"

namespace tavisk::test {

void tellComplaintsOnce() {}

}  // namespace tavisk::test
