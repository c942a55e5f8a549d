#include "page/htmlTags.h"

#include <algorithm>

#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view blanks = " \t\r\n\f";
constexpr std::string_view between = " \t\r\n\f/";
constexpr std::string_view nameEnds = " \t\r\n\f/>";
constexpr std::size_t none = std::string_view::npos;

}  // namespace

std::string nextTag(std::string_view html, std::size_t& at) {
    while ((at = html.find('<', at)) != none) {
        const std::size_t begin = ++at;
        if (begin < html.size() && isLetter(html[begin])) {
            at = std::min(html.find_first_of(nameEnds, begin), html.size());
            return lowerAscii(html.substr(begin, at - begin));
        }
    }
    at = html.size();
    return {};
}

std::optional<HtmlAttribute> nextAttribute(std::string_view html, std::size_t& at) {
    at = html.find_first_not_of(between, at);
    if (at == none || html[at] == '>') {
        at = std::min(at, html.size());
        return std::nullopt;
    }
    const std::size_t nameEnd = std::min(html.find_first_of(" \t\r\n\f/>=", at + 1), html.size());
    HtmlAttribute attribute{.name = lowerAscii(html.substr(at, nameEnd - at))};
    at = std::min(html.find_first_not_of(blanks, nameEnd), html.size());
    if (at == html.size() || html[at] != '=') return attribute;
    at = std::min(html.find_first_not_of(blanks, at + 1), html.size());
    if (at == html.size() || html[at] == '>') return attribute;
    attribute.quoted = html[at] == '"' || html[at] == '\'';
    attribute.begin = attribute.quoted ? at + 1 : at;
    attribute.end = std::min(attribute.quoted ? html.find(html[at], attribute.begin)
                                              : html.find_first_of(" \t\r\n\f>", attribute.begin),
                             html.size());
    at = attribute.end;
    if (attribute.quoted && at < html.size()) ++at;
    return attribute;
}

}  // namespace tavisk
