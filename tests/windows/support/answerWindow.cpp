#include "windows/support/answerWindow.h"

#include <algorithm>

namespace tavisk::test {

std::string ruledColours(const wxString& text) {
    std::string letters(text.length(), '.');
    std::size_t open = std::string::npos;
    for (std::size_t at = 0; at < text.length(); ++at) {
        if (text[at] != '`') continue;
        if (open == std::string::npos) {
            open = at;
            continue;
        }
        const wxUniChar kind = text[open + 1];
        const char letter = kind == '~' || kind == '@' ? 'b' : kind == '!' ? 'g' : 'o';
        for (std::size_t inside = open; inside <= at; ++inside)
            letters[inside] = letter;
        open = std::string::npos;
    }
    return letters;
}

std::size_t mostPiecesInLine(const AnswerBox& box) {
    const std::string colours = shownColours(box);
    const wxString text = box.GetValue();
    std::size_t most = 0;
    std::size_t here = 1;
    for (std::size_t i = 1; i < colours.size(); ++i) {
        if (colours[i] != colours[i - 1]) ++here;
        if (text[i] == '\n') here = 1;
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
