// The one scanner for tokens in answer texts: backquote, body, backquote.
//
// Backquotes pair strictly from left to right; nothing nests; an odd last one is plain text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavisk {

enum class TokenKind : std::uint8_t { formula, image, overlay, externalImage };

/// Decided by the character after the opening backquote; `next` is that character (for an empty
/// token the closing backquote).
constexpr TokenKind tokenKind(char32_t next) noexcept {
    switch (next) {
        case U'~': return TokenKind::image;
        case U'!': return TokenKind::overlay;
        case U'@': return TokenKind::externalImage;
        default: return TokenKind::formula;
    }
}

/// A token with both backquotes; `start` counts from 0 in the text's code units.
struct Token {
    std::size_t start = 0;
    std::size_t length = 0;
    TokenKind kind = TokenKind::formula;

    bool operator==(const Token&) const = default;
};

/// Replaces `tokens`, whose memory is used again. Error 6 for texts over 32,767 code units.
void scanTokens(std::u16string_view text, std::vector<Token>& tokens);

/// The same for UTF-8, positions in bytes; the length limit still counts UTF-16 code units.
void scanTokens(std::string_view utf8, std::vector<Token>& tokens);

/// Rewrites the tokens whose kind concerns the caller, in one scan of the pairs. The scan's
/// position and its end, the text's length before it, are not corrected when a replacement is
/// shorter or longer than its token: later tokens can be missed or pair differently, and pages
/// depend on that. Error 6 for texts over 32,767 UTF-16 code units.
void rewriteTokens(std::string& text, bool (*concerns)(TokenKind),
                   std::u16string (*rewrite)(TokenKind, std::u16string_view body));

/// Between the backquotes.
constexpr std::string_view tokenBody(std::string_view text, const Token& token) {
    return text.substr(token.start + 1, token.length - 2);
}

}  // namespace tavisk
