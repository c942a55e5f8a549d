// The answer text box, with its tokens in colour.
#pragma once

#include <string>
#include <vector>
#include <wx/textctrl.h>

#include "editor/answerText.h"
#include "editor/textPositions.h"
#include "editor/tokenColours.h"
#include "ui/editor/answerBuffer.h"

namespace tavisk {

/// `txtValue`. Positions are UTF-16 code units of the text, whatever the control counts.
class AnswerBox final : public wxTextCtrl {
public:
    explicit AnswerBox(wxWindow* parent);

    std::u16string text() const;
    TextSelection selection() const;

    /// After a command: shows the text and its tokens; no handler runs. Only what differs from what
    /// is shown is touched. After a change the caret stands behind what is new, else it stays.
    void show(const std::u16string& text, const std::vector<Token>& tokens);

    /// The same for the text of another node: the caret stands at the start, with the view there.
    void showOther(const std::u16string& text, const std::vector<Token>& tokens);

    /// After the user changed the text: colours what has to change. `text` is the control's own.
    void colour(const std::u16string& text, const std::vector<Token>& tokens);

private:
    void replace(const std::u16string& before, const std::u16string& after,
                 const TextDifference& difference);
    void clearColours(std::size_t length);
    void colourNear(const std::u16string& text);
    void followView();

    AnswerBuffer buffer_;
    std::vector<Token> tokens_;     ///< of the text
    TextRange near_;                ///< where all tokens have their colours
    bool partly_ = false;           ///< elsewhere some have none
    TokenColours shown_;            ///< what has its colour
    TokenColours wanted_;           ///< working memory of `colourNear`
    std::vector<ColourRun> wrong_;  ///< the same
};

}  // namespace tavisk
