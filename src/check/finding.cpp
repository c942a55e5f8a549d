#include "check/finding.h"

#include <algorithm>

namespace tavisk {

std::string_view nameOf(Severity severity) {
    return severity == Severity::error ? "error" : "warning";
}

void FindingList::add(const dom::Node* node, Finding finding) {
    findings_.push_back(std::move(finding));
    nodes_.push_back(node);
}

bool FindingList::hasErrors() const {
    return std::ranges::find(findings_, Severity::error, &Finding::severity) != findings_.end();
}

std::string inQuotes(std::string_view utf8) {
    constexpr std::size_t longest = 80;
    std::size_t end = utf8.size();
    if (end > longest) {
        end = longest;
        // Not in the middle of a character.
        while (end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80)
            --end;
    }
    std::string text = "\"";
    text += utf8.substr(0, end);
    if (end < utf8.size()) text += "...";
    text += '"';
    return text;
}

}  // namespace tavisk
