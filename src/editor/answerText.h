// The answer text: what a change of it does, and the insertions of tokens.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/dialogs.h"

namespace tavisk {

class HelpSession;

/// Selection of a text box, in UTF-16 code units.
struct TextSelection {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// The text box's change handler: finds the coloured runs, then writes the text to the current
/// node, if there is one. Error 6 over 32,767 code units and error 5 for a lone surrogate, with the
/// node unchanged.
void changeAnswerText(HelpSession& session, std::u16string text);

/// The insertions. Each changes the text once, through `changeAnswerText`. `entry` is the current
/// text of the picture list ("~" and a name), `formula` that of the formula list.
void insertFormulaAtCursor(HelpSession& session, std::string_view formula, TextSelection selection);
void insertFormulaAtEnd(HelpSession& session, std::string_view formula);
void insertImageAtCursor(HelpSession& session, std::string_view entry, TextSelection selection);
void insertImageAtEnd(HelpSession& session, std::string_view entry);
/// Error 5 for an empty entry.
void insertOverlay(HelpSession& session, std::string_view entry);
void insertExternalImage(HelpSession& session, Dialogs& dialogs, TextSelection selection);

}  // namespace tavisk
