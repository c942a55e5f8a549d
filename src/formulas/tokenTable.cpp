#include "formulas/tokenTable.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace tavisk {
namespace {

/// Bytes of all bodies between backquotes that became neighbours.
constexpr std::size_t maxMergedSize = std::size_t{1} << 24;

}  // namespace

void TokenTable::add(std::string_view body, std::string replacement) {
    const auto index = static_cast<Index>(entries_.size());
    const bool addsBackquotes = replacement.find('`') != std::string::npos;
    Entry& entry = entries_.emplace_back();
    entry.body = body;
    entry.replacement = std::move(replacement);
    entry.lastOfBody = index;
    entry.addsBackquotes = addsBackquotes;
    if (entries_.size() * 2 > slots_.size()) growSlots();
    const std::size_t hash = std::hash<std::string_view>()(body);
    Slot& slot = slotOf(body, hash);
    if (slot.entry == none) {
        slot = {hash, index};
    } else {
        Index& last = entries_[slot.entry].lastOfBody;
        last = entries_[last].nextOfBody = index;
    }
    if (body.size() >= lengths_.size()) lengths_.resize(body.size() + 1);
    lengths_[body.size()] = true;
    if (body.find('`') != std::string_view::npos) withBackquotes_.push_back(index);
}

TokenTable::Slot& TokenTable::slotOf(std::string_view body, std::size_t hash) {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = slots_[at];
        if (slot.entry == none || (slot.hash == hash && entries_[slot.entry].body == body)) {
            return slot;
        }
    }
}

void TokenTable::growSlots() {
    std::vector<Slot> old(std::max<std::size_t>(slots_.size() * 2, 16));
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.entry != none) slotOf(entries_[slot.entry].body, slot.hash) = slot;
    }
}

/// The first entry of this body that is not before `from`. Within a pass `from` never goes back, so
/// that the entries of a body are walked once.
TokenTable::Index TokenTable::find(std::string_view body, Index from) {
    const Index first = slotOf(body, std::hash<std::string_view>()(body)).entry;
    if (first == none) return none;
    Entry& head = entries_[first];
    if (head.foundIn != pass_) {
        head.foundIn = pass_;
        head.nextToFind = first;
    }
    Index& next = head.nextToFind;
    while (next != none && next < from)
        next = entries_[next].nextOfBody;
    return next;
}

void TokenTable::replaceIn(std::string& text) {
    if (entries_.empty() || text.find('`') == std::string::npos) return;
    sizeLimit_ = std::max(maxReplacedSize, text.size() * 2);
    if (!withBackquotes_.empty() || !planReplacements(text)) {
        replaceEntryByEntry(text);
    } else if (changed_) {
        assemble(text);
    }
}

/// Works out on the backquotes what replaces what. False where a replacement brings backquotes of
/// its own, so that only doing it tells, or where planning would cost too much.
bool TokenTable::planReplacements(std::string_view text) {
    constexpr std::greater<> leastFirst;
    ++pass_;
    changed_ = false;
    merged_.clear();
    mergedSize_ = 0;
    waiting_.clear();
    collectQuotes(text);
    for (Index open = 0; open + 1 < quotes_.size(); ++open)
        offer(open, 0, text);
    while (!waiting_.empty()) {
        std::ranges::pop_heap(waiting_, leastFirst);
        const Candidate token = waiting_.back();
        waiting_.pop_back();
        const Quote& open = quotes_[token.open];
        if (!open.live || open.next != token.close) continue;
        if (entries_[token.entry].addsBackquotes) return false;
        take(token, text);
        changed_ = true;
        // A very long name beside very many tokens: the bodies cost more than doing it.
        if (mergedSize_ > maxMergedSize) return false;
    }
    return true;
}

void TokenTable::collectQuotes(std::string_view text) {
    quotes_.clear();
    for (std::size_t at = text.find('`'); at != std::string_view::npos;
         at = text.find('`', at + 1)) {
        const auto index = static_cast<Index>(quotes_.size());
        Quote quote;
        quote.position = static_cast<Index>(at);
        if (index > 0) {
            Quote& previous = quotes_.back();
            quote.previous = index - 1;
            previous.next = index;
            previous.gap = quote.position - previous.position - 1;
        }
        quotes_.push_back(quote);
    }
}

std::string_view TokenTable::bodyOf(const Quote& quote, std::string_view text) const {
    return quote.merged != none ? std::string_view(merged_[quote.merged])
                                : text.substr(quote.position + 1, quote.gap);
}

