// Where something is in a text: for controls that count characters, and between two texts.
#pragma once

#include <cstddef>
#include <string_view>

#include "editor/answerText.h"

namespace tavisk {

/// Translates between UTF-16 code units and the positions of a control, which may count a
/// character of two code units as one. Fast where no text has such characters, and for positions
/// that grow.
class CharacterPositions {
public:
    /// `characters` is the length that the control tells for `text`.
    CharacterPositions(std::u16string_view text, std::size_t characters) noexcept
        : text_(text), same_(text.size() == characters) {}

    std::size_t unitOf(std::size_t character) noexcept;
    std::size_t characterOf(std::size_t unit) noexcept;

private:
    void step() noexcept;
    void restart() noexcept { unit_ = character_ = 0; }

    std::u16string_view text_;
    bool same_;
    std::size_t unit_ = 0;
    std::size_t character_ = 0;
};

/// `removed` code units at `start` gave way to `inserted` ones.
struct TextDifference {
    std::size_t start = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;

    bool operator==(const TextDifference&) const = default;
};

/// What changed between two texts. Often several places explain it ("aa" to "aaa"); the selection
/// is the first choice. Characters of two code units stay whole.
TextDifference findDifference(std::u16string_view before, std::u16string_view after,
                              TextSelection selection) noexcept;

}  // namespace tavisk
