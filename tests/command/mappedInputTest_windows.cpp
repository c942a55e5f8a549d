#include <gtest/gtest.h>
#include <string>
#include <variant>

#include "command/mappedInput.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

TEST(MappedInput, LargeFilesAreReadSoThatTheyCanBeReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.xml", std::string(1 << 20, ' '));
    const auto file = fileSystem::openFile(path, fileSystem::Access::read);
    EXPECT_FALSE(mapInput(std::get<fileSystem::OpenFile>(file)));
}

}  // namespace tavisk::test
