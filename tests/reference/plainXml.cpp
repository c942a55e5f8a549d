#include "reference/plainXml.h"

#include <algorithm>

#include "reference/plainText.h"

namespace tavisk::reference {
namespace {

bool preservesSpace(const PlainNode& element) {
    for (const PlainAttribute& attribute : element.attributes) {
        if (attribute.name == u"xml:space" && attribute.text == u"preserve") return true;
    }
    return false;
}

bool isWhite(const std::u16string& text) {
    return text.find_first_not_of(u" \t\r\n") == std::u16string::npos;
}

std::string escaped(const std::u16string& text, bool attribute) {
    std::u16string result;
    for (const char16_t c : text) {
        switch (c) {
            case u'&': result += u"&amp;"; break;
            case u'<': result += u"&lt;"; break;
            case u'>': result += u"&gt;"; break;
            case u'\r': result += u"&#13;"; break;
            case u'\n': result += attribute ? u"&#xA;" : u"\n"; break;
            case u'\t': result += attribute ? u"&#9;" : u"\t"; break;
            case u'"': result += attribute ? u"&quot;" : u"\""; break;
            case u'\'': result += attribute ? u"&#39;" : u"'"; break;
            default: result += c; break;
        }
    }
    return utf8Of(result);
}

bool holdsText(const PlainNode& node) {
    return std::any_of(node.children.begin(), node.children.end(),
                       [](const PlainNode& child) { return child.kind == Kind::text; });
}

class XmlText {
public:
    explicit XmlText(const XmlStyle& style) : style_(style) {}

    void write(const PlainNode& node, bool preserved) {
        switch (node.kind) {
            case Kind::document: writeChildren(node, preserved); break;
            case Kind::documentType: out_ += utf8Of(node.data); break;
            case Kind::element: writeElement(node, preserved); break;
            case Kind::text: out_ += escaped(node.data, false); break;
            case Kind::cdata: out_ += "<![CDATA[" + utf8Of(node.data) + "]]>"; break;
            case Kind::comment: out_ += "<!--" + utf8Of(node.data) + "-->"; break;
            case Kind::instruction:
                out_ += "<?" + utf8Of(node.name);
                if (!node.data.empty()) out_ += " " + utf8Of(node.data);
                out_ += "?>";
                break;
        }
    }

    const std::string& text() const { return out_; }

private:
    void writeElement(const PlainNode& node, bool preserved) {
        const std::string name = utf8Of(node.name);
        const char quote = style_.singleQuotes ? '\'' : '"';
        out_ += "<" + name;
        for (const PlainAttribute& attribute : node.attributes) {
            out_ +=
                " " + utf8Of(attribute.name) + "=" + quote + escaped(attribute.text, true) + quote;
        }
        if (node.children.empty() && !style_.emptyPairs) {
            out_ += "/>";
            return;
        }
        out_ += ">";
        writeChildren(node, preserved || preservesSpace(node));
        out_ += "</" + name + ">";
    }

    void writeChildren(const PlainNode& node, bool preserved) {
        const bool lines = style_.indented && !preserved && !holdsText(node);
        for (const PlainNode& child : node.children) {
            write(child, preserved);
            if (lines) out_ += "\n  ";
        }
    }

    const XmlStyle& style_;
    std::string out_;
};

PlainNode loaded(const PlainNode& node, bool preserved) {
    PlainNode result{node.kind, node.name, node.attributes, node.data, {}};
    const bool preserve = preserved || preservesSpace(node);
    std::vector<PlainNode> joined;
    for (const PlainNode& child : node.children) {
        if (child.kind == Kind::text && !joined.empty() && joined.back().kind == Kind::text) {
            joined.back().data += child.data;
        } else {
            joined.push_back(child);
        }
    }
    for (const PlainNode& child : joined) {
        const bool dropped =
            child.kind == Kind::text && isWhite(child.data) && (!preserve || child.data.empty());
        if (!dropped) result.children.push_back(loaded(child, preserve));
    }
    return result;
}

}  // namespace

std::string xmlOf(const PlainNode& document, const XmlStyle& style) {
    XmlText text(style);
    text.write(document, false);
    return (style.declaration ? "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n" : "") + text.text();
}

PlainNode asLoaded(const PlainNode& document) { return loaded(document, false); }

}  // namespace tavisk::reference
