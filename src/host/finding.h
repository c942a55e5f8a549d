// What a check of a document found.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavisk {

/// An error stops the editor or the page, or puts something wrong before the reader's eyes; a
/// warning is most likely not what was meant.
enum class Severity { error, warning };

struct Finding {
    Severity severity = Severity::error;
    std::string_view code;  ///< a literal in kebab-case; stable from version to version
    std::string key;        ///< a node's key, or a formula or picture; empty: the whole document
    std::string attribute;  ///< empty: none
    std::optional<std::size_t> position;  ///< UTF-16 code units from the start of the text
    std::string message;                  ///< a sentence in plain words

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// A text of the document inside a message: in quotation marks, cut when it is long.
std::string inQuotes(std::string_view utf8);

}  // namespace tavisk
