// Reads the tags of HTML that anybody may have written, as browsers read them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavisk {

/// Where an attribute stands in the text, in bytes; empty without a value.
struct HtmlAttribute {
    std::string name;  ///< in small letters
    std::size_t begin = 0;
    std::size_t end = 0;
    bool quoted = false;
};

/// The next tag behind `at`: its name, in small letters. `at` moves to its attributes, or to the
/// end.
std::string nextTag(std::string_view html, std::size_t& at);

/// One attribute after the other; none when the tag has no more, and then `at` is at its end.
std::optional<HtmlAttribute> nextAttribute(std::string_view html, std::size_t& at);

}  // namespace tavisk
