// Memory of one document: nodes, attribute tables and texts live and die with it.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace tavisk::dom {

/// A bump allocator with one free list per power of two. Blocks are aligned to 8 bytes and stay
/// valid until released or until the pool ends; the pool never gives memory back before that.
class TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// What a request for `size` bytes that may grow should ask for: a power of two, 0 for 0.
    static std::size_t capacityFor(std::size_t size) noexcept;

    /// `capacity` comes from `capacityFor`. Throws std::bad_alloc.
    void* allocate(std::size_t capacity);

    /// A block that fits closely, for what seldom changes. Throws std::bad_alloc.
    void* keep(std::size_t size);

    /// `capacity` is at most what was asked for; blocks under 16 bytes are not used again.
    void release(void* block, std::size_t capacity) noexcept;

private:
    struct Free {
        Free* next;
    };

    void* bump(std::size_t size);

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::byte* at_ = nullptr;
    std::size_t left_ = 0;
    std::array<Free*, 48> free_{};  ///< blocks of at least two to the index bytes
};

}  // namespace tavisk::dom
