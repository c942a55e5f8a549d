// The layout of the help tree as one HTML page, and the page file.
#pragma once

#include <string>
#include <string_view>

#include "platform/dom.h"
#include "platform/files.h"

namespace tavisk {

struct LayoutResult {
    std::string code;  ///< first non-empty `value` of an element named `code`, in document order
    std::string type;  ///< the same for `type`
    std::string html;
    std::string xml;  ///< the start node serialised; outermost call only
};

/// The longest page, in bytes of UTF-8. Error 7 beyond it: a gap count has no range of its own.
inline constexpr std::size_t maxPageSize = std::size_t{1} << 30;

/// Lays out the node and everything below it as rows, columns and pages; with `nested` false the
/// node is the start of the page and gets no row.
LayoutResult layoutNode(const dom::Node& node, bool nested);

/// Heading and layout of a page, without serialising the start node.
std::string layoutPage(const dom::Node& start);

/// Writes head, `html` and tail in code page 1252. Error 5, before the file is touched, for a
/// character that the code page lacks.
void writePage(Files& files, const std::string& path, std::string html);

}  // namespace tavisk
