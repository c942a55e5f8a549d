#include "editor/tokenColours.h"

#include <algorithm>

namespace tavisk {
namespace {

/// Walks over the colours of a text from its start to its end.
class ColourWalk {
public:
    explicit ColourWalk(const TokenColours& colours) : colours_(colours) {}

    /// Positions may only grow.
    void moveTo(std::size_t position) {
        const std::vector<Token>& tokens = colours_.tokens;
        while (next_ < tokens.size() && tokens[next_].start + tokens[next_].length <= position)
            ++next_;
        if (next_ == tokens.size()) {
            colour_ = plainTextColour;
            end_ = colours_.length;
        } else if (position < tokens[next_].start) {
            colour_ = plainTextColour;
            end_ = tokens[next_].start;
        } else {
            colour_ = tokenColour(tokens[next_].kind);
            end_ = tokens[next_].start + tokens[next_].length;
        }
    }
    /// At the position moved to, up to the next position where it may differ.
    Colour colour() const { return colour_; }
    std::size_t end() const { return end_; }

private:
    const TokenColours& colours_;
    std::size_t next_ = 0;
    Colour colour_ = plainTextColour;
    std::size_t end_ = 0;
};

void append(std::vector<ColourRun>& runs, ColourRun run) {
    if (!runs.empty()) {
        ColourRun& last = runs.back();
        if (last.colour == run.colour && last.start + last.length == run.start) {
            last.length += run.length;
            return;
        }
    }
    runs.push_back(run);
}

/// How many tokens of a line are no trouble.
constexpr std::size_t mostInLine = 25;

bool hasBreak(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(), [](char16_t unit) {
        return unit == u'\n' || unit == u'\r' || unit == u'\u2029';
    });
}

/// The first token that begins in another line than `tokens[first]`.
std::size_t nextLine(std::u16string_view text, const std::vector<Token>& tokens,
                     std::size_t first) {
    std::size_t next = first + 1;
    while (
        next < tokens.size() &&
        !hasBreak(text.substr(tokens[next - 1].start, tokens[next].start - tokens[next - 1].start)))
        ++next;
    return next;
}

}  // namespace

void findWrongColours(const TokenColours& shown, const TokenColours& wanted,
                      UntouchedEnds untouched, std::vector<ColourRun>& wrong) {
    wrong.clear();
    const std::size_t shorter = std::min(shown.length, wanted.length);
    const std::size_t start = std::min(untouched.start, shorter);
    const std::size_t end = std::min(untouched.end, shorter - start);

    ColourWalk want(wanted);
    ColourWalk show(shown);
    const auto compare = [&](std::size_t from, std::size_t to, std::size_t shownFrom) {
        for (std::size_t at = from; at < to;) {
            want.moveTo(at);
            show.moveTo(at - from + shownFrom);
            const std::size_t next = std::min({to, want.end(), show.end() - shownFrom + from});
            if (show.colour() != want.colour()) append(wrong, {at, next - at, want.colour()});
            at = next;
        }
    };
    compare(0, start, 0);
    for (std::size_t at = start; at < wanted.length - end;) {
        want.moveTo(at);
        const std::size_t next = std::min(wanted.length - end, want.end());
        append(wrong, {at, next - at, want.colour()});
        at = next;
    }
    compare(wanted.length - end, wanted.length, shown.length - end);
}

bool keepNear(std::u16string_view text, TextRange range, std::vector<Token>& tokens) {
    if (tokens.size() <= mostInLine) return false;
    const auto isFar = [range](const Token& token) {
        return token.start + token.length <= range.from || token.start >= range.to;
    };
    std::size_t kept = 0;
    for (std::size_t first = 0; first < tokens.size();) {
        const std::size_t next = nextLine(text, tokens, first);
        const bool crowded = next - first > mostInLine;
        for (; first < next; ++first) {
            if (!crowded || !isFar(tokens[first])) tokens[kept++] = tokens[first];
        }
    }
    const bool all = kept == tokens.size();
    tokens.resize(kept);
    return !all;
}

}  // namespace tavisk
