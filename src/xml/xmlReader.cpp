#include "xml/xmlReader.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include "base/text.h"
#include "xml/startTag.h"
#include "xml/treeBuilder.h"

namespace tavisk {
namespace {

using dom::NodeType;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// NOENT: without it attributes arrive with "&#38;" in place of "&amp;". HUGE lifts the limit on the
// length of texts, and with it the guard against entity bombs: entity declarations are refused.
// IGNORE_ENC together with the encoding argument: what a declaration says does not matter.
constexpr int parseOptions =
    XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_BIG_LINES | XML_PARSE_NOENT;

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

std::string_view view(const xmlChar* from, const xmlChar* to) {
    return {reinterpret_cast<const char*>(from), static_cast<std::size_t>(to - from)};
}

std::string oneLine(std::string_view message) {
    std::string line(message);
    std::ranges::replace_if(line, isBlank, ' ');
    while (!line.empty() && isBlank(line.back()))
        line.pop_back();
    return line;
}

struct FreeContext {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

class Reader {
public:
    explicit Reader(dom::TreeBuilder& builder) : builder_(builder), source_(builder.source()) {}

    /// False after an error, which `refusal` tells.
    bool parse() {
        if (!checkBytes()) return false;
        xmlInitParser();
        const std::unique_ptr<xmlParserCtxt, FreeContext> context(xmlNewParserCtxt());
        if (!context) throw std::bad_alloc();
        context_ = context.get();
        *context_->sax = handler();
        context_->userData = this;
        xmlCtxtReadDoc(context_, reinterpret_cast<const xmlChar*>(source_.data()), nullptr, "UTF-8",
                       parseOptions);
        if (thrown_) std::rethrow_exception(thrown_);
        if (!failed() && !context_->wellFormed) record(lastReason_, lastLine_);
        return !failed();
    }

    Refusal refusal;

private:
    bool failed() const { return refusal.place.has_value(); }

    // What the parser does not notice, or gives a misleading reason for.
    bool checkBytes() {
        if (source_.starts_with(byteOrderMark)) source_.remove_prefix(byteOrderMark.size());
        std::size_t bad = source_.find('\0');
        if (bad != std::string_view::npos) {
            record("The text contains a NUL character", lineAt(bad));
        } else if ((bad = findInvalidUtf8(source_)) != std::string_view::npos) {
            record("The text is not valid Unicode", lineAt(bad));
        } else if ((bad = findOvergrownTag(source_)) != std::string_view::npos) {
            record("More than 65,535 attributes in one element", lineAt(bad));
        } else if (source_.empty()) {
            record("The document is empty", 1);
        } else if (source_.size() >= INT_MAX) {
            record("The document is too large", 1);
        }
        return !failed();
    }

    int lineAt(std::size_t offset) const {
        return 1 + static_cast<int>(std::ranges::count(source_.substr(0, offset), '\n'));
    }

    void record(std::string why, int where) {
        if (failed()) return;
        refusal = {why.empty() ? "The document cannot be read" : std::move(why),
                   Place{static_cast<std::size_t>(where)}};
    }

    void stop(const char* why) {
        record(why, context_->input == nullptr ? 1 : context_->input->line);
        context_->wellFormed = 0;
        xmlStopParser(context_);
    }

    /// Runs one event. Exceptions must not cross the parser's C code.
    template <class Event>
    static void event(void* self, Event handle) {
        auto& reader = *static_cast<Reader*>(self);
        if (reader.thrown_) return;
        try {
            handle(reader);
        } catch (...) {
            reader.thrown_ = std::current_exception();
            xmlStopParser(reader.context_);
        }
    }

    static xmlSAXHandler handler() {
        xmlSAXHandler sax{};
        sax.initialized = XML_SAX2_MAGIC;
        // Called behind the XML declaration, of which nothing else tells.
        sax.startDocument = [](void* self) {
            event(self, [](Reader& reader) { reader.markupEnd_ = reader.position(); });
        };
        sax.startElementNs = [](void* self, const xmlChar* local, const xmlChar* prefix,
                                const xmlChar*, int namespaceCount, const xmlChar** namespaces,
                                int attributeCount, int, const xmlChar** attributes) {
            event(self, [&](Reader& reader) {
                reader.startElement(prefix, local,
                                    {namespaces, static_cast<std::size_t>(namespaceCount)},
                                    {attributes, static_cast<std::size_t>(attributeCount)});
            });
        };
        sax.endElementNs = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
            event(self, [](Reader& reader) { reader.endElement(); });
        };
        sax.characters = [](void* self, const xmlChar* text, int length) {
            event(self, [&](Reader& reader) { reader.characters(view(text, text + length)); });
        };
        // The same function: otherwise the parser judges white space by rules of its own.
        sax.ignorableWhitespace = sax.characters;
        sax.cdataBlock = [](void* self, const xmlChar* text, int length) {
            event(self,
                  [&](Reader& reader) { reader.data(NodeType::cdata, view(text, text + length)); });
        };
        sax.comment = [](void* self, const xmlChar* text) {
            event(self, [&](Reader& reader) { reader.data(NodeType::comment, view(text)); });
        };
        sax.processingInstruction = [](void* self, const xmlChar* target, const xmlChar* text) {
            event(self, [&](Reader& reader) {
                reader.data(NodeType::instruction, view(text), view(target));
            });
        };
        sax.internalSubset = [](void* self, const xmlChar* name, const xmlChar*, const xmlChar*) {
            event(self, [&](Reader& reader) { reader.beginDocumentType(view(name)); });
        };
        // Called behind every document type; nothing is loaded here.
        sax.externalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
            event(self, [](Reader& reader) { reader.endDocumentType(); });
        };
        sax.entityDecl = [](void* self, const xmlChar*, int, const xmlChar*, const xmlChar*,
                            xmlChar*) { refuseEntity(self); };
        sax.unparsedEntityDecl = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*,
                                    const xmlChar*) { refuseEntity(self); };
        sax.serror = [](void* self, xmlErrorPtr error) {
            event(self, [&](Reader& reader) { reader.parserError(*error); });
        };
        return sax;
    }

