// Memory of one document: nodes, attribute tables and texts live and die with it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavisk::dom {

/// A bump allocator with one free list per power of two. Blocks are aligned to 16 bytes and stay
/// valid until released or until the pool ends; the pool never gives memory back before that.
class TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// What a request for `size` bytes really gets; 0 for 0.
    static std::size_t capacityFor(std::size_t size) noexcept;

    /// `capacity` comes from `capacityFor`. Throws std::bad_alloc.
    void* allocate(std::size_t capacity);
    void release(void* block, std::size_t capacity) noexcept;

private:
    struct Free {
        Free* next;
    };

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::byte* at_ = nullptr;
    std::size_t left_ = 0;
    std::array<Free*, 48> free_{};
};

}  // namespace tavisk::dom
