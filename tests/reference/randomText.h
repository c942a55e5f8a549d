// Random names, numbers and answer texts of one document.
#pragma once

#include <string>
#include <vector>

#include "reference/random.h"

namespace tavisk::reference {

/// What a document's texts are made of. Names are few, so that tokens and entries meet.
struct Vocabulary {
    std::vector<std::u16string> names;
    bool foreign = false;  ///< characters that the page cannot hold
    bool huge = false;     ///< numbers outside 16 bits
    bool longTexts = false;
};

Vocabulary randomVocabulary(Random& random);

/// Tokens of all kinds, halves of tokens and words.
std::u16string randomText(Random& random, const Vocabulary& words);

/// A text whose length is the limit of 32,767 or a little beside it, with tokens at both ends.
std::u16string randomLongText(Random& random, const Vocabulary& words);

/// What a formula stands for: often a token, or a part of one.
std::u16string randomValue(Random& random, const Vocabulary& words);

/// Sizes and styles in all forms.
std::u16string randomNumber(Random& random, const Vocabulary& words);
std::u16string randomGap(Random& random, const Vocabulary& words);
std::u16string randomFlag(Random& random);
std::u16string randomColour(Random& random, const Vocabulary& words);

}  // namespace tavisk::reference
