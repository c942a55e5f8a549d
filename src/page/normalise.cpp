#include "page/normalise.h"

#include "base/error.h"
#include "base/text.h"
#include "document/xmlParse.h"

namespace tavisk {

namespace {

void showBox(dom::Document& document, dom::Node& node, std::string_view attribute, bool& ticked) {
    const bool now = GetAttributeValue(&node, attribute, "0") != "0";
    if (now == ticked) return;
    ticked = now;
    SetAttributeValue(document, node, attribute, now ? "1" : "0");
}

void showText(dom::Document& document, dom::Node& node, std::string& shown) {
    const std::string_view text = GetAttributeValue(&node, "value", "");
    if (text == shown) return;
    checkTextLength(text);
    shown = text;
    SetAttributeValue(document, node, "value", shown);
}

}  // namespace

bool isLocked(const dom::Node* node) {
    if (!node) raise(ErrorNumber::objectNotSet);
    return !node->parent() || node->parent()->baseName() == "cabinetdata";
}

std::int32_t styleOf(const dom::Node& node) {
    return round32(strictNumber(GetAttributeValue(&node, "style", "0")));
}

void showBoxes(dom::Document& document, dom::Node& node, ShownBoxes& boxes) {
    for (std::size_t i = 0; i < hiddenNames.size(); ++i)
        showBox(document, node, hiddenNames[i], boxes.hidden[i]);
    showBox(document, node, "columnbreak", boxes.columnBreak);
    showBox(document, node, "pagebreak", boxes.pageBreak);
}

void normalise(dom::Document& document, dom::Node* node, ShownNode& shown) {
    if (isLocked(node)) return;
    showText(document, *node, shown.text);
    styleOf(*node);
    showBoxes(document, *node, shown.boxes);
}

}  // namespace tavisk
