#include "page/otherPlaces.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "base/text.h"
#include "page/htmlTags.h"

namespace tavisk {
namespace {

constexpr std::array<std::string_view, 10> loading{"background", "data",      "dynsrc", "href",
                                                   "lowsrc",     "manifest",  "poster", "src",
                                                   "srcset",     "xlink:href"};
/// Around the addresses in a style; those of a list have a comma between them besides.
constexpr std::string_view ends = " \t\r\n\f;()'\"";
constexpr std::string_view listEnds = " \t\r\n\f,";

bool isElsewhere(std::string_view address) {
    const std::string start = lowerAscii(address.substr(0, 8));
    return std::ranges::any_of(std::array{"http:", "https:", "ftp:", "//"},
                               [&](const char* scheme) { return start.starts_with(scheme); });
}

using Addresses = std::set<std::string, std::less<>>;

void add(Addresses& found, std::string_view text, std::string_view between) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(between), text.size());
        if (isElsewhere(text.substr(0, end))) found.emplace(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

}  // namespace

std::size_t countOtherPlaces(std::string_view html) {
    Addresses found;
    for (std::size_t at = 0; at < html.size();) {
        const std::string tag = nextTag(html, at);
        const bool isLink = tag == "a" || tag == "area";
        while (const auto attribute = nextAttribute(html, at)) {
            const bool loads =
                attribute->name == "style" || (std::ranges::count(loading, attribute->name) != 0 &&
                                               !(isLink && attribute->name == "href"));
            if (loads)
                add(found, html.substr(attribute->begin, attribute->end - attribute->begin),
                    attribute->name == "srcset" ? listEnds : ends);
        }
        if (tag != "style") continue;
        const std::size_t end = std::min(html.find("</", at), html.size());
        add(found, html.substr(at, end - at), ends);
        at = end;
    }
    return found.size();
}

}  // namespace tavisk
