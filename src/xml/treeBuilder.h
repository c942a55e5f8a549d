// The parser's way into a document: fills it without the checks that the parser has made already.
#pragma once

#include <cstddef>
#include <string_view>

#include "xml/dom.h"

namespace tavisk::dom {

/// Builds from the document node downwards. Texts that lie inside the document's source are
/// referred to, all others are copied.
class TreeBuilder {
public:
    TreeBuilder(Document& document, Source source);

    /// What the document keeps of the bytes given; they end with a NUL.
    std::string_view source() const noexcept {
        return {document_.source_.bytes.get(), document_.source_.size};
    }

    void setDeclaration(bool present) noexcept { document_.hasDeclaration_ = present; }

    /// Names may be made more than once; the caller keeps those that come often.
    const Name* name(std::string_view qualified) { return document_.newName(qualified); }

    /// `sourceOffset` of the tag's "<".
    void beginElement(const Name* name, std::size_t attributeCount, std::size_t sourceOffset);
    /// At most as many as announced.
    void attribute(const Name* name, std::string_view text);
    void endElement() noexcept { current_ = current_->parent_; }

    void text(std::string_view text) { data(NodeType::text, text, 0); }
    /// A CDATA section, comment, instruction (`name`: its target) or document type (`name`: its
    /// name, `text`: as written), whose "<" stands at `sourceOffset`.
    void data(NodeType type, std::string_view text, std::size_t sourceOffset,
              std::string_view name = {});

private:
    void put(Text& text, std::string_view value);

    Document& document_;
    Node* current_;
};

}  // namespace tavisk::dom
