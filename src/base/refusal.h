// Why a document cannot be used, as data: the reader fills it in, whoever tells somebody words it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/message.h"

namespace tavisk {

/// A place in the text of a document; both count from 1, columns in UTF-16 code units.
struct Place {
    std::size_t line = 1;
    std::optional<std::size_t> column = std::nullopt;

    bool operator==(const Place&) const = default;
};

struct Refusal {
    std::string reason;                         ///< one line where there is a place
    std::optional<Place> place = std::nullopt;  ///< where the text is no XML; none for its shape
    std::string title = defaultTitle;
    BoxStyle style = BoxStyle::ok;

    bool operator==(const Refusal&) const = default;

    /// What the user sees: the line stands below the reason.
    Message message() const;

    /// The same in one line: "Reason (line 7)".
    std::string sentence() const;
};

}  // namespace tavisk
