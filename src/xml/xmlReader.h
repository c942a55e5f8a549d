// Parses an XML document into the tree, or says in one line why it cannot be read.
#pragma once

#include <memory>
#include <string_view>

#include "base/refusal.h"
#include "xml/dom.h"

namespace tavisk {

struct ParseResult {
    std::unique_ptr<dom::Document> document;  ///< null when parsing failed
    Refusal refusal;                          ///< then with its line
};

/// The text is UTF-8; an encoding that its declaration names is ignored, a byte order mark at the
/// start is skipped. Entity declarations are refused and nothing outside the text is ever opened.
/// White-space-only text is dropped unless an ancestor carries `xml:space="preserve"`.
ParseResult readXml(dom::Source source);
ParseResult readXml(std::string_view text);

}  // namespace tavisk
