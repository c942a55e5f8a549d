// The colours of the answer text, and which of them are wrong after a change of the text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "formulas/tokens.h"

namespace tavisk {

inline constexpr Colour plainTextColour = 0x000000;

constexpr Colour tokenColour(TokenKind kind) noexcept {
    switch (kind) {
        case TokenKind::image:
        case TokenKind::externalImage: return 0xFF0000;
        case TokenKind::overlay: return 0x008000;
        case TokenKind::formula: break;
    }
    return 0x008080;
}

/// The colours of a text of `length` code units: its tokens, and plain between them.
struct TokenColours {
    std::size_t length = 0;
    std::vector<Token> tokens;
};

/// How much of a text's start and end nothing was done to since it was coloured. A text box's
/// colours move with its text, so there they are still as they were.
struct UntouchedEnds {
    std::size_t start = 0;
    std::size_t end = 0;
};

struct ColourRun {
    std::size_t start = 0;
    std::size_t length = 0;
    Colour colour = plainTextColour;

    bool operator==(const ColourRun&) const = default;
};

/// What to colour in a box that was coloured as `shown` so that it shows `wanted`. Between the
/// untouched ends anything may have been put in, in any colour, so all of it is coloured. `wrong`
/// is replaced; its runs are in order, apart from each other or of different colours.
void findWrongColours(const TokenColours& shown, const TokenColours& wanted,
                      UntouchedEnds untouched, std::vector<ColourRun>& wrong);

/// From one position up to another one, in code units.
struct TextRange {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// A line with very many colours takes long to lay out, and it is laid out with every key. So of
/// the tokens in such lines only those that reach into `range` stay. False when all tokens stay.
bool keepNear(std::u16string_view text, TextRange range, std::vector<Token>& tokens);

}  // namespace tavisk
