// Many exact token replacements in one pass over a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavisk {

/// Replaces, for each entry in the order of adding, every occurrence of backquote, body, backquote
/// by the entry's replacement. The result is that of doing so entry by entry over the whole text;
/// the time does not depend on the number of entries, unless a body or a replacement in use holds
/// a backquote itself.
class TokenTable {
public:
    void add(std::string_view body, std::string replacement);
    void replaceIn(std::string& text) const;

private:
    using EntryIndex = std::uint32_t;
    static constexpr EntryIndex none = ~EntryIndex{0};

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>()(text);
        }
    };

    /// Entries of one body, in their order.
    using ByBody = std::unordered_map<std::string, std::vector<EntryIndex>, Hash, std::equal_to<>>;

    struct Entry {
        std::string_view body;  ///< the key in `byBody_`
        std::string replacement;
        bool addsBackquotes = false;
    };

    friend class TokenReplacement;

    /// The first entry of this body that is not before `from`, or `none`.
    EntryIndex find(std::string_view body, EntryIndex from) const;
    void replaceEntryByEntry(std::string& text) const;

    std::vector<Entry> entries_;
    ByBody byBody_;
    std::vector<bool> lengths_;  ///< of the bodies: most other texts are told apart by theirs
    bool bodiesHoldBackquotes_ = false;
};

}  // namespace tavisk
