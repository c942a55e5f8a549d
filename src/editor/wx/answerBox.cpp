#include "editor/wx/answerBox.h"

#include <string_view>
#include <utility>

#include "platform/wx/strings.h"

namespace tavisk {

// Without wxTE_PROCESS_TAB the Tab key moves on to the next control.
AnswerBox::AnswerBox(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_RICH2),
      buffer_(*this) {}

std::u16string AnswerBox::text() const { return buffer_.text(); }

TextSelection AnswerBox::selection() const {
    long from = 0;
    long to = 0;
    GetSelection(&from, &to);
    const std::u16string text = buffer_.text();
    CharacterPositions positions(text, buffer_.length());
    const std::size_t start = positions.unitOf(static_cast<std::size_t>(from));
    return {start, positions.unitOf(static_cast<std::size_t>(to)) - start};
}

void AnswerBox::show(const std::u16string& text, const std::vector<Token>& tokens) {
    const std::u16string before = buffer_.text();
    if (before != text) replace(before, text, findDifference(before, text, selection()));
    colour(text, tokens);
}

void AnswerBox::replace(const std::u16string& before, const std::u16string& after,
                        const TextDifference& difference) {
    const EventsSuppressor quiet(this);
    CharacterPositions positions(before, buffer_.length());
    const std::size_t from = positions.characterOf(difference.start);
    const std::size_t to = positions.characterOf(difference.start + difference.removed);
    if (to > from) Remove(static_cast<long>(from), static_cast<long>(to));
    SetInsertionPoint(static_cast<long>(from));
    // Writing nothing would send an event nevertheless.
    if (difference.inserted == 0) return;
    WriteText(toWx(std::u16string_view(after).substr(difference.start, difference.inserted)));
    ShowPosition(GetInsertionPoint());
}

void AnswerBox::showOther(const std::u16string& text, const std::vector<Token>& tokens) {
    if (buffer_.text() != text) {
        ChangeValue(toWx(std::u16string_view(text)));
        buffer_.clearColours();
        buffer_.takeUntouchedEnds();
        shown_.length = text.size();
        shown_.tokens.clear();
    }
    colour(text, tokens);
    SetInsertionPoint(0);
    buffer_.scrollToTop();
}

void AnswerBox::colour(const std::u16string& text, const std::vector<Token>& tokens) {
    wanted_.length = text.size();
    wanted_.tokens = tokens;
    CharacterPositions positions(text, buffer_.length());
    const std::size_t characters = buffer_.length();
    UntouchedEnds untouched = buffer_.takeUntouchedEnds();
    untouched.start = positions.unitOf(untouched.start);
    untouched.end = untouched.end < characters
                        ? text.size() - positions.unitOf(characters - untouched.end)
                        : text.size();
    findWrongColours(shown_, wanted_, untouched, wrong_);
    for (const ColourRun& run : wrong_) {
        const std::size_t from = positions.characterOf(run.start);
        buffer_.colour(from, positions.characterOf(run.start + run.length), run.colour);
    }
    std::swap(shown_, wanted_);
}

}  // namespace tavisk
