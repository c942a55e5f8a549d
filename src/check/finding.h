// What a check of a document found.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/refusal.h"
#include "xml/dom.h"

namespace tavisk {

/// An error stops the editor or the page, or puts something wrong before the reader's eyes; a
/// warning is most likely not what was meant.
enum class Severity { error, warning };

/// "error" or "warning".
std::string_view nameOf(Severity severity);

struct Finding {
    Severity severity = Severity::error;
    std::string_view code;  ///< a literal in kebab-case; stable from version to version
    std::string key;        ///< a node's key, or a formula or picture; empty: the whole document
    std::string attribute;  ///< empty: none
    std::optional<std::size_t> position;        ///< UTF-16 code units from the start of the text
    std::string message;                        ///< a sentence in plain words
    std::optional<Place> place = std::nullopt;  ///< where it is known and was asked for

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// Findings while their document is there, each with the node it is about, if there is one.
class FindingList {
public:
    void add(const dom::Node* node, Finding finding);

    const Findings& findings() const noexcept { return findings_; }
    /// One for each finding.
    const std::vector<const dom::Node*>& nodes() const noexcept { return nodes_; }
    bool hasErrors() const;
    void setPlace(std::size_t index, Place place) { findings_[index].place = place; }
    Findings take() && { return std::move(findings_); }

private:
    Findings findings_;
    std::vector<const dom::Node*> nodes_;
};

/// A text of the document inside a message: in quotation marks, cut when it is long.
std::string inQuotes(std::string_view utf8);

}  // namespace tavisk
