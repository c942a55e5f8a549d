// What the answer box asks of the text below its control. Positions are the control's own.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "editor/tokenColours.h"

class wxTextCtrl;

namespace tavisk {

/// The text of a multi-line control in black, blue, green and olive on white paper. Colours come
/// from `colour` alone: what is put in, from wherever, brings none along.
class AnswerBuffer {
public:
    explicit AnswerBuffer(wxTextCtrl& box);
    AnswerBuffer(const AnswerBuffer&) = delete;
    AnswerBuffer& operator=(const AnswerBuffer&) = delete;
    ~AnswerBuffer();

    std::u16string text() const;
    std::size_t length() const;

    /// Where nothing was put in or taken out since the last call.
    UntouchedEnds takeUntouchedEnds();

    /// Moves neither caret nor view, ends no input method's work and is no change of the text.
    void colour(std::size_t from, std::size_t to, Colour colour);

    /// Everything is plain.
    void clearColours();

    void scrollToTop();

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace tavisk
