#include "page/pictureTags.h"

#include <algorithm>

#include "base/addressText.h"
#include "base/text.h"
#include "page/htmlTags.h"

namespace tavisk {
namespace {

constexpr std::size_t none = std::string_view::npos;

/// "http" for "http://..."; empty where there is none. One letter is a drive.
std::string schemeOf(std::string_view address) {
    const std::size_t colon = address.find(':');
    if (colon == none || colon < 2 || !isLetter(address.front())) return {};
    const std::string_view scheme = address.substr(0, colon);
    const bool all = std::ranges::all_of(scheme, [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    });
    return all ? lowerAscii(scheme) : std::string();
}

}  // namespace

void replacePictureAddresses(std::string& html, const ReplaceAddress& replace) {
    std::string out;
    std::size_t copied = 0;
    for (std::size_t at = 0; at < html.size();) {
        const bool isPicture = nextTag(html, at) == "img";
        std::optional<HtmlAttribute> source;
        while (const auto attribute = nextAttribute(html, at)) {
            if (attribute->name == "src" && attribute->begin != 0 && !source) source = attribute;
        }
        if (!isPicture || !source) continue;
        const std::string address =
            replaceAll(html.substr(source->begin, source->end - source->begin), "&amp;", "&");
        const std::optional<std::string> other = replace(address);
        if (!other) continue;
        out.append(html, copied, source->begin - copied);
        out += source->quoted ? *other : '"' + *other + '"';
        copied = source->end;
    }
    if (copied == 0) return;
    out.append(html, copied);
    html = std::move(out);
}

std::optional<std::string> localFile(std::string_view address) {
    while (!address.empty() && isBlank(address.front()))
        address.remove_prefix(1);
    while (!address.empty() && isBlank(address.back()))
        address.remove_suffix(1);
    const std::string scheme = schemeOf(address);
    if (scheme == "file") {
        address.remove_prefix(scheme.size() + 1);
        if (address.starts_with("//localhost/")) address.remove_prefix(11);
        if (address.starts_with("///")) address.remove_prefix(2);
        // "/C:/..." begins with a drive.
        if (address.size() > 2 && isLetter(address[1]) && address[2] == ':') {
            address.remove_prefix(1);
        }
    } else if (!scheme.empty() || address.starts_with("//")) {
        return std::nullopt;
    }
    return unescaped(address.substr(0, address.find_first_of("?#")));
}

}  // namespace tavisk
