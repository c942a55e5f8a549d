#include "editor/formattingCommands.h"

#include <algorithm>

#include "base/text.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"

namespace tavisk {

namespace {

void write(HelpSession& session, std::string_view name, std::string_view text) {
    SetAttributeValue(*session.file.articledoc, *session.currentnode, name, text);
}

void writeFlag(HelpSession& session, std::string_view name, bool set) {
    if (session.currentnode) write(session, name, set ? "1" : "0");
}

/// Error 6 when the attribute or the sum is no 16-bit number.
int sum16(const HelpSession& session, std::string_view name, int step) {
    return floor16(floor16(leadingNumber(GetAttributeValue(session.currentnode, name, "0"))) +
                   step);
}

}  // namespace

void changeFontSize(HelpSession& session, int index) {
    if (!session.currentnode) return;
    const std::size_t side = at(buttonSide(index));
    const int size = sum16(session, fontSizeNames[side], buttonStep(index));
    write(session, fontSizeNames[side], std::to_string(size));
    session.panel.fontSizeCaptions[side] = fontSizeCaption(size);
}

void moveGap(HelpSession& session, int index) {
    if (!session.currentnode) return;
    const std::size_t side = at(buttonSide(index));
    const int gap = std::max(sum16(session, gapNames[side], buttonStep(index)), 0);
    const std::string text = std::to_string(gap);
    write(session, gapNames[side], text);
    session.panel.gapCaptions[side] = gapCaption(gaps[side], text);
}

void changeColour(HelpSession& session, Side side, Dialogs& dialogs, OleTranslateColor translate) {
    if (!session.currentnode) return;
    const Colour colour = dialogs.chooseColour();
    session.panel.colours[at(side)] = colour;
    const std::string text = colorToHex(static_cast<std::int32_t>(colour), translate);
    write(session, colourNames[at(side)], text);
    session.panel.colourCaptions[at(side)] = colourCaption(text);
}

void clickStyle(HelpSession& session, int box, bool ticked) {
    NodePanel& panel = session.panel;
    panel.style[at(box)] = ticked;
    if (panel.loading) return;
    if (!session.currentnode) {
        panel.style[at(box)] = false;
        return;
    }
    // Added and subtracted as a number: a text that disagrees with the boxes carries over.
    const int value = styleBits[at(box)];
    write(session, "style", std::to_string(sum16(session, "style", ticked ? value : -value)));
}

void clickHidden(HelpSession& session, Side side, bool ticked) {
    session.panel.hidden[at(side)] = ticked;
    writeFlag(session, hiddenNames[at(side)], ticked);
}

void clickColumnBreak(HelpSession& session, bool ticked) {
    session.panel.columnBreak = ticked;
    writeFlag(session, "columnbreak", ticked);
}

void clickPageBreak(HelpSession& session, bool ticked) {
    session.panel.pageBreak = ticked;
    writeFlag(session, "pagebreak", ticked);
}

}  // namespace tavisk