    static void refuseEntity(void* self) {
        event(self, [](Reader& reader) { reader.stop("Entity declarations are not allowed"); });
    }

    void parserError(const xmlError& error) {
        const bool badNamespace = error.domain == XML_FROM_NAMESPACE &&
                                  error.level >= XML_ERR_ERROR && error.code != XML_WAR_NS_URI;
        const bool decides =
            error.level == XML_ERR_FATAL || badNamespace || error.code == XML_WAR_UNDECLARED_ENTITY;
        if (decides) record(oneLine(error.message == nullptr ? "" : error.message), error.line);
        lastReason_ = oneLine(error.message == nullptr ? "" : error.message);
        lastLine_ = error.line;
    }

    struct CachedName {
        const xmlChar* prefix = nullptr;
        const xmlChar* local = nullptr;
        const dom::Name* name = nullptr;
    };
    using NameCache = std::array<CachedName, 64>;

    /// The parser hands out one pointer per name, so pointers stand for names here.
    const dom::Name* name(NameCache& cache, const xmlChar* prefix, const xmlChar* local) {
        const auto hash = (reinterpret_cast<std::uintptr_t>(local) >> 3) ^
                          (reinterpret_cast<std::uintptr_t>(prefix) >> 5);
        CachedName& cached = cache[hash % cache.size()];
        if (cached.name == nullptr || cached.local != local || cached.prefix != prefix) {
            const dom::Name* made = prefix == nullptr ? builder_.name(view(local))
                                                      : builder_.name(qualified(prefix, local));
            cached = {prefix, local, made};
        }
        return cached.name;
    }

    static std::string qualified(const xmlChar* prefix, const xmlChar* local) {
        if (prefix == nullptr) return std::string(view(local));
        return std::string(view(prefix)).append(":").append(view(local));
    }

    struct Namespaces {
        const xmlChar** pairs;  ///< prefix (null for the default namespace), address
        std::size_t count;
    };
    struct Attributes {
        const xmlChar** fields;  ///< five each: local name, prefix, address, text, end of text
        std::size_t count;

        const xmlChar* local(std::size_t i) const { return fields[i * 5]; }
        const xmlChar* prefix(std::size_t i) const { return fields[i * 5 + 1]; }
        std::string_view text(std::size_t i) const {
            return view(fields[i * 5 + 3], fields[i * 5 + 4]);
        }
    };

    void startElement(const xmlChar* prefix, const xmlChar* local, Namespaces namespaces,
                      Attributes attributes) {
        flushText();
        if (++depth_ > dom::maxDepth) {
            stop("Nesting deeper than 1,000 elements");
            return;
        }
        const std::size_t begin = passMarkup();
        builder_.beginElement(name(elementNames_, prefix, local),
                              namespaces.count + attributes.count, offsetInAll(begin));
        if (namespaces.count == 0) {
            for (std::size_t i = 0; i < attributes.count; ++i)
                addAttribute(attributes, i);
        } else {
            addInWrittenOrder(source_.substr(begin, position() - begin), namespaces, attributes);
        }
        for (std::size_t i = 0; i < attributes.count && preserveDepth_ == 0; ++i) {
            if (attributes.text(i) == "preserve" && view(attributes.local(i)) == "space" &&
                view(attributes.prefix(i)) == "xml") {
                preserveDepth_ = depth_;
            }
        }
    }

    void addAttribute(const Attributes& attributes, std::size_t i) {
        builder_.attribute(name(attributeNames_, attributes.prefix(i), attributes.local(i)),
                           attributes.text(i));
    }

