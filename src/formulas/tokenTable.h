// Many exact token replacements in one pass over a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace tavisk {

/// How far replacing may make a text grow, unless it was about as long already, and how much all
/// texts of one table beyond the usual length may come to, in bytes: replacements that hold tokens
/// of later entries multiply without end.
inline constexpr std::size_t maxReplacedSize = std::size_t{1} << 26;
inline constexpr std::size_t maxReplacedTotal = std::size_t{1} << 30;

/// How many bytes one table searches, text after text, where only doing the replacements tells what
/// comes of them. No real document comes near; a made-up one could keep the search busy for hours.
inline constexpr std::uint64_t maxSearched = std::uint64_t{1} << 33;

/// Replaces, for each entry in the order of adding, every occurrence of backquote, body, backquote
/// by the entry's replacement. The result is that of doing so entry by entry over the whole text;
/// the time does not depend on the number of entries, unless their bodies hold backquotes
/// themselves.
class TokenTable {
public:
    void add(std::string_view body, std::string replacement);

    /// Uses working memory of the table: one text at a time. Error 7 beyond `maxReplacedSize`,
    /// `maxReplacedTotal` and `maxSearched`; `text` is unspecified then.
    void replaceIn(std::string& text);

private:
    using Index = std::uint32_t;
    static constexpr Index none = ~Index{0};

    struct Entry {
        std::string body;
        std::string replacement;
        Index nextOfBody = none;  ///< the next entry of the same body
        // Kept in the first entry of a body:
        Index lastOfBody = none;
        Index nextToFind = none;  ///< in pass `foundIn`
        std::size_t foundIn = 0;
        bool addsBackquotes = false;
    };
    struct Slot {
        std::size_t hash = 0;
        Index entry = none;  ///< the first of its body
    };

    /// A backquote of the text at work. A token is a pair of neighbours with an entry's body
    /// between them; replacing it takes both out, so the backquotes around become neighbours, with
    /// a new body between them that may be the token of a later entry.
    struct Quote {
        Index position = 0;
        Index previous = none;  ///< neighbours that are still in the text
        Index next = none;
        Index gap = 0;         ///< bytes up to `next`
        Index merged = none;   ///< these bytes in `merged_`, where they are not as in the text
        Index entry = none;    ///< what replaces the token that opens here
        Index partner = none;  ///< where that token closes
        bool live = true;
    };
    struct Candidate {
        Index entry;
        Index open;
        Index close;

        bool operator>(const Candidate& other) const {
            return std::tie(entry, open, close) > std::tie(other.entry, other.open, other.close);
        }
    };

    Slot& slotOf(std::string_view body, std::size_t hash);
    void growSlots();
    Index find(std::string_view body, Index from);

    bool planReplacements(std::string_view text);
    void collectQuotes(std::string_view text);
    std::string_view bodyOf(const Quote& quote, std::string_view text) const;
    void offer(Index open, Index fromEntry, std::string_view text);
    void take(const Candidate& token, std::string_view text);
    void assemble(std::string& text);
    void replaceEntryByEntry(std::string& text);
    Index nextIn(std::string_view text, Index from);
    void replaceEntry(const Entry& entry, std::string& text);
    void countSearched(std::size_t bytes);
    void put(std::string_view part);
    void takeAssembled(std::string& text);

    std::vector<Entry> entries_;
    std::vector<Slot> slots_;
    std::vector<bool> lengths_;  ///< of the bodies: most other texts are told apart by theirs
    std::vector<Index> withBackquotes_;  ///< entries whose bodies hold some

    std::vector<Quote> quotes_;
    std::vector<std::string> merged_;
    std::size_t mergedSize_ = 0;
    std::vector<Candidate> waiting_;  ///< a heap, the least first
    std::string assembled_;
    std::size_t sizeLimit_ = maxReplacedSize;
    std::size_t pass_ = 0;  ///< one over a text, in which `find` is asked for ever later entries
    std::size_t replacedTotal_ = 0;
    std::uint64_t searched_ = 0;
    bool changed_ = false;
};

}  // namespace tavisk
