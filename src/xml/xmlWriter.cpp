#include "xml/xmlWriter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace tavisk {
namespace {

using dom::Node;
using dom::NodeType;

/// Characters that cannot stand as they are in text, and in attribute values.
enum Place : std::uint8_t { inText = 1, inAttribute = 2 };

constexpr std::array<std::uint8_t, 256> escapeTable = [] {
    std::array<std::uint8_t, 256> table{};
    for (const char c : {'&', '<', '>', '\r'}) {
        table[static_cast<unsigned char>(c)] = inText | inAttribute;
    }
    // White space in an attribute comes back only from a reference.
    for (const char c : {'"', '\n', '\t'})
        table[static_cast<unsigned char>(c)] = inAttribute;
    return table;
}();

std::string_view escapeOf(char c) {
    switch (c) {
        case '&': return "&amp;";
        case '<': return "&lt;";
        case '>': return "&gt;";
        case '"': return "&quot;";
        case '\n': return "&#10;";
        case '\t': return "&#9;";
        default: return "&#13;";
    }
}

/// Whether a block may hold a character that needs an escape; a compiler makes vectors of this.
template <Place place>
bool blockNeedsEscapes(const char* block, std::size_t length) {
    unsigned any = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char c = block[i];
        any |= static_cast<unsigned>(c == '&') | static_cast<unsigned>(c == '<') |
               static_cast<unsigned>(c == '>');
        if constexpr (place == inAttribute) {
            any |= static_cast<unsigned>(c == '"') |
                   static_cast<unsigned>(static_cast<unsigned char>(c) < 0x20);
        } else {
            any |= static_cast<unsigned>(c == '\r');
        }
    }
    return any != 0;
}

using Write = std::function<void(std::string_view)>;

class Writer {
public:
    /// With `handOn`, `out` is only what has gathered for it.
    explicit Writer(std::string& out, const Write* handOn = nullptr) : out_(out), handOn_(handOn) {}

    void write(const Node& top) {
        const Node* node = &top;
        for (;;) {
            if (open(*node)) {
                node = node->firstChild();
                continue;
            }
            while (node != &top && node->next() == nullptr) {
                node = node->parent();
                close(*node);
            }
            if (node == &top) return;
            node = node->next();
        }
    }

private:
    /// True when children follow, to be closed behind them.
    bool open(const Node& node) {
        switch (node.type()) {
            case NodeType::document: return node.hasChildren();
            case NodeType::documentType: put(node.data()); return false;
            case NodeType::text: escaped<inText>(node.data()); return false;
            case NodeType::cdata: put("<![CDATA["), put(node.data()), put("]]>"); return false;
            case NodeType::comment: put("<!--"), put(node.data()), put("-->"); return false;
            case NodeType::instruction:
                put("<?"), put(node.nodeName());
                if (!node.data().empty()) put(" "), put(node.data());
                put("?>");
                return false;
            case NodeType::element: break;
        }
        put("<"), put(node.nodeName());
        for (const dom::Attribute& attribute : node.attributes()) {
            put(" "), put(attribute.name()), put("=\"");
            escaped<inAttribute>(attribute.text());
            put("\"");
        }
        put(node.hasChildren() ? ">" : "/>");
        return node.hasChildren();
    }

    void close(const Node& node) {
        if (node.isElement()) put("</"), put(node.nodeName()), put(">");
    }

    static constexpr std::size_t enough = std::size_t{64} << 10;

    void put(std::string_view text) {
        if (handOn_ != nullptr && out_.size() + text.size() > enough) {
            (*handOn_)(out_);
            out_.clear();
            if (text.size() > enough) {
                (*handOn_)(text);
                return;
            }
        }
        out_.append(text);
    }

    template <Place place>
    void escaped(std::string_view text) {
        constexpr std::size_t block = 64;
        std::size_t written = 0;
        std::size_t at = 0;
        while (at < text.size()) {
            const std::size_t length = std::min(block, text.size() - at);
            if (!blockNeedsEscapes<place>(text.data() + at, length)) {
                at += length;
                continue;
            }
            for (const std::size_t end = at + length; at < end; ++at) {
                const char c = text[at];
                if ((escapeTable[static_cast<unsigned char>(c)] & place) == 0) continue;
                put(text.substr(written, at - written));
                put(escapeOf(c));
                written = at + 1;
            }
        }
        put(text.substr(written));
    }

    std::string& out_;
    const Write* handOn_;
};

constexpr std::string_view declaration = "<?xml version=\"1.0\"?>\r\n";

}  // namespace

std::string writeXml(const dom::Document& document) {
    std::string out;
    out.reserve(document.sizeHint() + document.sizeHint() / 16 + 64);
    if (document.hasDeclaration()) out += declaration;
    Writer(out).write(document.root());
    document.setSizeHint(out.size());
    return out;
}

void writeXml(const dom::Document& document, const Write& write) {
    std::string out;
    if (document.hasDeclaration()) out += declaration;
    Writer(out, &write).write(document.root());
    write(out);
}

std::string writeXml(const dom::Node& node) {
    std::string out;
    Writer(out).write(node);
    return out;
}

}  // namespace tavisk
