// Start tags as they are written.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavisk {

/// The parser compares every attribute of an element with every other one, so their number decides
/// whether a document takes seconds or hours.
inline constexpr std::size_t maxAttributes = 65535;

/// Byte offset of the first start tag with more than `maxAttributes` attributes, or npos. Looks
/// closely only at stretches without "<" that are long enough for such a tag.
std::size_t findOvergrownTag(std::string_view xml) noexcept;

/// Steps through the attributes of a well-formed start tag, namespace declarations among them.
class WrittenAttributes {
public:
    /// `tag` begins with its "<" and may go on behind its end.
    explicit WrittenAttributes(std::string_view tag) noexcept;

    /// False behind the last attribute.
    bool next() noexcept;

    std::string_view name() const noexcept { return name_; }
    /// Where the text stands in the tag, behind its quotation mark.
    std::size_t textBegin() const noexcept { return textBegin_; }

private:
    std::string_view tag_;
    std::string_view name_;
    std::size_t textBegin_ = 0;
    std::size_t at_;  ///< behind the name of the element, or behind an attribute
};

}  // namespace tavisk
