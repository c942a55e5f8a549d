// Whether attribute texts read as what they stand for.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "check/finding.h"

namespace tavisk {

/// A finding before it is known where.
struct Problem {
    Severity severity = Severity::error;
    std::string_view code;
    std::string message;
    std::optional<std::size_t> position = std::nullopt;

    bool operator==(const Problem&) const = default;
};

/// Each gives the problem of one attribute text, if it has one.
using AttributeCheck = std::optional<Problem> (*)(std::string_view text);

std::optional<Problem> checkFlag(std::string_view text);
std::optional<Problem> checkColour(std::string_view text);
std::optional<Problem> checkFontSize(std::string_view text);
std::optional<Problem> checkGap(std::string_view text);
std::optional<Problem> checkStyle(std::string_view text);
/// Width or height of a picture; empty is fine.
std::optional<Problem> checkPixels(std::string_view text);
/// Width or height of the generated picture, which overlays are measured by.
std::optional<Problem> checkOverlaySize(std::string_view text);
/// Any attribute of a help node.
std::optional<Problem> checkLength(std::string_view text);

}  // namespace tavisk
