// The answer text box, with its tokens in colour.
#pragma once

#include <string>
#include <vector>
#include <wx/textctrl.h>

#include "editor/answerText.h"
#include "formulas/tokens.h"

namespace tavisk {

/// `txtValue`. Positions are UTF-16 code units of the text, whatever the control counts.
class AnswerBox final : public wxTextCtrl {
public:
    explicit AnswerBox(wxWindow* parent);

    std::u16string text() const;
    TextSelection selection() const;

    /// Shows a text with its tokens; only what differs from what is shown is touched, and no handler
    /// runs. After a change the caret stands behind what is new.
    void show(const std::u16string& text, const std::vector<Token>& tokens);

    /// After the user changed the text: colours what has to change. `text` is the control's own.
    void colour(const std::u16string& text, const std::vector<Token>& tokens);

private:
    std::u16string shownText_;
    std::vector<Token> shownTokens_;
};

}  // namespace tavisk
