// The XML document object model: a small tree of nodes, kept in one document's own memory.
//
// A `Node*` is a handle into the tree and owns nothing. A node outside the tree is an `OwnedNode`,
// which frees it with everything below when it ends. All texts are valid UTF-8; a text that came
// with the document is a view of the document's source and copied only when it changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xml/textPool.h"

namespace tavisk::dom {

class Document;
class Node;

/// Elements below elements: the parser's limit, and the limit of every insertion, so that walks may
/// recurse and what was built can be opened again.
inline constexpr std::size_t maxDepth = 1000;

enum class NodeType : std::uint8_t {
    document,
    documentType,
    element,
    text,
    cdata,
    comment,
    instruction,
};

struct Name {
    std::string_view qualified;
    std::string_view base;  ///< behind the prefix and its colon
};

/// A text of a node or attribute: a view of the source, or memory of the pool.
class Text {
public:
    std::string_view view() const noexcept { return {data_, size_}; }

private:
    friend class Document;
    friend class TreeBuilder;
    const char* data_ = "";
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 0;  ///< 0: the bytes are not this text's own
};

class Attribute {
public:
    std::string_view name() const noexcept { return name_->qualified; }
    std::string_view baseName() const noexcept { return name_->base; }
    std::string_view text() const noexcept { return text_.view(); }

private:
    friend class Document;
    friend class TreeBuilder;
    const Name* name_ = nullptr;
    Text text_;
};

class Node {
public:
    NodeType type() const noexcept { return type_; }
    bool isElement() const noexcept { return type_ == NodeType::element; }

    /// An element's qualified name or an instruction's target; otherwise "#document", "#text",
    /// "#cdata-section", "#comment", or the name of the document type.
    std::string_view nodeName() const noexcept { return name_->qualified; }
    /// The local name of an element, the target of an instruction; empty for every other node.
    std::string_view baseName() const noexcept {
        return type_ == NodeType::documentType ? std::string_view() : name_->base;
    }
    /// The content of a text, CDATA section, comment or instruction; a document type as written.
    std::string_view data() const noexcept { return text_.view(); }

    Node* parent() const noexcept { return parent_; }
    Node* firstChild() const noexcept { return first_; }
    Node* lastChild() const noexcept { return last_; }
    Node* next() const noexcept { return next_; }
    Node* previous() const noexcept { return previous_; }
    bool hasChildren() const noexcept { return first_ != nullptr; }
    std::size_t childCount() const noexcept;

    /// Byte offset of the markup that the node came with in the document's source. 0 for texts,
    /// which come without, and for nodes made later.
    std::size_t sourceOffset() const noexcept { return sourceOffset_; }

    /// In the order written. Empty for every node but elements.
    std::span<const Attribute> attributes() const noexcept {
        return {attributes_, attributeCount_};
    }

private:
    friend class Document;
    friend class TreeBuilder;
    Node* parent_ = nullptr;
    Node* first_ = nullptr;
    Node* last_ = nullptr;
    Node* next_ = nullptr;
    Node* previous_ = nullptr;
    const Name* name_ = nullptr;
    Attribute* attributes_ = nullptr;
    Text text_;
    std::uint32_t attributeCount_ = 0;
    std::uint32_t attributeCapacity_ = 0;
    std::uint32_t sourceOffset_ = 0;
    NodeType type_ = NodeType::element;
};

/// The node after `node` in document order among those below `top`; null after the last.
Node* nextInDocument(const Node& node, const Node& top) noexcept;

/// The same, leaving out everything below `node`.
Node* nextAfterSubtree(const Node& node, const Node& top) noexcept;

/// A node outside the tree, owned by whoever holds this. Must not outlive its document.
class OwnedNode {
public:
    OwnedNode() = default;
    OwnedNode(Document& document, Node* node) noexcept : document_(&document), node_(node) {}
    OwnedNode(OwnedNode&& other) noexcept;
    OwnedNode& operator=(OwnedNode&& other) noexcept;
    ~OwnedNode() { reset(); }