void TokenTable::offer(Index open, Index fromEntry, std::string_view text) {
    const Quote& quote = quotes_[open];
    if (quote.gap >= lengths_.size() || !lengths_[quote.gap]) return;
    const Index entry = find(bodyOf(quote, text), fromEntry);
    if (entry == none) return;
    waiting_.push_back({entry, open, quote.next});
    std::ranges::push_heap(waiting_, std::greater<>());
}

void TokenTable::take(const Candidate& token, std::string_view text) {
    Quote& first = quotes_[token.open];
    Quote& last = quotes_[token.close];
    first.live = last.live = false;
    first.entry = token.entry;
    first.partner = token.close;
    if (last.next != none) quotes_[last.next].previous = first.previous;
    if (first.previous == none) return;
    Quote& left = quotes_[first.previous];
    left.next = last.next;
    if (left.next == none) return;
    const std::string& replacement = entries_[token.entry].replacement;
    const std::size_t length = left.gap + replacement.size() + last.gap;
    if (length > sizeLimit_) raise(ErrorNumber::outOfMemory);
    // A body longer than every entry's matches nothing, and can only grow.
    if (length < lengths_.size()) {
        std::string body(bodyOf(left, text));
        body.append(replacement).append(bodyOf(last, text));
        left.merged = static_cast<Index>(merged_.size());
        mergedSize_ += body.size();
        merged_.push_back(std::move(body));
    }
    left.gap = static_cast<Index>(length);
    offer(first.previous, token.entry + 1, text);
}

void TokenTable::assemble(std::string& text) {
    const std::string_view old = text;
    std::size_t from = 0;
    assembled_.clear();
    for (Index i = 0; i < quotes_.size(); ++i) {
        const Quote& quote = quotes_[i];
        if (quote.entry == none) continue;
        put(old.substr(from, quote.position - from));
        put(entries_[quote.entry].replacement);
        i = quote.partner;  // what was replaced between the two went with the token
        from = quotes_[i].position + std::size_t{1};
    }
    put(old.substr(from));
    takeAssembled(text);
}

void TokenTable::replaceEntryByEntry(std::string& text) {
    ++pass_;
    auto special = withBackquotes_.begin();
    Index next = nextIn(text, 0);
    for (;;) {
        const bool isSpecial = special != withBackquotes_.end() && *special < next;
        const Index entry = isSpecial ? *special++ : next;
        if (entry == none) return;
        replaceEntry(entries_[entry], text);
        if (!isSpecial || changed_) next = nextIn(text, entry + 1);
    }
}

/// The first entry from `from` on whose token is in the text. A body without backquotes can only be
/// what stands between two neighbouring ones; other bodies are left out here.
TokenTable::Index TokenTable::nextIn(std::string_view text, Index from) {
    countSearched(text.size());
    Index next = none;
    std::size_t open = text.find('`');
    while (open != std::string_view::npos) {
        const std::size_t close = text.find('`', open + 1);
        if (close == std::string_view::npos) break;
        const std::string_view body = text.substr(open + 1, close - open - 1);
        if (body.size() < lengths_.size() && lengths_[body.size()]) {
            next = std::min(next, find(body, from));
        }
        open = close;
    }
    return next;
}

/// `changed_` tells whether there was anything to replace.
void TokenTable::replaceEntry(const Entry& entry, std::string& text) {
    const std::string token = std::string("`").append(entry.body).append("`");
    countSearched(text.size() + token.size());
    const std::string_view old = text;
    std::size_t from = 0;
    assembled_.clear();
    std::size_t at = old.find(token);
    changed_ = at != std::string_view::npos;
    if (!changed_) return;
    for (; at != std::string_view::npos; at = old.find(token, from)) {
        put(old.substr(from, at - from));
        put(entry.replacement);
        from = at + token.size();
    }
    put(old.substr(from));
    takeAssembled(text);
}

void TokenTable::countSearched(std::size_t bytes) {
    searched_ += bytes;
    if (searched_ > maxSearched) raise(ErrorNumber::outOfMemory);
}

void TokenTable::put(std::string_view part) {
    if (part.size() > sizeLimit_ - assembled_.size()) raise(ErrorNumber::outOfMemory);
    assembled_ += part;
}

void TokenTable::takeAssembled(std::string& text) {
    if (assembled_.size() > maxCount) replacedTotal_ += assembled_.size();
    if (replacedTotal_ > maxReplacedTotal) raise(ErrorNumber::outOfMemory);
    text.swap(assembled_);
}

}  // namespace tavisk
