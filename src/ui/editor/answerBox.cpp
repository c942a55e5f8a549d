#include "ui/editor/answerBox.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "ui/editor/boxText.h"

namespace tavisk {
namespace {

constexpr std::size_t few = 50;
/// Scrolling by some lines finds them coloured.
constexpr std::size_t aroundView = 300;

}  // namespace

// Without wxTE_PROCESS_TAB the Tab key moves on to the next control.
AnswerBox::AnswerBox(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_RICH2),
      buffer_(*this, [this] { followView(); }) {}

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
    // Suppressing them does not stop the events of changes that the control tells of itself.
    const wxEventBlocker quiet(this, wxEVT_TEXT);
    CharacterPositions positions(before, buffer_.length());
    const std::size_t from = positions.characterOf(difference.start);
    const std::size_t to = positions.characterOf(difference.start + difference.removed);
    if (to > from) Remove(static_cast<long>(from), static_cast<long>(to));
    SetInsertionPoint(static_cast<long>(from));
    // Writing nothing would send an event nevertheless.
    if (difference.inserted == 0) return;
    WriteText(textForBox(std::u16string_view(after).substr(difference.start, difference.inserted)));
    ShowPosition(GetInsertionPoint());
}

void AnswerBox::showOther(const std::u16string& text, const std::vector<Token>& tokens) {
    if (buffer_.text() != text) {
        ChangeValue(textForBox(text));
        clearColours(text.size());
    }
    near_ = {0, aroundView};
    colour(text, tokens);
    SetInsertionPoint(0);
    buffer_.scrollToTop();
}

void AnswerBox::clearColours(std::size_t length) {
    buffer_.clearColours();
    buffer_.takeUntouchedEnds();
    shown_.length = length;
    shown_.tokens.clear();
}

void AnswerBox::colour(const std::u16string& text, const std::vector<Token>& tokens) {
    tokens_ = tokens;
    colourNear(text);
}

void AnswerBox::followView() {
    // After a change that failed the tokens are those of another text.
    if (!partly_ || !buffer_.isUntouched()) return;
    const std::u16string text = buffer_.text();
    CharacterPositions positions(text, buffer_.length());
    const TextRange seen = buffer_.visible();
    const std::size_t from = positions.unitOf(seen.from);
    const std::size_t to = positions.unitOf(seen.to);
    if (near_.from <= from && to <= near_.to) return;
    near_ = {from - std::min(from, aroundView), to + aroundView};
    colourNear(text);
}

void AnswerBox::colourNear(const std::u16string& text) {
    wanted_.length = text.size();
    wanted_.tokens = tokens_;
    partly_ = keepNear(text, near_, wanted_.tokens);
    const std::size_t characters = buffer_.length();
    CharacterPositions positions(text, characters);
    UntouchedEnds untouched = buffer_.takeUntouchedEnds();
    untouched.start = positions.unitOf(untouched.start);
    untouched.end = untouched.end < characters
                        ? text.size() - positions.unitOf(characters - untouched.end)
                        : text.size();
    findWrongColours(shown_, wanted_, untouched, wrong_);
    if (wrong_.size() > std::max(wanted_.tokens.size(), few)) {
        // Many tokens turned round: to begin with none of them is quicker than to mend each.
        clearColours(text.size());
        findWrongColours(shown_, wanted_, {text.size(), 0}, wrong_);
    }
    for (ColourRun& run : wrong_) {
        const std::size_t start = positions.characterOf(run.start);
        run.length = positions.characterOf(run.start + run.length) - start;
        run.start = start;
    }
    buffer_.colour(wrong_);
    std::swap(shown_, wanted_);
}

}  // namespace tavisk
