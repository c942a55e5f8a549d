#include "xml/textPool.h"

#include <algorithm>
#include <bit>

namespace tavisk::dom {
namespace {

constexpr std::size_t smallest = 16;
constexpr std::size_t chunkSize = std::size_t{256} << 10;

/// The largest power of two that a block of this size holds.
std::size_t classOf(std::size_t capacity) noexcept {
    return static_cast<std::size_t>(std::bit_width(capacity)) - 1;
}

}  // namespace

std::size_t TextPool::capacityFor(std::size_t size) noexcept {
    return size == 0 ? 0 : std::bit_ceil(std::max(size, smallest));
}

void* TextPool::allocate(std::size_t capacity) {
    Free*& head = free_[classOf(capacity)];
    if (head == nullptr) return bump(capacity);
    Free* const block = head;
    head = block->next;
    return block;
}

void* TextPool::keep(std::size_t size) { return bump((size + 7) & ~std::size_t{7}); }

void* TextPool::bump(std::size_t size) {
    if (size > chunkSize / 4) {
        chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
        return chunks_.back().get();
    }
    if (size > left_) {
        chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(chunkSize));
        at_ = chunks_.back().get();
        left_ = chunkSize;
    }
    std::byte* const block = at_;
    at_ += size;
    left_ -= size;
    return block;
}

void TextPool::release(void* block, std::size_t capacity) noexcept {
    if (capacity < smallest) return;
    Free*& head = free_[classOf(capacity)];
    head = new (block) Free{head};
}

}  // namespace tavisk::dom
