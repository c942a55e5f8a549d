#include <filesystem>
#include <gtest/gtest.h>

#include "command/editResult.h"
#include "support/temporaryFolder.h"

namespace tavisk::test {

TEST(EditResult, ALinkIsTheFileItLeadsTo) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a.xml", "");
    std::filesystem::create_symlink("a.xml", folder.path("link"));
    EXPECT_TRUE(isSameFile(file, folder.path("link")));
}

}  // namespace tavisk::test
