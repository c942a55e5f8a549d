// What the property panel shows for the selected node, and what showing it writes back.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "editor/formatting.h"
#include "formulas/tokens.h"
#include "xml/dom.h"

namespace tavisk {

/// Bits of `style`; also the indices of the style boxes.
inline constexpr std::array<int, 6> styleBits{1, 2, 4, 8, 16, 32};

/// The state of the panel's controls. A new panel is the form before its first selection.
struct NodePanel {
    bool loading = false;

    std::string currentField;   ///< `lblCurrentField`
    bool framesEnabled = true;  ///< `fraFormatting`, `fraTitle`, `fraValue`, `fraEditor`, `fraGaps`
    bool nodeCommandsEnabled =
        true;                 ///< `cmdNew`, `cmdDel`, `cmdRename`, `cmdMoveUp`, `cmdMoveDown`
    bool textUsable = false;  ///< `txtValue` within its frame

    std::u16string text;        ///< `txtValue`
    std::vector<Token> tokens;  ///< coloured runs of `text`
    std::string utf8;           ///< working memory of a change of `text`

    std::array<std::string, 2> colourCaptions{"Text Color: #000000", "Text Color: #000000"};
    std::array<Colour, 2> colours{0, 0};
    std::array<bool, 6> style{};  ///< in the order of `styleBits`
    std::array<std::string, 2> gapCaptions{"Gap Above: 0", "Gap Below: 0"};
    std::array<std::string, 2> fontSizeCaptions{"Font Size: +0", "Font Size: +0"};
    std::array<bool, 2> hidden{};
    bool columnBreak = false;
    bool pageBreak = false;
};

class HelpSession;

/// Makes the element that a click on `row` finds the session's current node and fills the panel
/// from it. Filling writes back what the controls' own handlers write: an answer text or a check
/// box that changes state. Errors end it where they occur and leave `loading` set.
void selectNode(HelpSession& session, dom::Node& row);

/// The handlers behind the panel's controls. Each does nothing while no node is selected, except
/// that `clickStyle` clears the box again. Error 6 leaves the attribute as it was.
void changeFontSize(HelpSession& session, int index);
void moveGap(HelpSession& session, int index);
void changeColour(HelpSession& session, Side side, Dialogs& dialogs,
                  OleTranslateColor translate = plainColour);
/// `box` counts from 0 in the order of `styleBits`; its bit is added to or subtracted from the
/// number.
void clickStyle(HelpSession& session, int box, bool ticked);
void clickHidden(HelpSession& session, Side side, bool ticked);
void clickColumnBreak(HelpSession& session, bool ticked);
void clickPageBreak(HelpSession& session, bool ticked);

}  // namespace tavisk
