// The layout of the help tree as one HTML page, and the page file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "xml/dom.h"

namespace tavisk {

class NodeParser;

/// Behind the head of every page, and at its end.
inline constexpr std::string_view pageBegin = "<body><table width=100%><tr><td>\r\n";
inline constexpr std::string_view pageEnd = "\r\n</td></tr></table></body></html>";

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

/// Takes over a piece of a page in UTF-8, which may be changed. No piece ends within a tag.
using TakePiece = std::function<void(std::string& html)>;

/// Hands over the heading and the layout of `start` piece by piece, with the texts expanded if
/// there is a parser.
void layoutPage(const dom::Node& start, NodeParser* parser, const TakePiece& take);

/// Writes the page of `start`: head, heading, layout and tail in code page 1252. With a parser the
/// texts are expanded, one node at a time, with the result of laying out `nodeparse(start)`. The
/// page is never in memory as a whole. On an error the file is left as it was: first those of
/// expansion, then those of the layout, then error 5 for a character that the code page lacks.
void writePage(Files& files, const std::string& path, const dom::Node& start, NodeParser* parser);

}  // namespace tavisk