    // Namespace declarations come apart from the attributes: the tag itself tells where they stood.
    // Each of the two lists is in written order already.
    void addInWrittenOrder(std::string_view tag, Namespaces namespaces, Attributes attributes) {
        std::size_t nextNamespace = 0;
        std::size_t nextAttribute = 0;
        const auto declaration = [&] {
            const xmlChar* prefix = namespaces.pairs[nextNamespace * 2];
            return prefix == nullptr ? "xmlns" : "xmlns:" + std::string(view(prefix));
        };
        const auto declare = [&](const std::string& attributeName) {
            const std::string_view address = view(namespaces.pairs[nextNamespace++ * 2 + 1]);
            builder_.attribute(builder_.name(attributeName), address);
        };
        for (WrittenAttributes inTag(tag); inTag.next();) {
            const std::string_view written = inTag.name();
            if (written != "xmlns" && !written.starts_with("xmlns:")) {
                if (nextAttribute < attributes.count) addAttribute(attributes, nextAttribute++);
            } else if (nextNamespace < namespaces.count && written == declaration()) {
                declare(declaration());
            }
        }
        // What a document type declares as a default is not in the tag.
        while (nextNamespace < namespaces.count)
            declare(declaration());
        while (nextAttribute < attributes.count)
            addAttribute(attributes, nextAttribute++);
    }

    void endElement() {
        flushText();
        if (preserveDepth_ == depth_) preserveDepth_ = 0;
        --depth_;
        builder_.endElement();
        markupEnd_ = position();
    }

    // Text arrives in pieces. As long as they follow each other in the source, nothing is copied.
    void characters(std::string_view piece) {
        if (text_.empty()) {
            text_ = piece;
            if (!inSource(piece)) text_ = joined_.assign(piece);
        } else if (text_.data() != joined_.data() && piece.data() == text_.data() + text_.size()) {
            text_ = {text_.data(), text_.size() + piece.size()};
        } else {
            if (text_.data() != joined_.data()) joined_.assign(text_);
            text_ = joined_.append(piece);
        }
    }

    bool inSource(std::string_view piece) const {
        const std::less_equal<const char*> notAfter;
        return notAfter(source_.data(), piece.data()) &&
               notAfter(piece.data() + piece.size(), source_.data() + source_.size());
    }

    void flushText() {
        if (text_.empty()) return;
        if (preserveDepth_ != 0 || !std::ranges::all_of(text_, isBlank)) {
            builder_.text(text_);
        }
        text_ = {};
        joined_.clear();
    }

    void data(NodeType type, std::string_view text, std::string_view target = {}) {
        if (inDocumentType_) return;  // kept with the document type, as written
        flushText();
        builder_.data(type, text, offsetInAll(passMarkup()), target);
    }

    std::size_t position() const {
        return static_cast<std::size_t>(reinterpret_cast<const char*>(context_->input->cur) -
                                        source_.data());
    }

    /// Where the markup begins that the parser has just read: no "<" stands between it and the
    /// markup before.
    std::size_t passMarkup() {
        const std::size_t begin = std::min(source_.find('<', markupEnd_), source_.size());
        markupEnd_ = position();
        return begin;
    }

    /// A byte order mark is a part of what the document keeps.
    std::size_t offsetInAll(std::size_t offset) const {
        return offset + (builder_.source().size() - source_.size());
    }

    void beginDocumentType(std::string_view documentTypeName) {
        inDocumentType_ = true;
        documentTypeName_ = documentTypeName;
        documentTypeStart_ = passMarkup();
    }

    void endDocumentType() {
        if (!inDocumentType_) return;
        inDocumentType_ = false;
        markupEnd_ = position();
        builder_.data(NodeType::documentType,
                      source_.substr(documentTypeStart_, markupEnd_ - documentTypeStart_),
                      offsetInAll(documentTypeStart_), documentTypeName_);
    }

    dom::TreeBuilder& builder_;
    std::string_view source_;
    xmlParserCtxt* context_ = nullptr;
    NameCache elementNames_;
    NameCache attributeNames_;  ///< few, and not to be pushed out by those of elements
    std::exception_ptr thrown_;
    std::string lastReason_;
    int lastLine_ = 1;
    std::string_view text_;  ///< collected so far: a part of the source, or all of `joined_`
    std::string joined_;
    std::size_t depth_ = 0;
    std::size_t preserveDepth_ = 0;  ///< depth of the outermost xml:space="preserve", 0 for none
    bool inDocumentType_ = false;
    std::string documentTypeName_;
    std::size_t documentTypeStart_ = 0;
    std::size_t markupEnd_ = 0;  ///< at or behind the last "<" that counts, before the next
};

bool startsWithDeclaration(std::string_view source) {
    if (source.starts_with(byteOrderMark)) source.remove_prefix(byteOrderMark.size());
    return source.starts_with("<?xml") && source.size() > 5 && isBlank(source[5]);
}

}  // namespace

ParseResult readXml(dom::Source source) {
    ParseResult result;
    auto document = std::make_unique<dom::Document>();
    dom::TreeBuilder builder(*document, std::move(source));
    Reader reader(builder);
    if (reader.parse()) {
        builder.setDeclaration(startsWithDeclaration(builder.source()));
        result.document = std::move(document);
    } else {
        result.refusal = std::move(reader.refusal);
    }
    return result;
}

ParseResult readXml(std::string_view text) { return readXml(dom::Source::copy(text)); }

}  // namespace tavisk
