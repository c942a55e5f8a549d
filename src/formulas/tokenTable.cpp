#include "formulas/tokenTable.h"

#include <algorithm>
#include <optional>
#include <queue>
#include <tuple>
#include <utility>

#include "platform/text.h"

namespace tavisk {

/// The replacements in one text, worked out on its backquotes.
///
/// A token is a pair of neighbouring backquotes with an entry's body between them. Replacing it
/// takes both out of the text, so the backquotes around become neighbours, with a new body between
/// them that may be the token of a later entry.
class TokenReplacement {
public:
    TokenReplacement(const TokenTable& table, std::string_view text) : table_(table), text_(text) {}

    /// The new text; none where a replacement brings backquotes of its own. False in `changed` when
    /// no entry occurs.
    std::optional<std::string> run(bool& changed) {
        collectQuotes();
        for (Index i = 0; i + 1 < quotes_.size(); ++i)
            offer(i, 0);
        while (!waiting_.empty()) {
            const auto [entry, open, close] = waiting_.top();
            waiting_.pop();
            if (!quotes_[open].live || !quotes_[close].live || quotes_[open].next != close)
                continue;
            if (table_.entries_[entry].addsBackquotes) return std::nullopt;
            take(open, close, entry);
            changed = true;
        }
        return changed ? assemble() : std::string();
    }

private:
    using Index = std::uint32_t;
    using EntryIndex = TokenTable::EntryIndex;
    static constexpr Index outside = ~Index{0};

    struct Quote {
        std::size_t position = 0;
        Index previous = outside;  ///< live neighbours
        Index next = outside;
        bool live = true;
        EntryIndex entry = TokenTable::none;  ///< what replaces the token that opens here
        Index partner = outside;              ///< and where that token closes
        std::size_t gap = 0;                  ///< bytes up to the next live backquote
        std::string merged;  ///< these bytes, where replacements went into them and they may match
        bool isMerged = false;
    };

    void collectQuotes() {
        for (std::size_t at = text_.find('`'); at != std::string_view::npos;
             at = text_.find('`', at + 1)) {
            Quote quote;
            quote.position = at;
            quotes_.push_back(std::move(quote));
        }
        for (Index i = 0; i + 1 < quotes_.size(); ++i) {
            quotes_[i].next = i + 1;
            quotes_[i + 1].previous = i;
            quotes_[i].gap = quotes_[i + 1].position - quotes_[i].position - 1;
        }
    }

    bool mayMatch(std::size_t length) const {
        return length < table_.lengths_.size() && table_.lengths_[length];
    }
    /// Longer bodies match nothing, and grow only longer.
    bool tooLong(std::size_t length) const { return length >= table_.lengths_.size(); }

    std::string_view body(const Quote& quote) const {
        return quote.isMerged ? std::string_view(quote.merged)
                              : text_.substr(quote.position + 1, quote.gap);
    }

    void offer(Index open, EntryIndex from) {
        const Quote& quote = quotes_[open];
        if (!mayMatch(quote.gap)) return;
        const EntryIndex entry = table_.find(body(quote), from);
        if (entry != TokenTable::none) waiting_.push({entry, open, quote.next});
    }

    void take(Index open, Index close, EntryIndex entry) {
        Quote& first = quotes_[open];
        Quote& last = quotes_[close];
        first.live = last.live = false;
        first.entry = entry;
        first.partner = close;
        const Index before = first.previous;
        const Index after = last.next;
        if (after != outside) quotes_[after].previous = before;
        if (before == outside) return;
        Quote& left = quotes_[before];
        left.next = after;
        if (after == outside) return;
        const std::string& replacement = table_.entries_[entry].replacement;
        const std::size_t length = left.gap + replacement.size() + last.gap;
        if (!tooLong(length)) {
            left.merged = std::string(body(left)).append(replacement).append(body(last));
            left.isMerged = true;
        }
        left.gap = length;
        offer(before, entry + 1);
    }

    std::string assemble() const {
        std::string out;
        out.reserve(text_.size() + text_.size() / 4);
        std::size_t from = 0;
        for (Index i = 0; i < quotes_.size(); ++i) {
            const Quote& quote = quotes_[i];
            if (quote.entry == TokenTable::none) continue;
            out.append(text_, from, quote.position - from);
            out.append(table_.entries_[quote.entry].replacement);
            i = quote.partner;  // what was replaced inside went with the token
            from = quotes_[i].position + 1;
        }
        return out.append(text_, from);
    }

    using Candidate = std::tuple<EntryIndex, Index, Index>;  ///< entry, opening, closing

    const TokenTable& table_;
    std::string_view text_;
    std::vector<Quote> quotes_;
    std::priority_queue<Candidate, std::vector<Candidate>, std::greater<>> waiting_;
};

void TokenTable::add(std::string_view body, std::string replacement) {
    const auto index = static_cast<EntryIndex>(entries_.size());
    const auto place = byBody_.try_emplace(std::string(body)).first;
    place->second.push_back(index);
    const bool addsBackquotes = replacement.find('`') != std::string::npos;
    entries_.push_back({place->first, std::move(replacement), addsBackquotes});
    if (body.size() >= lengths_.size()) lengths_.resize(body.size() + 1);
    lengths_[body.size()] = true;
    if (body.find('`') != std::string_view::npos) bodiesHoldBackquotes_ = true;
}

TokenTable::EntryIndex TokenTable::find(std::string_view body, EntryIndex from) const {
    const auto found = byBody_.find(body);
    if (found == byBody_.end()) return none;
    const auto entry = std::ranges::lower_bound(found->second, from);
    return entry == found->second.end() ? none : *entry;
}

void TokenTable::replaceIn(std::string& text) const {
    if (entries_.empty() || text.find('`') == std::string::npos) return;
    if (!bodiesHoldBackquotes_) {
        bool changed = false;
        std::optional<std::string> replaced = TokenReplacement(*this, text).run(changed);
        if (replaced) {
            if (changed) text = std::move(*replaced);
            return;
        }
    }
    replaceEntryByEntry(text);
}

void TokenTable::replaceEntryByEntry(std::string& text) const {
    std::string token;
    for (const Entry& entry : entries_) {
        token.assign("`").append(entry.body).append("`");
        if (text.find(token) != std::string::npos) {
            text = replaceAll(text, token, entry.replacement);
        }
    }
}

}  // namespace tavisk
