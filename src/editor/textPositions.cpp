#include "editor/textPositions.h"

#include <algorithm>

namespace tavisk {
namespace {

constexpr bool isHigh(char16_t unit) noexcept { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLow(char16_t unit) noexcept { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

void CharacterPositions::step() noexcept {
    const bool pair = isHigh(text_[unit_]) && unit_ + 1 < text_.size() && isLow(text_[unit_ + 1]);
    unit_ += pair ? 2 : 1;
    ++character_;
}

std::size_t CharacterPositions::unitOf(std::size_t character) noexcept {
    if (same_) return std::min(character, text_.size());
    if (character < character_) restart();
    while (character_ < character && unit_ < text_.size())
        step();
    return unit_;
}

std::size_t CharacterPositions::characterOf(std::size_t unit) noexcept {
    if (same_) return std::min(unit, text_.size());
    if (unit < unit_) restart();
    while (unit_ < unit && unit_ < text_.size())
        step();
    return character_;
}

TextDifference findDifference(std::u16string_view before, std::u16string_view after,
                              TextSelection selection) noexcept {
    if (selection.start + selection.length <= before.size()) {
        const std::u16string_view head = before.substr(0, selection.start);
        const std::u16string_view tail = before.substr(selection.start + selection.length);
        if (head.size() + tail.size() <= after.size() && after.starts_with(head) &&
            after.ends_with(tail)) {
            return {head.size(), selection.length, after.size() - head.size() - tail.size()};
        }
    }
    std::size_t start = static_cast<std::size_t>(
        std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first -
        before.begin());
    if (start > 0 && isHigh(before[start - 1])) --start;
    const std::size_t most = std::min(before.size(), after.size()) - start;
    std::size_t end = 0;
    while (end < most && before[before.size() - end - 1] == after[after.size() - end - 1])
        ++end;
    if (end > 0 && isLow(before[before.size() - end])) --end;
    return {start, before.size() - start - end, after.size() - start - end};
}

}  // namespace tavisk
