// What the property panel shows of a node, and what showing it writes back.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "editor/formatting.h"
#include "formulas/tokens.h"
#include "page/normalise.h"
#include "xml/dom.h"

namespace tavisk {

/// Bits of `style`; also the indices of the style boxes.
inline constexpr std::array<int, 6> styleBits{1, 2, 4, 8, 16, 32};

/// The state of the panel's controls. A new panel is the form before its first selection.
struct NodePanel : ShownBoxes {
    bool loading = false;

    std::string currentField;   ///< `lblCurrentField`
    bool framesEnabled = true;  ///< `fraFormatting`, `fraTitle`, `fraValue`, `fraEditor`, `fraGaps`
    bool nodeCommandsEnabled =
        true;                 ///< `cmdNew`, `cmdDel`, `cmdRename`, `cmdMoveUp`, `cmdMoveDown`
    bool textUsable = false;  ///< `txtValue` within its frame

    std::u16string text;        ///< `txtValue`
    std::vector<Token> tokens;  ///< coloured runs of `text`

    std::array<std::string, 2> colourCaptions{"Text Color: #000000", "Text Color: #000000"};
    std::array<Colour, 2> colours{0, 0};
    std::array<bool, 6> style{};  ///< in the order of `styleBits`
    std::array<std::string, 2> gapCaptions{"Gap Above: 0", "Gap Below: 0"};
    std::array<std::string, 2> fontSizeCaptions{"Font Size: +0", "Font Size: +0"};

    /// Shows the node, whose text is for typing unless it is the top one. Filling writes back what
    /// the controls' own handlers write: an answer text or a check box that changes state. Errors
    /// end it where they occur; 91 for a null node.
    void fill(dom::Document& document, dom::Node* node, bool isTop);

    /// The text box's change handler: finds the coloured runs, then writes the text to the node, if
    /// there is one. Error 6 over 32,767 code units and error 5 for a lone surrogate, with the node
    /// unchanged.
    void changeText(dom::Document& document, dom::Node* node, std::u16string changed);

private:
    void fillText(dom::Document& document, dom::Node& node);
    void fillColours(const dom::Node& node);
    void fillStyle(const dom::Node& node);
    void fillSizes(const dom::Node& node);

    std::string utf8_;  ///< working memory of a change of `text`
};

}  // namespace tavisk
