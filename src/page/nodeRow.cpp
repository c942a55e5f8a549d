#include "page/nodeRow.h"

#include <array>
#include <charconv>
#include <cstdlib>

#include "base/text.h"
#include "document/helpNames.h"
#include "document/xmlParse.h"

namespace tavisk {
namespace {

constexpr std::array<AttributeDefault, 8> rowAttributes{{
    {"style", "0"},
    {"titlecolor", "#000000"},
    {"answercolor", "#000000"},
    {"titlefontsize", "0"},
    {"answerfontsize", "0"},
    {"value", ""},
    {"titlehidden", "0"},
    {"answerhidden", "0"},
}};

constexpr std::string_view rowOpening = "<tr>\r\n";
constexpr std::string_view rowClosing = "</tr>\r\n";
constexpr std::string_view cell = "\t<td>\r\n\t\t";
constexpr std::string_view wideCell = "\t<td colspan=2>\r\n\t\t";
constexpr std::string_view cellClosing = "\r\n\t</td>\r\n";

/// Title or answer: the tags around its text.
struct Look {
    bool bold;
    bool italic;
    bool underlined;
    std::string_view colour;
    int size;
};

/// `bits` are the three style bits of this text, bold lowest.
Look lookOf(int bits, std::string_view colour, std::string_view size) {
    return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, colour,
            floor16(leadingNumber(size))};
}

void appendNumber(std::string& html, int number) {
    std::array<char, 8> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    html.append(digits.data(), end);
}

void appendOpening(std::string& html, const Look& look) {
    if (look.bold) html += "<b>";
    if (look.italic) html += "<i>";
    if (look.underlined) html += "<u>";
    html.append("<font color=\"").append(look.colour).append("\" size=\"");
    html += look.size < 0 ? '-' : '+';
    appendNumber(html, std::abs(look.size));
    html += "\">";
}

void appendClosing(std::string& html, const Look& look) {
    html += "</font>";
    if (look.underlined) html += "</u>";
    if (look.italic) html += "</i>";
    if (look.bold) html += "</b>";
}

/// `appendText` adds what stands in the cell.
template <class AppendText>
void appendCell(std::string& html, std::string_view opening, const Look& look,
                AppendText appendText) {
    html += opening;
    appendOpening(html, look);
    appendText();
    appendClosing(html, look);
    html += cellClosing;
}

}  // namespace

std::span<const ShownAttribute> shownAttributes(const dom::Node& node,
                                                std::vector<ShownAttribute>& memory) {
    memory.clear();
    for (const dom::Attribute& attribute : node.attributes()) {
        memory.emplace_back(attribute.baseName(), attribute.text());
    }
    return memory;
}

void appendNodeRow(std::string& html, std::string_view baseName,
                   std::span<const ShownAttribute> attributes) {
    const auto [style, titleColour, answerColour, titleSize, answerSize, value, titleHiddenText,
                answerHiddenText] = GetAttributeValues(attributes, rowAttributes);
    const int bits = floor16(leadingNumber(style));
    const Look title = lookOf(bits, titleColour, titleSize);
    const Look answer = lookOf(bits >> 3, answerColour, answerSize);
    const bool titleHidden = titleHiddenText == "1";
    const bool answerHidden = answerHiddenText == "1";
    if (titleHidden && answerHidden) return;

    html += rowOpening;
    const auto appendTitle = [&] { appendShownName(html, baseName); };
    const auto appendAnswer = [&html, text = value] { html += text; };
    if (titleHidden) {
        appendCell(html, wideCell, answer, appendAnswer);
    } else {
        const bool alone = answerHidden || value.empty();
        appendCell(html, alone ? wideCell : cell, title, appendTitle);
        if (!alone) appendCell(html, cell, answer, appendAnswer);
    }
    html += rowClosing;
}

std::string renderNodeRow(const dom::Node& node) {
    std::string html;
    std::vector<ShownAttribute> memory;
    appendNodeRow(html, node.baseName(), shownAttributes(node, memory));
    return html;
}

std::string capitalizeWords(std::string_view name) {
    std::string words;
    bool first = true;
    for (const char c : name) {
        if (c == '_') {
            words += ' ';
        } else {
            words += first && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
        first = c == '_';
    }
    return words;
}

}  // namespace tavisk
