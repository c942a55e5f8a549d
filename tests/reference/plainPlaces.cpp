#include "reference/plainPlaces.h"

#include <algorithm>

#include "base/text.h"

namespace tavisk::reference {
namespace {

/// Steps through well-formed XML from one "<" to the next.
class Scanner {
public:
    Scanner(std::string_view xml, std::size_t start) : xml_(xml), at_(start) {}

    std::vector<std::size_t> starts() {
        std::vector<std::size_t> found;
        if (at("<?xml") && at_ + 5 < xml_.size() && isBlank(xml_[at_ + 5])) pass("?>");
        while ((at_ = std::min(xml_.find('<', at_), xml_.size())) < xml_.size()) {
            const std::size_t start = at_;
            if (at("</")) {
                pass(">");
                continue;
            }
            found.push_back(start);
            if (at("<!DOCTYPE")) {
                passDocumentType();
            } else if (at("<!--")) {
                passComment();
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

    void passComment() {
        at_ += 4;  // "<!-->" does not end it
        pass("-->");
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
                passComment();
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

}  // namespace

std::vector<std::size_t> markupStarts(std::string_view xml) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    return Scanner(xml, xml.starts_with(byteOrderMark) ? byteOrderMark.size() : 0).starts();
}

}  // namespace tavisk::reference
