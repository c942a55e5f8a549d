#include "xml/textPool.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tavisk::dom {

TEST(TextPool, CapacitiesArePowersOfTwoFrom16) {
    EXPECT_EQ(TextPool::capacityFor(0), 0U);
    EXPECT_EQ(TextPool::capacityFor(1), 16U);
    EXPECT_EQ(TextPool::capacityFor(16), 16U);
    EXPECT_EQ(TextPool::capacityFor(17), 32U);
    EXPECT_EQ(TextPool::capacityFor(100'000'000), 134'217'728U);
}

TEST(TextPool, BlocksAreAligned) {
    TextPool pool;
    for (const std::size_t capacity : {16U, 64U, 16U, 1024U, 1U << 20, 16U}) {
        const auto address = reinterpret_cast<std::uintptr_t>(pool.allocate(capacity));
        EXPECT_EQ(address % 16, 0U) << capacity;
    }
}

TEST(TextPool, BlocksDoNotOverlap) {
    TextPool pool;
    std::vector<unsigned char*> blocks;
    for (int i = 0; i < 5000; ++i) {
        blocks.push_back(static_cast<unsigned char*>(pool.allocate(256)));
        std::memset(blocks.back(), i % 251, 256);
    }
    for (int i = 0; i < 5000; ++i) {
        const unsigned char* block = blocks[static_cast<std::size_t>(i)];
        ASSERT_EQ(block[0], i % 251);
        ASSERT_EQ(block[255], i % 251);
    }
}

TEST(TextPool, AReleasedBlockIsUsedAgain) {
    TextPool pool;
    void* const block = pool.allocate(64);
    pool.release(block, 64);
    EXPECT_EQ(pool.allocate(64), block);
    EXPECT_NE(pool.allocate(64), block);
}

TEST(TextPool, AReleasedBlockServesItsOwnSizeOnly) {
    TextPool pool;
    void* const block = pool.allocate(64);
    pool.release(block, 64);
    EXPECT_NE(pool.allocate(32), block);
    EXPECT_NE(pool.allocate(128), block);
}

TEST(TextPool, ALargeReleasedBlockIsUsedAgain) {
    TextPool pool;
    void* const block = pool.allocate(std::size_t{1} << 24);
    pool.release(block, std::size_t{1} << 24);
    EXPECT_EQ(pool.allocate(std::size_t{1} << 24), block);
}

TEST(TextPool, EveryReleasedBlockComesBackOnce) {
    TextPool pool;
    std::set<void*> blocks;
    for (int i = 0; i < 100; ++i)
        blocks.insert(pool.allocate(16));
    for (void* block : blocks)
        pool.release(block, 16);
    std::set<void*> again;
    for (int i = 0; i < 100; ++i)
        again.insert(pool.allocate(16));
    EXPECT_EQ(again, blocks);
}

}  // namespace tavisk::dom
