#include "platform/textPool.h"

#include <algorithm>
#include <bit>

namespace tavisk::dom {
namespace {

constexpr std::size_t smallest = 16;
constexpr std::size_t chunkSize = std::size_t{256} << 10;

std::size_t classOf(std::size_t capacity) noexcept {
    return static_cast<std::size_t>(std::countr_zero(capacity));
}

}  // namespace

std::size_t TextPool::capacityFor(std::size_t size) noexcept {
    return size == 0 ? 0 : std::bit_ceil(std::max(size, smallest));
}

void* TextPool::allocate(std::size_t capacity) {
    if (Free*& head = free_[classOf(capacity)]; head != nullptr) {
        Free* block = head;
        head = block->next;
        return block;
    }
    if (capacity > chunkSize / 4) {
        chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(capacity));
        return chunks_.back().get();
    }
    if (capacity > left_) {
        chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(chunkSize));
        at_ = chunks_.back().get();
        left_ = chunkSize;
    }
    std::byte* block = at_;
    at_ += capacity;
    left_ -= capacity;
    return block;
}

void TextPool::release(void* block, std::size_t capacity) noexcept {
    Free*& head = free_[classOf(capacity)];
    head = new (block) Free{head};
}

}  // namespace tavisk::dom
