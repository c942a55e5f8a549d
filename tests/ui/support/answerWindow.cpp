#include "ui/support/answerWindow.h"

#include <algorithm>

namespace tavisk::test {
namespace {

bool isSecondHalf(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::size_t characterCount(std::u16string_view text) {
    return text.size() -
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isSecondHalf));
}

std::size_t unitBehind(std::u16string_view text, std::size_t characters) {
    return CharacterPositions(text, characterCount(text)).unitOf(characters);
}

long placeBehind(const AnswerBox& box, std::size_t characters) {
    const std::u16string text = box.text();
    CharacterPositions own(text, static_cast<std::size_t>(box.GetLastPosition()));
    return static_cast<long>(own.characterOf(unitBehind(text, characters)));
}

void selectCharacters(AnswerBox& box, std::size_t from, std::size_t to) {
    box.SetSelection(placeBehind(box, from), placeBehind(box, to));
}

std::string ruledColours(std::u16string_view text) {
    std::string letters(text.size(), '.');
    std::size_t open = std::string::npos;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != u'`') continue;
        if (open == std::string::npos) {
            open = at;
            continue;
        }
        const char16_t kind = text[open + 1];
        const char letter = kind == u'~' || kind == u'@' ? 'b' : kind == u'!' ? 'g' : 'o';
        for (std::size_t inside = open; inside <= at; ++inside)
            letters[inside] = letter;
        open = std::string::npos;
    }
    std::size_t unit = 0;
    letters.erase(std::remove_if(letters.begin(), letters.end(),
                                 [&](char) { return isSecondHalf(text[unit++]); }),
                  letters.end());
    return letters;
}

std::size_t mostPiecesInLine(const AnswerBox& box) {
    const std::string colours = shownColours(box);
    const std::u16string text = box.text();
    std::size_t most = 0;
    std::size_t here = 1;
    for (std::size_t i = 1, unit = 1; i < colours.size(); ++i, ++unit) {
        if (isSecondHalf(text[unit])) ++unit;
        if (colours[i] != colours[i - 1]) ++here;
        if (text[unit] == u'\n') here = 1;
        most = std::max(most, here);
    }
    return most;
}

Colour paperOf(const Drawing& drawing) {
    return std::max_element(drawing.begin(), drawing.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

}  // namespace tavisk::test
