#include "editor/nodePanel.h"

#include <utility>

#include "base/text.h"
#include "document/xmlParse.h"

namespace tavisk {

void NodePanel::fill(dom::Document& document, dom::Node* node, bool isTop) {
    framesEnabled = nodeCommandsEnabled = !isLocked(node);
    if (!framesEnabled) return;
    textUsable = !isTop;
    fillText(document, *node);
    fillColours(*node);
    fillStyle(*node);
    fillSizes(*node);
    showBoxes(document, *node, *this);
}

void NodePanel::changeText(dom::Document& document, dom::Node* node, std::u16string changed) {
    text = std::move(changed);
    tokens.clear();
    scanTokens(text, tokens);
    if (!node) return;
    toUtf8(text, utf8_);
    SetAttributeValue(document, *node, "value", utf8_);
}

void NodePanel::fillText(dom::Document& document, dom::Node& node) {
    std::u16string value = toUtf16(GetAttributeValue(&node, "value", ""));
    if (value != text) changeText(document, &node, std::move(value));
}

void NodePanel::fillColours(const dom::Node& node) {
    for (const Side side : sides) {
        const std::string_view value = GetAttributeValue(&node, colourNames[at(side)], "#000000");
        colourCaptions[at(side)] = colourCaption(value);
        colours[at(side)] = colourOfText(value);
    }
}

void NodePanel::fillStyle(const dom::Node& node) {
    const std::int32_t bits = styleOf(node);
    for (std::size_t i = 0; i < styleBits.size(); ++i)
        style[i] = (bits & styleBits[i]) != 0;
}

void NodePanel::fillSizes(const dom::Node& node) {
    for (const Gap gap : gaps) {
        gapCaptions[at(gap)] = gapCaption(gap, GetAttributeValue(&node, gapNames[at(gap)], "0"));
    }
    for (const Side side : sides) {
        const std::string_view size = GetAttributeValue(&node, fontSizeNames[at(side)], "0");
        fontSizeCaptions[at(side)] = fontSizeCaption(leadingNumber(size));
    }
}

}  // namespace tavisk
