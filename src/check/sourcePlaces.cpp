#include "check/sourcePlaces.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "xml/startTag.h"

namespace tavisk {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Where the text of the attribute begins in the tag at `start`; npos when the tag has none.
std::size_t findAttribute(std::string_view xml, std::size_t start, std::string_view baseName) {
    for (WrittenAttributes attributes(xml.substr(start)); attributes.next();) {
        const std::string_view name = attributes.name();
        if (name.substr(name.find(':') + 1) == baseName) return start + attributes.textBegin();
    }
    return std::string_view::npos;
}

/// How many code units the reference makes whose body ("amp", "#10", "#x1F600") this is.
std::size_t unitsOfReference(std::string_view body) {
    if (!body.starts_with('#')) return 1;
    const bool hexadecimal = body.starts_with("#x");
    const std::string_view digits = body.substr(hexadecimal ? 2 : 1);
    unsigned long code = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), code, hexadecimal ? 16 : 10);
    return code > 0xFFFF ? 2 : 1;
}

/// `units` code units of the attribute's text further on. As written, it has references, and line
/// ends of two characters that are one in the text.
std::size_t advance(std::string_view xml, std::size_t at, std::size_t units) {
    std::size_t passed = 0;
    while (at < xml.size()) {
        std::size_t end = at;
        std::size_t count = 1;
        if (xml[at] == '&') {
            end = std::min(xml.find(';', at), xml.size() - 1) + 1;
            count = unitsOfReference(xml.substr(at + 1, end - at - 2));
        } else if (xml.substr(at).starts_with("\r\n")) {
            end += 2;
        } else {
            count = nextCharacter(xml, end) > 0xFFFF ? 2 : 1;
        }
        if (passed + count > units) break;
        passed += count;
        at = end;
    }
    return at;
}

}  // namespace

SourcePlaces::SourcePlaces(std::string_view source)
    : source_(source), first_(source.starts_with(byteOrderMark) ? byteOrderMark.size() : 0) {
    rewind();
}

Place SourcePlaces::of(const dom::Node& node, std::string_view attribute,
                       std::optional<std::size_t> position) {
    const std::size_t start = startOf(node);
    if (attribute.empty() || !node.isElement()) return placeAt(start);
    const std::size_t text = findAttribute(source_, start, attribute);
    if (text == std::string_view::npos) return placeAt(start);
    return placeAt(position ? advance(source_, text, *position) : text);
}

std::size_t SourcePlaces::startOf(const dom::Node& node) const {
    // A text is where the element is that it stands in.
    const bool isText = node.type() == dom::NodeType::text;
    return std::max(first_, isText ? node.parent()->sourceOffset() : node.sourceOffset());
}

Place SourcePlaces::placeAt(std::size_t offset) {
    if (offset < reached_) rewind();
    const std::string_view passed = source_.substr(reached_, offset - reached_);
    const std::size_t lineEnd = passed.rfind('\n');
    if (lineEnd == std::string_view::npos) {
        units_ += utf16Length(passed);
    } else {
        line_ += static_cast<std::size_t>(std::ranges::count(passed, '\n'));
        units_ = utf16Length(passed.substr(lineEnd + 1));
    }
    reached_ = offset;
    return {line_, units_ + 1};
}

void SourcePlaces::rewind() {
    reached_ = first_;
    line_ = 1;
    units_ = 0;
}

}  // namespace tavisk
