#include "document/nodeKeys.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "document/helpNames.h"

namespace tavisk {
namespace {

/// Keys of the nodes below an element of this name start afresh.
constexpr std::string_view keyBarrier = "cabinetinfo";

bool startsKeys(const dom::Node* parent) {
    return parent == nullptr || parent->type() == dom::NodeType::document ||
           parent->baseName() == keyBarrier;
}

char shown(char c) { return c == '_' ? ' ' : c; }

/// Whether `text` begins with the shown form of `baseName`.
bool beginsWithShown(std::string_view text, std::string_view baseName) {
    if (text.size() < baseName.size()) return false;
    return std::equal(baseName.begin(), baseName.end(), text.begin(),
                      [](char name, char c) { return shown(name) == c; });
}

bool shownEqual(std::string_view baseName, std::string_view otherBaseName) {
    return std::ranges::equal(baseName, otherBaseName, {}, shown, shown);
}

/// A node and everything above it, up to where its key starts; from the top down.
std::vector<const dom::Node*> keyPath(const dom::Node& node) {
    std::vector<const dom::Node*> path{&node};
    while (!startsKeys(path.back()->parent()))
        path.push_back(path.back()->parent());
    std::ranges::reverse(path);
    return path;
}

/// From below `base` down to `row`; empty for `base` itself.
std::vector<const dom::Node*> rowPath(const dom::Node& base, const dom::Node& row) {
    std::vector<const dom::Node*> path;
    for (const dom::Node* node = &row; node != &base && node != nullptr; node = node->parent())
        path.push_back(node);
    std::ranges::reverse(path);
    return path;
}

/// Follows one key through the tree: a position in it per level says how much of it the nodes on
/// the way have used up.
class StartNodeSearch {
public:
    explicit StartNodeSearch(std::string_view key) : key_(key) {}

    /// `used` is what the key of `parent` takes of the wanted key, or `mismatch`.
    void visitChildren(dom::Node& parent, std::size_t used) {
        const std::size_t start = startBelow(&parent, used);
        std::size_t count = 0;
        for (dom::Node* child = parent.firstChild(); child != nullptr; child = child->next()) {
            ++count;
            const std::size_t end = start == mismatch ? mismatch : endOf(*child, start);
            if (child->hasChildren()) visitChildren(*child, end);
            // After everything below it: where keys start afresh, both can have the same key.
            if (end == key_.size()) found_ = child;
        }
        checkedCount(count);
    }

    std::size_t endOfKey(const dom::Node& node) const {
        std::size_t end = 0;
        for (const dom::Node* step : keyPath(node)) {
            const std::size_t start = startBelow(step->parent(), end);
            end = start == mismatch ? mismatch : endOf(*step, start);
        }
        return end;
    }

    dom::Node* found() const { return key_.empty() ? nullptr : found_; }

private:
    static constexpr std::size_t mismatch = std::string_view::npos;

    std::size_t startBelow(const dom::Node* parent, std::size_t used) const {
        if (startsKeys(parent)) return 0;
        if (used == mismatch || !key_.substr(used).starts_with(keySeparator)) return mismatch;
        return used + keySeparator.size();
    }

    std::size_t endOf(const dom::Node& node, std::size_t start) const {
        const std::string_view name = node.baseName();
        return beginsWithShown(key_.substr(start), name) ? start + name.size() : mismatch;
    }

    std::string_view key_;
    dom::Node* found_ = nullptr;
};

/// The key of `parent` is known by its place, for the list moves while it grows.
void appendKeysBelow(const dom::Node& parent, std::size_t parentKey,
                     std::vector<std::string>& keys) {
    const bool afresh = startsKeys(&parent);
    for (const dom::Node* child = parent.firstChild(); child != nullptr; child = child->next()) {
        const std::string_view name = child->baseName();
        std::string key;
        if (!afresh) {
            key.reserve(keys[parentKey].size() + keySeparator.size() + name.size());
            key.append(keys[parentKey]).append(keySeparator);
        }
        appendShownName(key, name);
        keys.push_back(std::move(key));
        if (child->hasChildren()) appendKeysBelow(*child, keys.size() - 1, keys);
    }
}

}  // namespace

std::string KeyOfElement(const dom::Node& element, std::string_view separator, bool useShownNames) {
    std::string key;
    for (const dom::Node* step : keyPath(element)) {
        const bool last = step == &element;
        if (!startsKeys(step->parent())) key += last ? separator : keySeparator;
        if (last && !useShownNames) {
            key += step->baseName();
        } else {
            appendShownName(key, step->baseName());
        }
    }
    return key;
}

std::string KeyOfTreeNode(const dom::Node& base, const dom::Node& row, std::string_view separator) {
    std::string key = shownName(base.baseName());
    for (const dom::Node* step : rowPath(base, row)) {
        key += separator;
        appendShownName(key, step->baseName());
    }
    return key;
}

dom::Node* ElementOfTreeNode(dom::Node& base, const dom::Node& row) {
    dom::Node* element = &base;
    for (const dom::Node* step : rowPath(base, row)) {
        std::size_t index = 0;
        dom::Node* child = element->firstChild();
        while (child != nullptr && !shownEqual(child->baseName(), step->baseName())) {
            checkedCount(++index);
            child = child->next();
        }
        if (child == nullptr) return nullptr;
        element = child;
    }
    return element;
}

dom::Node* findStartNode(dom::Node& base, std::string_view startKey) {
    StartNodeSearch search(startKey);
    search.visitChildren(base, search.endOfKey(base));
    return search.found();
}

dom::Node* findTreeNode(dom::Node& base, std::string_view key) {
    const auto take = [&key](const dom::Node& node) {
        const std::string_view name = node.baseName();
        if (!beginsWithShown(key, name)) return false;
        const std::string_view rest = key.substr(name.size());
        if (!rest.empty() && !rest.starts_with(keySeparator)) return false;
        key = rest;
        return true;
    };
    if (!take(base)) return nullptr;
    dom::Node* node = &base;
    while (!key.empty()) {
        key.remove_prefix(keySeparator.size());
        node = node->firstChild();
        while (node != nullptr && !take(*node))
            node = node->next();
        if (node == nullptr) return nullptr;
    }
    return node;
}

std::vector<std::string> allKeys(const dom::Node& base) {
    std::vector<std::string> keys{KeyOfElement(base, keySeparator, true)};
    appendKeysBelow(base, 0, keys);
    return keys;
}

}  // namespace tavisk
