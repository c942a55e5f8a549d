#include "xml/startTag.h"

#include <algorithm>

namespace tavisk {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::size_t shortestAttribute = std::string_view(" a=''").size();

bool followsEqualsSign(std::string_view tag, std::size_t quote) noexcept {
    const std::size_t before = tag.substr(0, quote).find_last_not_of(blanks);
    return before != std::string_view::npos && tag[before] == '=';
}

/// `tag` begins behind its "<" and may go on behind its end. In a comment it may be any text.
bool isOvergrown(std::string_view tag) noexcept {
    std::size_t count = 0;
    std::size_t at = tag.find_first_of("\"'>");
    while (at != std::string_view::npos && tag[at] != '>') {
        if (!followsEqualsSign(tag, at)) return false;
        if (++count > maxAttributes) return true;
        at = tag.find(tag[at], at + 1);
        if (at != std::string_view::npos) at = tag.find_first_of("\"'>", at + 1);
    }
    return false;
}

}  // namespace

std::size_t findOvergrownTag(std::string_view xml) noexcept {
    std::size_t at = xml.find('<');
    while (at != std::string_view::npos) {
        const std::size_t next = xml.find('<', at + 1);
        const std::string_view stretch = xml.substr(at + 1, next - at - 1);
        if (stretch.size() > maxAttributes * shortestAttribute && isOvergrown(stretch)) return at;
        at = next;
    }
    return std::string_view::npos;
}

WrittenAttributes::WrittenAttributes(std::string_view tag) noexcept
    : tag_(tag), at_(tag.find_first_of(" \t\r\n/>")) {}

bool WrittenAttributes::next() noexcept {
    const std::size_t begin = std::min(tag_.find_first_not_of(blanks, at_), tag_.size());
    if (begin == tag_.size() || tag_[begin] == '>' || tag_[begin] == '/') return false;
    const std::size_t nameEnd = tag_.find_first_of("= \t\r\n", begin);
    const std::size_t quote = tag_.find_first_of("\"'", nameEnd);
    if (quote == std::string_view::npos) return false;
    name_ = tag_.substr(begin, nameEnd - begin);
    textBegin_ = quote + 1;
    at_ = std::min(tag_.find(tag_[quote], textBegin_), tag_.size() - 1) + 1;
    return true;
}

}  // namespace tavisk
