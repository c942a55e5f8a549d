// The fuzzers' first inputs as ordinary tests, each fuzzer compiled under another name.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#define LLVMFuzzerTestOneInput fuzzReaderWriter
#include "fuzz/readerWriter.cpp"
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput fuzzTokens
#include "fuzz/tokens.cpp"
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput fuzzRender
#include "fuzz/render.cpp"
#undef LLVMFuzzerTestOneInput

namespace tavisk::fuzz {
namespace {

void runCorpus(const std::string& name, int (*target)(const std::uint8_t*, std::size_t)) {
    namespace fs = std::filesystem;
    const fs::path corpus = fs::path(TAVISK_FUZZ_CORPUS) / name;
    std::size_t count = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(corpus)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        SCOPED_TRACE(entry.path().filename().string());
        EXPECT_NO_THROW(target(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
        ++count;
    }
    EXPECT_GT(count, 0U);
}

}  // namespace

TEST(FuzzCorpus, ReaderWriter) { runCorpus("readerWriter", fuzzReaderWriter); }
TEST(FuzzCorpus, Tokens) { runCorpus("tokens", fuzzTokens); }
TEST(FuzzCorpus, Render) { runCorpus("render", fuzzRender); }

}  // namespace tavisk::fuzz
