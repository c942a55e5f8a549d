// Help documents for measuring: like real ones, of any size, the same bytes on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "random.h"

namespace tavisk::bench {

struct DocumentPlan {
    std::size_t nodes = 1000;  ///< help nodes below `cabinet`
    std::size_t formulas = 20;
    std::size_t pictures = 5;
    std::size_t pictureBytes = 10'000;
    std::uint64_t seed = 1;
};

inline constexpr DocumentPlan planS{1'000, 20, 5, 10'000, 1};
inline constexpr DocumentPlan planM{10'000, 200, 50, 10'000, 1};
inline constexpr DocumentPlan planL{30'000, 2'000, 500, 10'000, 1};
inline constexpr DocumentPlan planLP{30'000, 2'000, 500, 200'000, 1};
/// About 1 MB; documents of different seeds differ.
constexpr DocumentPlan planMegabyte(std::uint64_t seed) { return {1'850, 40, 8, 10'000, seed}; }
/// The help nodes of L with the catalogue and pictures of S.
inline constexpr DocumentPlan planFew{30'000, 20, 5, 10'000, 1};

/// The whole document. Documents of one seed and number of nodes have help nodes of the same names,
/// attributes and lengths, however many formulas and pictures there are.
std::string makeDocument(const DocumentPlan& plan);

/// Name of a formula or picture of a document; names of one kind and noun are equally long.
std::string formulaName(std::size_t index);
std::string pictureName(std::size_t index);

/// Plain text (no XML escapes) of `length` to `length` + 120 characters with `tokens` formula
/// tokens, and a picture token at its end when there are pictures and `picture` is set.
std::string makeAnswer(Random& random, std::size_t length, std::size_t tokens, bool picture,
                       const DocumentPlan& plan);

/// A chain of `depth` groups with the rest of `nodes` spread below its links: names and nesting
/// only.
std::string makeDeepDocument(std::size_t nodes, std::size_t depth);

}  // namespace tavisk::bench
