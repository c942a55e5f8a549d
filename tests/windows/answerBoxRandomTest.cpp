// Whatever happens to the text, the box shows what colouring everything would show.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "reference/random.h"
#include "windows/support/answerWindow.h"

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
        ASSERT_EQ(box_.GetValue(), model_);
        ASSERT_EQ(box_.text(), utf16Of(model_));
        if (!colouredLast_) return;
        ASSERT_EQ(shownColours(box_), ruledColours(model_)) << utf8Of(model_);
    }

private:
    static constexpr std::size_t most = 120;

    wxString piece() {
        static const std::vector<std::u16string> pieces = {
            u"`",       u"`",          u"`",     u"`",  u"~",    u"!",
            u"@",       u"a",          u"b ",    u"\n", u"\r\n", u"\r",
            u"\t",      u"\U0001F600", u"`~p`",  u"`x", u"``",   u"`!\U0001F600`",
            u"e\u0301", u"\uFFFC",     u"\u2029"};
        return toWx(std::u16string_view(random_.pick(pieces)));
    }
    wxString pieces() {
        wxString text;
        for (std::size_t count = random_.below(4); count > 0; --count)
            text += piece();
        return text;
    }

    void select() {
        from_ = random_.below(model_.length() + 1);
        to_ = random_.chance(60) ? from_ : from_ + random_.below(model_.length() - from_ + 1);
        box_.SetSelection(static_cast<long>(from_), static_cast<long>(to_));
    }
    void expect(const wxString& inserted) {
        model_ = model_.substr(0, from_) + inserted + model_.substr(to_);
    }
    void edit(std::size_t action) {
        const wxString text = action < 12 ? piece() : pieces();
        if (action < 16 && !text.empty()) {
            expect(text);
            box_.WriteText(text);
        } else if (action < 17) {
            expect("");
            box_.Remove(static_cast<long>(from_), static_cast<long>(to_));
        } else if (action < 18 && to_ > from_) {
            copied_ = model_.substr(from_, to_ - from_);
            expect("");
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
        model_ = toWx(std::u16string_view(session.panel.text));
    }
    void other() {
        model_ = pieces() + pieces();
        window_.showNode(utf16Of(model_));
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
    wxString model_;
    wxString copied_;
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
