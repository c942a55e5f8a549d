// Typing in a long answer, with its tokens in colour and without.
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <string_view>
#include <wx/frame.h>

#include "editor/answerText.h"
#include "loaded.h"
#include "typing.h"
#include "ui/editor/answerBox.h"
#include "ui/support/pump.h"

namespace tavisk::bench {
namespace {

constexpr std::size_t answerLength = 6'000;
constexpr std::size_t answerTokens = 200;

/// Exactly `answerLength` characters with `answerTokens` tokens of every kind, in paragraphs.
std::u16string answer(std::size_t paragraph) {
    constexpr std::array<std::u16string_view, 4> tokens = {u"`depth_1`", u"`~door`", u"`!hinge`",
                                                           u"`@C:\\a.png`"};
    constexpr std::u16string_view words = u"of the door is measured where it meets the panel, ";
    constexpr std::size_t each = answerLength / answerTokens;
    std::u16string text;
    for (std::size_t i = 0; i < answerTokens; ++i) {
        text += tokens[i % tokens.size()];
        text += u' ';
        text += words.substr(i % 2, (i + 1) * each - text.size() - 1);
        text += (i + 1) * each % paragraph < each ? u'\n' : u' ';
    }
    return text;
}

enum class Place { start, middle, end };

class Typing {
public:
    Typing(std::size_t paragraph, Place place, bool coloured) : coloured_(coloured) {
        changeAnswerText(session_, answer(paragraph));
        const NodePanel& panel = session_.panel;
        box_->showOther(panel.text, coloured ? panel.tokens : std::vector<Token>{});
        box_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { changed(); });
        frame_->SetClientSize(width, height);
        frame_->Show();
        box_->SetFocus();
        test::pumpUntil([this] { return frame_->IsShownOnScreen() && box_->HasFocus(); });
        // Inside a word, not in a token.
        constexpr std::size_t word = 15;
        const std::size_t half = answerLength / 2 + word;
        at_ = static_cast<long>(place == Place::start    ? word
                                : place == Place::middle ? half
                                                         : answerLength - 3);
        box_->SetInsertionPoint(at_);
        // The view glides there.
        wxPoint before;
        wxPoint now(-1, -1);
        while (now != before || !box_->GetClientRect().Contains(now)) {
            before = now;
            box_->Refresh();
            untilPainted(*box_);
            now = box_->PositionToCoords(at_);
        }
    }
    Typing(const Typing&) = delete;
    Typing& operator=(const Typing&) = delete;
    ~Typing() {
        delete frame_;
        test::pumpPending();
    }

    void moveTo(long position) { at_ = position; }
    bool isRight() const {
        const NodePanel& panel = session_.panel;
        return panel.text.size() == answerLength && panel.tokens.size() == answerTokens;
    }

    /// Types one character until it can be seen, and takes it out again. Processor time of the
    /// typing, in seconds.
    double type(char character) {
        box_->SetInsertionPoint(at_);
        const double start = processorTime();
        pressKey(*box_, character);
        untilPainted(*box_);
        const double end = processorTime();
        if (session_.panel.text.size() != answerLength + 1) return 0;
        box_->Remove(at_, at_ + 1);
        untilPainted(*box_);
        return end - start;
    }

private:
    static constexpr int width = 700;
    static constexpr int height = 300;

    void changed() {
        changeAnswerText(session_, box_->text());
        if (coloured_) box_->colour(session_.panel.text, session_.panel.tokens);
    }

    LoadedSession loaded_{"<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>"};
    HelpSession& session_ = loaded_.session();
    wxFrame* frame_ = new wxFrame(nullptr, wxID_ANY, "Answer");
    AnswerBox* box_ = new AnswerBox(frame_);
    bool coloured_;
    long at_ = 0;
};

void measure(benchmark::State& state, Typing& typing, char character) {
    if (!typing.isRight()) state.SkipWithError("not the text that is meant");
    for (auto _ : state) {
        const double seconds = typing.type(character);
        if (seconds <= 0) state.SkipWithError("the key did not arrive");
        state.SetIterationTime(seconds);
    }
}

/// A character inside a word: paragraph length, place (0 start, 1 middle, 2 end), coloured or not.
void typeCharacter(benchmark::State& state) {
    Typing typing(static_cast<std::size_t>(state.range(0)), static_cast<Place>(state.range(1)),
                  state.range(2) != 0);
    measure(state, typing, 'e');
}
BENCHMARK(typeCharacter)
    ->ArgsProduct({{400, 6'000}, {0, 1, 2}, {0, 1}})
    ->ArgNames({"paragraph", "place", "coloured"})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// A backquote before everything: every token becomes text, and the other way round.
void typeBackquoteAtStart(benchmark::State& state) {
    Typing typing(static_cast<std::size_t>(state.range(0)), Place::start, state.range(1) != 0);
    typing.moveTo(0);
    measure(state, typing, '`');
}
BENCHMARK(typeBackquoteAtStart)
    ->ArgsProduct({{400, 6'000}, {0, 1}})
    ->ArgNames({"paragraph", "coloured"})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavisk::bench
