// Whatever happens to the text, the box shows what colouring everything would show.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "base/text.h"
#include "reference/random.h"
#include "ui/editor/boxText.h"
#include "ui/support/answerWindow.h"

namespace tavisk {
namespace {

using test::ruledColours;
using test::shownColours;

/// Does to the box, and to a plain copy of its text, what users and commands do.
class RandomEdits {
public:
    explicit RandomEdits(std::uint64_t seed) : random_(seed) {
        window_.change = [this] { changed(); };
    }

    void step() {
        const std::size_t action = random_.below(20);
        fails_ = random_.chance(10);
        if (model_.length() > most || action == 0) {
            other();
        } else if (action < 3) {
            command();
        } else {
            select();
            edit(action);
        }
        ASSERT_EQ(box_.text(), model_);
        if (!colouredLast_) return;
        ASSERT_EQ(shownColours(box_), ruledColours(model_)) << toUtf8(model_);
    }

private:
    static constexpr std::size_t most = 120;

    std::u16string piece() {
        static const std::vector<std::u16string> pieces = {
            u"`",       u"`",          u"`",     u"`",  u"~",    u"!",
            u"@",       u"a",          u"b ",    u"\n", u"\r\n", u"\r",
            u"\t",      u"\U0001F600", u"`~p`",  u"`x", u"``",   u"`!\U0001F600`",
            u"e\u0301", u"\uFFFC",     u"\u2029"};
        return random_.pick(pieces);
    }
    std::u16string pieces() {
        std::u16string text;
        for (std::size_t count = random_.below(4); count > 0; --count)
            text += piece();
        return text;
    }

    void select() {
        const std::size_t count = test::characterCount(model_);
        const std::size_t first = random_.below(count + 1);
        const std::size_t last =
            random_.chance(60) ? first : first + random_.below(count - first + 1);
        test::selectCharacters(box_, first, last);
        from_ = test::unitBehind(model_, first);
        to_ = test::unitBehind(model_, last);
    }
    void expect(const std::u16string& inserted) {
        model_ = model_.substr(0, from_) + inserted + model_.substr(to_);
    }
    void edit(std::size_t action) {
        const std::u16string text = action < 12 ? piece() : pieces();
        if (action < 16 && !text.empty()) {
            expect(text);
            box_.WriteText(textForBox(text));
        } else if (action < 17) {
            expect(u"");
            long from = 0;
            long to = 0;
            box_.GetSelection(&from, &to);
            box_.Remove(from, to);
        } else if (action < 18 && to_ > from_) {
            copied_ = model_.substr(from_, to_ - from_);
            expect(u"");
            box_.Cut();
        } else if (to_ > from_) {
            copied_ = model_.substr(from_, to_ - from_);
            box_.Copy();
            select();
            expect(copied_);
            box_.Paste();
            test::pumpPending();
        }
    }
    void command() {
        HelpSession& session = window_.editor.session;
        changeAnswerText(session, box_.text());
        const int before = window_.changes;
        if (random_.chance(50)) {
            insertFormulaAtCursor(session, "f", box_.selection());
        } else {
            insertOverlay(session, "~\u00E9");
        }
        window_.showCommand();
        colouredLast_ = true;
        EXPECT_EQ(window_.changes, before);
        model_ = session.panel.text;
    }
    void other() {
        model_ = pieces() + pieces();
        window_.showNode(model_);
        colouredLast_ = true;
    }

    /// The window's handler, which an error may end before it colours anything.
    void changed() {
        changeAnswerText(window_.editor.session, box_.text());
        colouredLast_ = !fails_;
        if (fails_) return;
        const TextSelection before = box_.selection();
        box_.colour(window_.panelText().text, window_.panelText().tokens);
        EXPECT_EQ(box_.selection().start, before.start);
        EXPECT_EQ(box_.selection().length, before.length);
    }

    reference::Random random_;
    test::AnswerWindow window_;
    AnswerBox& box_ = *window_.box;
    std::u16string model_;
    std::u16string copied_;
    std::size_t from_ = 0;
    std::size_t to_ = 0;
    bool fails_ = false;        ///< the next change is not coloured
    bool colouredLast_ = true;  ///< the last one was
};

TEST(AnswerBoxRandom, ShowsWhatColouringEverythingWouldShow) {
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        RandomEdits edits(seed);
        for (int step = 0; step < 1000; ++step) {
            edits.step();
            ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << " step " << step;
        }
    }
}

}  // namespace
}  // namespace tavisk
