#include "page/pictureTags.h"

#include <algorithm>

#include "base/addressText.h"
#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view blanks = " \t\r\n\f";
constexpr std::size_t none = std::string_view::npos;

struct Range {
    std::size_t begin;
    std::size_t end;
    bool quoted;
};

/// Where the next `img` tag's attributes begin; none when there is no more.
std::size_t findTag(std::string_view html, std::size_t at) {
    constexpr std::string_view tag = "<img";
    while ((at = html.find('<', at)) != none) {
        const std::size_t end = at + tag.size();
        if (end < html.size() && lowerAscii(html.substr(at, tag.size())) == tag &&
            (blanks.find(html[end]) != none || html[end] == '/')) {
            return end;
        }
        ++at;
    }
    return none;
}

/// One attribute after the other, as browsers read them. `at` moves behind the tag.
std::optional<Range> findSource(std::string_view html, std::size_t& at) {
    std::optional<Range> source;
    for (;;) {
        at = html.find_first_not_of(" \t\r\n\f/", at);
        if (at == none || html[at] == '>') break;
        const std::size_t nameEnd =
            std::min(html.find_first_of(" \t\r\n\f/>=", at + 1), html.size());
        const bool isSource = lowerAscii(html.substr(at, nameEnd - at)) == "src";
        at = html.find_first_not_of(blanks, nameEnd);
        if (at == none) break;
        if (html[at] != '=') continue;
        at = html.find_first_not_of(blanks, at + 1);
        if (at == none || html[at] == '>') break;
        const bool quoted = html[at] == '"' || html[at] == '\'';
        const std::size_t begin = quoted ? at + 1 : at;
        const std::size_t end =
            quoted ? html.find(html[at], begin) : html.find_first_of(" \t\r\n\f>", begin);
        at = std::min(end, html.size());
        if (isSource && !source) source = Range{begin, at, quoted};
        if (quoted && at < html.size()) ++at;
    }
    at = std::min(at, html.size());
    return source;
}

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
    for (std::size_t at = 0; (at = findTag(html, at)) != none;) {
        const std::optional<Range> source = findSource(html, at);
        if (!source) continue;
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
