#include "editor/nodePanel.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "editor/answerText.h"
#include "editor/helpSession.h"

namespace tavisk {

namespace {

/// Attributes in the order of the controls' indices.
constexpr std::array<std::string_view, 2> colourNames{"titlecolor", "answercolor"};
constexpr std::array<std::string_view, 2> fontSizeNames{"titlefontsize", "answerfontsize"};
constexpr std::array<std::string_view, 2> gapNames{"spacebefore", "spaceafter"};
constexpr std::array<std::string_view, 2> hiddenNames{"titlehidden", "answerhidden"};

constexpr std::array sides{Side::title, Side::answer};
constexpr std::array gaps{Gap::above, Gap::below};

template <class Index>
constexpr std::size_t at(Index index) {
    return static_cast<std::size_t>(index);
}

/// The current node's attribute, for filling and for computing.
std::string_view read(const HelpSession& session, std::string_view name, std::string_view missing) {
    return GetAttributeValue(session.currentnode, name, missing);
}

void write(HelpSession& session, std::string_view name, std::string_view text) {
    SetAttributeValue(*session.articledoc, *session.currentnode, name, text);
}

void writeFlag(HelpSession& session, std::string_view name, bool set) {
    if (session.currentnode) write(session, name, set ? "1" : "0");
}

bool isTicked(const HelpSession& session, std::string_view name) {
    return read(session, name, "0") != "0";
}

/// Error 6 when the attribute or the sum is no 16-bit number.
int sum16(const HelpSession& session, std::string_view name, int step) {
    return floor16(floor16(leadingNumber(read(session, name, "0"))) + step);
}

bool isLocked(const HelpSession& session) {
    if (!session.currentnode) raise(ErrorNumber::objectNotSet);
    const dom::Node* const parent = session.currentnode->parent();
    return !parent || parent->baseName() == "cabinetdata";
}

void fillText(HelpSession& session) {
    std::u16string text = toUtf16(read(session, "value", ""));
    if (text != session.panel.text) changeAnswerText(session, std::move(text));
}

void fillColours(HelpSession& session) {
    for (const Side side : sides) {
        const std::string_view text = read(session, colourNames[at(side)], "#000000");
        session.panel.colourCaptions[at(side)] = colourCaption(text);
        session.panel.colours[at(side)] = colourOfText(text);
    }
}

void fillStyle(HelpSession& session) {
    const std::int32_t style = round32(strictNumber(read(session, "style", "0")));
    for (std::size_t i = 0; i < styleBits.size(); ++i)
        session.panel.style[i] = (style & styleBits[i]) != 0;
}

void fillSizes(HelpSession& session) {
    for (const Gap gap : gaps) {
        session.panel.gapCaptions[at(gap)] = gapCaption(gap, read(session, gapNames[at(gap)], "0"));
    }
    for (const Side side : sides) {
        const std::string_view text = read(session, fontSizeNames[at(side)], "0");
        session.panel.fontSizeCaptions[at(side)] = fontSizeCaption(leadingNumber(text));
    }
}

/// A box that changes its state runs its handler, which writes the state to the node.
void fillBoxes(HelpSession& session) {
    NodePanel& panel = session.panel;
    for (const Side side : sides) {
        const bool ticked = isTicked(session, hiddenNames[at(side)]);
        if (ticked != panel.hidden[at(side)]) clickHidden(session, side, ticked);
    }
    const bool columnBreak = isTicked(session, "columnbreak");
    if (columnBreak != panel.columnBreak) clickColumnBreak(session, columnBreak);
    const bool pageBreak = isTicked(session, "pagebreak");
    if (pageBreak != panel.pageBreak) clickPageBreak(session, pageBreak);
}

}  // namespace

void selectNode(HelpSession& session, dom::Node& row) {
    NodePanel& panel = session.panel;
    session.selectedRow = &row;
    panel.loading = true;
    panel.currentField = KeyOfTreeNode(*session.baseXMLNode, row, keySeparator);
    session.currentnode = ElementOfTreeNode(*session.baseXMLNode, row);

    const bool usable = !isLocked(session);
    panel.framesEnabled = panel.nodeCommandsEnabled = usable;
    if (usable) {
        panel.textUsable = &row != session.baseXMLNode;
        fillText(session);
        fillColours(session);
        fillStyle(session);
        fillSizes(session);
        fillBoxes(session);
    }
    panel.loading = false;
}

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
