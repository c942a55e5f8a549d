#include "formulas/tokens.h"

#include <string>

#include "base/text.h"

namespace tavisk {
namespace {

std::size_t findBackquote(std::string_view text, std::size_t from) { return text.find('`', from); }

std::size_t findBackquote(std::u16string_view text, std::size_t from) {
    // Whole blocks first: a compiler makes vectors of the inner loop.
    constexpr std::size_t block = 32;
    while (from + block <= text.size()) {
        unsigned any = 0;
        for (std::size_t i = 0; i < block; ++i) {
            any |= static_cast<unsigned>(text[from + i] == u'`');
        }
        if (any != 0) break;
        from += block;
    }
    while (from < text.size() && text[from] != u'`')
        ++from;
    return from < text.size() ? from : std::u16string_view::npos;
}

template <class View>
void scan(View text, std::vector<Token>& tokens) {
    tokens.clear();
    std::size_t open = 0;
    while ((open = findBackquote(text, open)) != View::npos) {
        const std::size_t close = findBackquote(text, open + 1);
        if (close == View::npos) return;
        tokens.push_back(
            {open, close - open + 1, tokenKind(static_cast<char32_t>(text[open + 1]))});
        open = close + 1;
    }
}

}  // namespace

void scanTokens(std::u16string_view text, std::vector<Token>& tokens) {
    checkedCount(text.size());
    scan(text, tokens);
}

void scanTokens(std::string_view utf8, std::vector<Token>& tokens) {
    checkTextLength(utf8);
    scan(utf8, tokens);
}

void rewriteTokens(std::string& text, bool (*concerns)(TokenKind),
                   std::u16string (*rewrite)(TokenKind, std::u16string_view body)) {
    checkTextLength(text);
    bool any = false;
    for (std::size_t open = 0; !any && (open = findBackquote(text, open)) != std::string::npos;) {
        const std::size_t close = findBackquote(text, open + 1);
        if (close == std::string::npos) return;
        any = concerns(tokenKind(static_cast<unsigned char>(text[open + 1])));
        open = close + 1;
    }
    if (!any) return;

    std::u16string wide = toUtf16(text);
    const std::size_t end = wide.size();
    std::size_t open = std::u16string::npos;
    for (std::size_t at = 0; at < end && at < wide.size(); ++at) {
        at = findBackquote(wide, at);
        if (at >= end) break;
        if (open == std::u16string::npos) {
            open = at;
            continue;
        }
        const TokenKind kind = tokenKind(wide[open + 1]);
        if (concerns(kind)) {
            const std::u16string_view body =
                std::u16string_view(wide).substr(open + 1, at - open - 1);
            // `at` stays where it is, whatever the lengths: see the header.
            wide.replace(open, at - open + 1, rewrite(kind, body));
        }
        open = std::u16string::npos;
    }
    toUtf8(wide, text);
}

}  // namespace tavisk