    explicit operator bool() const noexcept { return node_ != nullptr; }
    Node* get() const noexcept { return node_; }
    Node& operator*() const noexcept { return *node_; }
    Node* operator->() const noexcept { return node_; }

    Node* release() noexcept;
    void reset() noexcept;

private:
    Document* document_ = nullptr;
    Node* node_ = nullptr;
};

/// The bytes that a document was parsed from; texts of the tree are views of them.
struct Source {
    std::shared_ptr<const char[]> bytes;  ///< followed by a NUL that `size` does not count
    std::size_t size = 0;

    static Source copy(std::string_view text);
};

/// Calls that create, set or move nodes throw error 5 for names and texts that could not be
/// written back, for cycles and for trees deeper than `maxDepth`; the tree is then unchanged.
class Document {
public:
    Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Node& root() noexcept { return root_; }
    const Node& root() const noexcept { return root_; }
    /// The last child node of the document, null when it is empty.
    Node* lastChild() const noexcept { return root_.lastChild(); }

    bool hasDeclaration() const noexcept { return hasDeclaration_; }

    /// Elements with this qualified name, in document order.
    std::vector<Node*> elementsByTagName(std::string_view name) const;

    OwnedNode createElement(std::string_view name);
    /// Text, CDATA section, comment or instruction; `name` is the instruction's target.
    OwnedNode createData(NodeType type, std::string_view data, std::string_view name = {});
    OwnedNode clone(const Node& node, bool deep);

    Node& append(Node& parent, OwnedNode child);
    OwnedNode remove(Node& child) noexcept;
    /// `fresh` takes the place of `old`, which is handed back.
    OwnedNode replace(Node& old, OwnedNode fresh);

    /// `index` counts the node's attributes from 0.
    void setAttributeText(Node& element, std::size_t index, std::string_view text);
    /// Adds behind the existing attributes; the caller knows that the name is not there yet.
    void addAttribute(Node& element, std::string_view name, std::string_view text);
    /// Replaces the children of an element by one text node, or none for an empty text.
    void setContent(Node& element, std::string_view text);

    /// Bytes of the last serialisation, to reserve the next one's buffer from.
    std::size_t sizeHint() const noexcept { return sizeHint_; }
    void setSizeHint(std::size_t size) const noexcept { sizeHint_ = size; }

private:
    friend class OwnedNode;
    friend class TreeBuilder;

    Node* newNode(NodeType type, const Name* name);
    void freeTree(Node* top) noexcept;
    void freeNode(Node* node) noexcept;
    const Name* newName(std::string_view qualified);
    const Name* intern(std::string_view qualified);
    void store(Text& text, std::string_view value);
    void copyText(Text& to, const Text& from);
    void dropText(Text& text) noexcept;
    const Name* nameFor(NodeType type, std::string_view name);
    void reserveAttributes(Node& element, std::size_t count);
    void moveAttributes(Node& element, void* block, std::size_t bytes);
    void releaseAttributes(Node& element) noexcept;
    Attribute& growAttributes(Node& element);
    Node* cloneOne(const Node& node);
    void link(Node& parent, Node* child, Node* before) noexcept;
    void unlink(Node& child) noexcept;
    void checkPlace(const Node& parent, const Node& child) const;

    TextPool pool_;
    Source source_;
    std::unordered_map<std::string_view, const Name*> names_;  ///< those not from the parser
    Node root_;
    std::vector<std::unique_ptr<Node[]>> nodeBlocks_;
    std::size_t nodesLeft_ = 0;  ///< unused nodes at the end of the last block
    Node* freeNodes_ = nullptr;  ///< linked by `next_`
    bool hasDeclaration_ = false;
    mutable std::size_t sizeHint_ = 0;
};

}  // namespace tavisk::dom
