#include "document/helpDocument.h"

#include <utility>

#include "base/text.h"
#include "xml/xmlReader.h"

namespace tavisk {
namespace {

Refusal critical(const char* reason, const char* title) {
    return {reason, std::nullopt, title, BoxStyle::okCritical};
}

}  // namespace

std::variant<HelpDocument, Refusal> openHelpDocument(dom::Source source) {
    ParseResult parsed = readXml(std::move(source));
    if (parsed.document == nullptr) return std::move(parsed.refusal);

    const std::vector<dom::Node*> cabinets = parsed.document->elementsByTagName("cabinet");
    if (cabinets.empty()) return critical("No cabinet data found...", "Error");
    // Three and more pass here and are refused last: which message comes first is part of the rule.
    if (cabinets.size() == 2) return critical("Multiple sets of cabinet data found...", "Error");

    const dom::Node* last = parsed.document->lastChild();
    if (last == nullptr || upperAscii(last->baseName()) != "CABINETINFO") {
        return critical("Error in XML data:\r\n\r\ncabinetinfo basenode does not exist",
                        "Fatal error");
    }
    if (cabinets.size() != 1) {
        return critical(
            "Error in XML data:\r\n\r\nThere must be one, and only one, cabinet node per cabinet.",
            "Fatal error");
    }
    return HelpDocument{std::move(parsed.document), cabinets.front()};
}

}  // namespace tavisk
