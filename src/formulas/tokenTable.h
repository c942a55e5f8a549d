// Many exact token replacements in one pass over a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavisk {

/// Replaces, for each entry in the order of adding, every occurrence of backquote, body, backquote
/// by the entry's replacement. The result is that of doing so entry by entry over the whole text;
/// the time does not depend on the number of entries.
class TokenTable {
public:
    void add(std::string body, std::string replacement);
    void replaceIn(std::string& text) const;

private:
    struct Entry {
        std::string body;
        std::string replacement;
    };

    std::size_t firstEntry(std::string_view body, std::size_t from) const;
    void replaceEntryByEntry(std::string& text) const;

    std::vector<Entry> entries_;
    std::unordered_map<std::string_view, std::vector<std::uint32_t>> byBody_;
};

}  // namespace tavisk
