#include <gtest/gtest.h>
#include <string>

#include "command/mappedInput.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

TEST(MappedInput, LargeFilesAreReadSoThatTheyCanBeReplaced) {
    const TemporaryFolder folder;
    EXPECT_FALSE(mapInput(folder.write("a.xml", std::string(1 << 20, ' '))));
}

}  // namespace tavisk::test
