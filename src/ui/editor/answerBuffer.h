// What the answer box asks of the text below its control. Positions are the control's own.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editor/tokenColours.h"

class wxTextCtrl;

namespace tavisk {

/// The text of a multi-line control in black, blue, green and olive on white paper. Colours come
/// from `colour` alone: what is put in, from wherever, brings none along.
class AnswerBuffer {
public:
    /// `drawing` is called whenever the text is drawn.
    AnswerBuffer(wxTextCtrl& box, std::function<void()> drawing);
    AnswerBuffer(const AnswerBuffer&) = delete;
    AnswerBuffer& operator=(const AnswerBuffer&) = delete;
    ~AnswerBuffer();

    std::u16string text() const;
    std::size_t length() const;

    /// Where nothing was put in or taken out since the last call.
    UntouchedEnds takeUntouchedEnds();
    /// Whether that is everywhere.
    bool isUntouched() const;

    /// Moves neither caret nor view, ends no input method's work and is no change of the text.
    void colour(const std::vector<ColourRun>& runs);

    /// Everything is plain.
    void clearColours();

    void scrollToTop();

    /// What of the text can be seen, and perhaps some more.
    TextRange visible() const;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace tavisk
