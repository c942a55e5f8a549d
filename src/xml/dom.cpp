#include "xml/dom.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "base/error.h"
#include "xml/xmlCharacters.h"

namespace tavisk::dom {
namespace {

// A large document is many of these.
static_assert(sizeof(void*) != 8 || sizeof(Node) == 88);

constexpr std::size_t nodesPerBlock = 1024;

constexpr Name documentName{"#document", {}};
constexpr Name textName{"#text", {}};
constexpr Name cdataName{"#cdata-section", {}};
constexpr Name commentName{"#comment", {}};

void require(bool condition) {
    if (!condition) raise(ErrorNumber::invalidArgument);
}

/// A prefix cannot be declared to stand for nothing.
void requireAddress(std::string_view name, std::string_view text) {
    require(!text.empty() || !name.starts_with("xmlns:"));
}

std::size_t depthOf(const Node& node) noexcept {
    std::size_t depth = 0;
    for (const Node* at = &node; at != nullptr; at = at->parent())
        depth += at->isElement() ? 1 : 0;
    return depth;
}

std::size_t heightOf(const Node& top) noexcept {
    std::size_t highest = 0;
    std::size_t depth = 1;
    const Node* node = &top;
    for (;;) {
        if (node->isElement()) highest = std::max(highest, depth);
        if (node->hasChildren()) {
            node = node->firstChild();
            ++depth;
            continue;
        }
        while (node != &top && node->next() == nullptr) {
            node = node->parent();
            --depth;
        }
        if (node == &top) return highest;
        node = node->next();
    }
}

}  // namespace

std::size_t Node::childCount() const noexcept {
    std::size_t count = 0;
    for (const Node* child = first_; child != nullptr; child = child->next_)
        ++count;
    return count;
}

Node* nextAfterSubtree(const Node& node, const Node& top) noexcept {
    const Node* at = &node;
    while (at != &top && at->next() == nullptr)
        at = at->parent();
    return at == &top ? nullptr : at->next();
}

Node* nextInDocument(const Node& node, const Node& top) noexcept {
    return node.hasChildren() ? node.firstChild() : nextAfterSubtree(node, top);
}

OwnedNode::OwnedNode(OwnedNode&& other) noexcept
    : document_(other.document_), node_(other.release()) {}

OwnedNode& OwnedNode::operator=(OwnedNode&& other) noexcept {
    if (this != &other) {
        reset();
        document_ = other.document_;
        node_ = other.release();
    }
    return *this;
}

Node* OwnedNode::release() noexcept { return std::exchange(node_, nullptr); }

void OwnedNode::reset() noexcept {
    if (node_ != nullptr) document_->freeTree(release());
}

Source Source::copy(std::string_view text) {
    auto bytes = std::make_unique_for_overwrite<char[]>(text.size() + 1);
    std::ranges::copy(text, bytes.get());
    bytes[text.size()] = '\0';
    return {std::move(bytes), text.size()};
}

Document::Document() {
    root_.type_ = NodeType::document;
    root_.name_ = &documentName;
}

Node* Document::newNode(NodeType type, const Name* name) {
    Node* node = freeNodes_;
    if (node != nullptr) {
        freeNodes_ = node->next_;
        *node = Node();
    } else {
        if (nodesLeft_ == 0) {
            nodeBlocks_.push_back(std::make_unique<Node[]>(nodesPerBlock));
            nodesLeft_ = nodesPerBlock;
        }
        node = &nodeBlocks_.back()[nodesPerBlock - nodesLeft_--];
    }
    node->type_ = type;
    node->name_ = name;
    return node;
}

void Document::freeNode(Node* node) noexcept {
    dropText(node->text_);
    for (std::uint32_t i = 0; i < node->attributeCount_; ++i)
        dropText(node->attributes_[i].text_);
    releaseAttributes(*node);
    node->next_ = freeNodes_;
    freeNodes_ = node;
}

void Document::freeTree(Node* top) noexcept {
    // Children before their parents, without recursion: a freed node is never looked at again.
    Node* node = top;
    for (;;) {
        while (node->first_ != nullptr)
            node = node->first_;
        Node* const parent = node->parent_;
        Node* const next = node->next_;
        freeNode(node);
        if (node == top) return;
        parent->first_ = next;
        node = next != nullptr ? next : parent;
    }
}

const Name* Document::newName(std::string_view qualified) {
    char* const block = static_cast<char*>(pool_.keep(sizeof(Name) + qualified.size()));
    char* const bytes = block + sizeof(Name);
    std::memcpy(bytes, qualified.data(), qualified.size());
    const std::string_view name(bytes, qualified.size());
    return new (block) Name{name, name.substr(name.find(':') + 1)};  // npos + 1 is 0
}

const Name* Document::intern(std::string_view qualified) {
    if (const auto found = names_.find(qualified); found != names_.end()) return found->second;
    const Name* const name = newName(qualified);
    names_.emplace(name->qualified, name);
    return name;
}

const Name* Document::nameFor(NodeType type, std::string_view name) {
    switch (type) {
        case NodeType::document: return &documentName;
        case NodeType::text: return &textName;
        case NodeType::cdata: return &cdataName;
        case NodeType::comment: return &commentName;
        default: return intern(name);
    }
}

void Document::store(Text& text, std::string_view value) {
    if (value.size() > std::numeric_limits<std::uint32_t>::max() / 2)
        raise(ErrorNumber::outOfMemory);
    if (value.size() > text.capacity_) {
        const std::size_t capacity = TextPool::capacityFor(value.size());
        char* bytes = static_cast<char*>(pool_.allocate(capacity));
        std::memcpy(bytes, value.data(), value.size());
        dropText(text);
        text.data_ = bytes;
        text.capacity_ = static_cast<std::uint32_t>(capacity);
    } else if (!value.empty()) {
        // The value may be a view of this very text.
        std::memmove(const_cast<char*>(text.data_), value.data(), value.size());
    }
    text.size_ = static_cast<std::uint32_t>(value.size());
}

void Document::copyText(Text& to, const Text& from) {
    if (from.capacity_ == 0) {
        to = from;
    } else {
        store(to, from.view());
    }
}

void Document::dropText(Text& text) noexcept {
    if (text.capacity_ != 0) pool_.release(const_cast<char*>(text.data_), text.capacity_);
    text = Text();
}

void Document::reserveAttributes(Node& element, std::size_t count) {
    const std::size_t bytes = TextPool::capacityFor(count * sizeof(Attribute));
    moveAttributes(element, pool_.allocate(bytes), bytes);
}

void Document::moveAttributes(Node& element, void* block, std::size_t bytes) {
    auto* table = static_cast<Attribute*>(block);
    std::uninitialized_copy_n(element.attributes_, element.attributeCount_, table);
    releaseAttributes(element);
    element.attributes_ = table;
    element.attributeCapacity_ = static_cast<std::uint32_t>(bytes / sizeof(Attribute));
}

void Document::releaseAttributes(Node& element) noexcept {
    if (element.attributeCapacity_ == 0) return;
    pool_.release(element.attributes_, element.attributeCapacity_ * sizeof(Attribute));
}

Attribute& Document::growAttributes(Node& element) {
    if (element.attributeCount_ == element.attributeCapacity_) {
        reserveAttributes(element, std::max<std::size_t>(element.attributeCount_ * 2, 4));
    }
    return *new (&element.attributes_[element.attributeCount_++]) Attribute();
}

void Document::link(Node& parent, Node* child, Node* before) noexcept {
    Node* const previous = before != nullptr ? before->previous_ : parent.last_;
    child->parent_ = &parent;
    child->previous_ = previous;
    child->next_ = before;
    (previous != nullptr ? previous->next_ : parent.first_) = child;
    (before != nullptr ? before->previous_ : parent.last_) = child;
}

void Document::unlink(Node& child) noexcept {
    // A child has a parent, which the analyzer cannot know of a first or last child.
    Node& parent = *child.parent_;  // NOLINT(clang-analyzer-core.NullDereference)
    (child.previous_ != nullptr ? child.previous_->next_ : parent.first_) = child.next_;
    (child.next_ != nullptr ? child.next_->previous_ : parent.last_) = child.previous_;
    child.parent_ = child.previous_ = child.next_ = nullptr;
}

void Document::checkPlace(const Node& parent, const Node& child) const {
    for (const Node* at = &parent; at != nullptr; at = at->parent_)
        require(at != &child);
    if (parent.type_ == NodeType::document) {
        require(child.type_ != NodeType::text && child.type_ != NodeType::cdata);
    } else {
        require(parent.isElement());
    }
    require(depthOf(parent) + heightOf(child) <= maxDepth);
}

std::vector<Node*> Document::elementsByTagName(std::string_view name) const {
    std::vector<Node*> found;
    for (Node* node = nextInDocument(root_, root_); node != nullptr;
         node = nextInDocument(*node, root_)) {
        if (node->isElement() && node->nodeName() == name) found.push_back(node);
    }
    return found;
}

OwnedNode Document::createElement(std::string_view name) {
    require(isXmlName(name) && name.find(':') == std::string_view::npos);
    return {*this, newNode(NodeType::element, intern(name))};
}

OwnedNode Document::createData(NodeType type, std::string_view data, std::string_view name) {
    require(isXmlText(data));
    switch (type) {
        case NodeType::text: break;
        case NodeType::cdata: require(data.find("]]>") == std::string_view::npos); break;
        case NodeType::comment:
            require(data.find("--") == std::string_view::npos && !data.ends_with('-'));
            break;
        case NodeType::instruction:
            require(isXmlName(name) && name.find(':') == std::string_view::npos &&
                    !isReservedTarget(name) && data.find("?>") == std::string_view::npos);
            break;
        default: raise(ErrorNumber::invalidArgument);
    }
    OwnedNode node(*this, newNode(type, nameFor(type, name)));
    store(node->text_, data);
    return node;
}

Node* Document::cloneOne(const Node& node) {
    OwnedNode copy(*this, newNode(node.type_, node.name_));
    copyText(copy->text_, node.text_);
    if (node.attributeCount_ != 0) reserveAttributes(*copy, node.attributeCount_);
    for (const Attribute& from : node.attributes()) {
        Attribute& to = growAttributes(*copy);
        to.name_ = from.name_;
        copyText(to.text_, from.text_);
    }
    return copy.release();
}

OwnedNode Document::clone(const Node& node, bool deep) {
    require(node.type_ != NodeType::document);
    OwnedNode copy(*this, cloneOne(node));
    if (!deep) return copy;
    const Node* from = &node;
    Node* to = copy.get();  // the copy of `from`
    for (;;) {
        if (from->first_ != nullptr) {
            from = from->first_;
        } else {
            while (from != &node && from->next_ == nullptr) {
                from = from->parent_;
                to = to->parent_;
            }
            if (from == &node) return copy;
            from = from->next_;
            to = to->parent_;
        }
        Node* const child = cloneOne(*from);
        link(*to, child, nullptr);
        to = child;
    }
}

Node& Document::append(Node& parent, OwnedNode child) {
    checkPlace(parent, *child);
    Node* const node = child.release();
    link(parent, node, nullptr);
    return *node;
}

OwnedNode Document::remove(Node& child) noexcept {
    unlink(child);
    return {*this, &child};
}

OwnedNode Document::replace(Node& old, OwnedNode fresh) {
    require(old.parent_ != nullptr);
    Node& parent = *old.parent_;
    checkPlace(parent, *fresh);
    Node* const before = old.next_;
    unlink(old);
    link(parent, fresh.release(), before);
    return {*this, &old};
}

void Document::setAttributeText(Node& element, std::size_t index, std::string_view text) {
    require(index < element.attributeCount_ && isXmlText(text));
    Attribute& attribute = element.attributes_[index];
    requireAddress(attribute.name(), text);
    store(attribute.text_, text);
}

void Document::addAttribute(Node& element, std::string_view name, std::string_view text) {
    require(element.isElement() && isXmlName(name) && isXmlText(text));
    requireAddress(name, text);
    Attribute stored;
    stored.name_ = intern(name);
    store(stored.text_, text);
    growAttributes(element) = stored;
}

void Document::setContent(Node& element, std::string_view text) {
    require(element.isElement());
    OwnedNode content = text.empty() ? OwnedNode() : createData(NodeType::text, text);
    while (element.last_ != nullptr)
        remove(*element.last_);
    if (content) link(element, content.release(), nullptr);
}

}  // namespace tavisk::dom
