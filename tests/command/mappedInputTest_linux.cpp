#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "command/mappedInput.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t page = 4096;
constexpr std::size_t large = std::size_t{512} << 10;

class MappedInput : public testing::Test {
protected:
    MappedInput() {
        std::string name = (fs::temp_directory_path() / "tavisk-map-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
    }
    ~MappedInput() override { fs::remove_all(folder_); }

    static std::optional<dom::Source> mapped(const std::string& path) {
        const auto file = fileSystem::openFile(path, fileSystem::Access::read);
        return mapInput(std::get<fileSystem::OpenFile>(file));
    }
    std::string put(std::string_view bytes) const {
        std::ofstream(path(), std::ios::binary) << bytes;
        return path();
    }
    std::string path() const { return (folder_ / "input.xml").string(); }
    const fs::path& folder() const { return folder_; }

    static std::string_view bytesOf(const dom::Source& source) {
        return {source.bytes.get(), source.size};
    }

private:
    fs::path folder_;
};

std::string numbered(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; bytes.size() < size; ++i)
        bytes += std::to_string(i) + ' ';
    bytes.resize(size);
    return bytes;
}

TEST_F(MappedInput, HoldsTheFileAndANulBehindIt) {
    for (const std::size_t size : {large - 1, large, large + 1, large + page - 1}) {
        const std::string bytes = numbered(size);
        const auto source = mapped(put(bytes));
        ASSERT_TRUE(source) << size;
        EXPECT_EQ(bytesOf(*source), bytes) << size;
        EXPECT_EQ(source->bytes[size], '\0') << size;
    }
}

TEST_F(MappedInput, NulStaysWhenTheFileGrows) {
    const std::string bytes = numbered(large + 10);
    const auto source = mapped(put(bytes));
    ASSERT_TRUE(source);
    std::ofstream(path(), std::ios::binary | std::ios::app) << "more";
    EXPECT_EQ(bytesOf(*source), bytes);
    EXPECT_EQ(source->bytes[bytes.size()], '\0');
}

TEST_F(MappedInput, SmallFilesAreRead) { EXPECT_FALSE(mapped(put("<a/>"))); }

TEST_F(MappedInput, FoldersAreNotMapped) { EXPECT_FALSE(mapped(folder().string())); }

TEST_F(MappedInput, FileCutShortEndsTheCommandWithALine) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto readCutFile = [&] {
        reportShrunkInput();
        const auto source = mapped(put(numbered(large)));
        fs::resize_file(path(), 0);
        std::size_t sum = 0;
        for (std::size_t i = 0; i < source->size; ++i)
            sum += static_cast<unsigned char>(source->bytes[i]);
        std::_Exit(sum == 0 ? 1 : 2);
    };
    EXPECT_EXIT(readCutFile(), testing::ExitedWithCode(4), "became shorter while it was read");
}

}  // namespace
}  // namespace tavisk
