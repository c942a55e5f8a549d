#include "check/sourcePlaces.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view blanks = " \t\r\n";

/// Steps through well-formed XML from one "<" to the next.
class Scanner {
public:
    Scanner(std::string_view xml, std::size_t start) : xml_(xml), at_(start) {}

    /// Start tags, comments, CDATA sections and instructions: where each begins.
    std::vector<std::size_t> starts() {
        std::vector<std::size_t> found;
        if (at("<?xml") && at_ + 5 < xml_.size() && isBlank(xml_[at_ + 5])) pass("?>");
        while ((at_ = std::min(xml_.find('<', at_), xml_.size())) < xml_.size()) {
            const std::size_t start = at_;
            if (at("</")) {
                pass(">");
                continue;
            }
            if (at("<!DOCTYPE")) {
                passDocumentType();
                continue;
            }
            found.push_back(start);
            if (at("<!--")) {
                pass("-->");
            } else if (at("<![CDATA[")) {
                pass("]]>");
            } else if (at("<?")) {
                pass("?>");
            } else {
                passTag();
            }
        }
        return found;
    }

private:
    bool at(std::string_view what) const { return xml_.substr(at_).starts_with(what); }

    void pass(std::string_view end) {
        const std::size_t found = xml_.find(end, at_);
        at_ = found == std::string_view::npos ? xml_.size() : found + end.size();
    }

    void passQuoted() {
        const char quote = xml_[at_++];
        at_ = std::min(xml_.find(quote, at_), xml_.size() - 1) + 1;
    }

    void passTag() {
        while ((at_ = std::min(xml_.find_first_of("\"'>", at_), xml_.size())) < xml_.size()) {
            if (xml_[at_] == '>') break;
            passQuoted();
        }
    }

    void passDocumentType() {
        bool inside = false;
        ++at_;
        while ((at_ = std::min(xml_.find_first_of("\"'[]<>", at_), xml_.size())) < xml_.size()) {
            if (at("<!--")) {
                pass("-->");
            } else if (at("<?")) {
                pass("?>");
            } else if (xml_[at_] == '"' || xml_[at_] == '\'') {
                passQuoted();
            } else {
                const char c = xml_[at_++];
                if (c == '[') inside = true;
                if (c == ']') inside = false;
                if (c == '>' && !inside) return;
            }
        }
    }

    std::string_view xml_;
    std::size_t at_;
};

bool isNumbered(const dom::Node& node) {
    return node.type() != dom::NodeType::text && node.type() != dom::NodeType::documentType;
}

/// Where the text of the attribute begins in the tag at `start`; npos when the tag has none.
std::size_t findAttribute(std::string_view xml, std::size_t start, std::string_view baseName) {
    constexpr std::size_t none = std::string_view::npos;
    std::size_t at = xml.find_first_of(" \t\r\n/>", start);
    for (;;) {
        at = std::min(xml.find_first_not_of(blanks, at), xml.size());
        if (at == xml.size() || xml[at] == '>' || xml[at] == '/') return none;
        const std::size_t nameEnd = xml.find_first_of("= \t\r\n", at);
        const std::size_t quote = xml.find_first_of("\"'", nameEnd);
        if (nameEnd == none || quote == none) return none;
        const std::string_view name = xml.substr(at, nameEnd - at);
        if (name.substr(name.find(':') + 1) == baseName) return quote + 1;
        at = std::min(xml.find(xml[quote], quote + 1), xml.size() - 1) + 1;
    }
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

SourcePlaces::SourcePlaces(const dom::Document& document, std::string_view source)
    : source_(source) {
    if (source.starts_with(byteOrderMark)) first_ = byteOrderMark.size();
    rewind();
    starts_ = Scanner(source, first_).starts();
    const dom::Node& root = document.root();
    for (const dom::Node* node = nextInDocument(root, root); node != nullptr;
         node = nextInDocument(*node, root)) {
        if (isNumbered(*node)) numbers_.emplace(node, numbers_.size());
    }
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
    const auto found = numbers_.find(isNumbered(node) ? &node : node.parent());
    const bool known = found != numbers_.end() && found->second < starts_.size();
    return known ? starts_[found->second] : first_;
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
