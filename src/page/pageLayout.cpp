#include "page/pageLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include "base/codePage1252.h"
#include "base/error.h"
#include "base/text.h"
#include "document/xmlParse.h"
#include "page/nodeParse.h"
#include "page/nodeRow.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

constexpr std::string_view pageHead =
    "<html xmlns:v=\"urn:schemas-microsoft-com:vml\"><head><link rel=\"stylesheet\" "
    "href=\"style.css\" type=\"text/css\"></head>";
constexpr std::string_view layoutOpening = "<table border=0><tr><td valign='top' align='left'>\r\n";
constexpr std::string_view layoutClosing = "</table>&nbsp;\r\n";
constexpr std::string_view gapRow = "<tr><td colspan=2>&nbsp;</td></tr>";
constexpr std::string_view columnBreak = "</table></td><td valign='top' align='left'><table>";
constexpr std::string_view pageBreak =
    "</table></td></tr></table><br clear=all style='page-break-before:always'>"
    "<table><tr><td valign='top' align='left'><table>";

constexpr std::array<AttributeDefault, 4> layoutAttributes{{
    {"spacebefore", "0"},
    {"spaceafter", "0"},
    {"columnbreak", "0"},
    {"pagebreak", "0"},
}};

bool isCalled(const dom::Node& node, std::string_view special) {
    const std::string_view name = node.nodeName();
    return name.size() == special.size() && lowerAscii(capitalizeWords(name)) == special;
}

/// What a node's attributes ask of the layout around it.
struct Frame {
    double gapsBefore;
    double gapsAfter;
    bool columnBreak;
    bool pageBreak;
};

Frame frameOf(std::span<const ShownAttribute> attributes) {
    const auto [before, after, column, page] = GetAttributeValues(attributes, layoutAttributes);
    return {std::floor(leadingNumber(before)), std::floor(leadingNumber(after)), column == "1",
            page == "1"};
}

/// Lays out a tree into a buffer that is handed on and emptied whenever enough has gathered.
class Layout {
public:
    /// With a parser, nodes are laid out as it expands them.
    Layout(NodeParser* parser, TakePiece handOn) : parser_(parser), handOn_(std::move(handOn)) {}

    /// Errors of expansion come first, wherever in the tree they are: in a rendered copy they would
    /// have come up before its layout began.
    void run(const dom::Node& start, bool nested) {
        visit(start, nested);
        if (failure_) std::rethrow_exception(failure_);
        passOn();
    }

private:
    static constexpr std::size_t enough = std::size_t{64} << 10;

    void visit(const dom::Node& node, bool nested) {
        const Frame frame = begin(node, nested);
        for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
            visit(*child, true);
        }
        attempt([&] {
            gaps(frame.gapsAfter);
            if (frame.columnBreak) html_ += columnBreak;
            if (frame.pageBreak) html_ += pageBreak;
            if (!nested) html_ += layoutClosing;
        });
    }

    Frame begin(const dom::Node& node, bool nested) {
        const auto attributes = parser_ != nullptr ? parser_->expandAttributes(node)
                                                   : shownAttributes(node, attributes_);
        Frame frame{};
        attempt([&] {
            frame = frameOf(attributes);
            if (!nested) html_ += layoutOpening;
            gaps(frame.gapsBefore);
            if (nested) appendNodeRow(html_, node.baseName(), attributes);
        });
        return frame;
    }

    /// A step of the layout. After the first that fails only expansion goes on.
    template <class Step>
    void attempt(Step step) {
        if (failure_) return;
        try {
            step();
            if (html_.size() >= enough) passOn();
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    void gaps(double count) {
        if (!(count > 0)) return;
        constexpr std::size_t most = maxPageSize / gapRow.size();
        if (count > static_cast<double>(most)) raise(ErrorNumber::outOfMemory);
        for (auto left = static_cast<std::size_t>(count); left > 0; --left) {
            html_ += gapRow;
            if (html_.size() >= enough) passOn();
        }
    }

    void passOn() {
        size_ += html_.size();
        if (size_ > maxPageSize) raise(ErrorNumber::outOfMemory);
        handOn_(html_);
        html_.clear();
    }

    NodeParser* parser_;
    TakePiece handOn_;
    std::vector<ShownAttribute> attributes_;
    std::string html_;
    std::size_t size_ = 0;  ///< bytes handed on
    std::exception_ptr failure_;
};

/// The `value` of the first element called `special` that has one, in document order.
std::string specialValue(const dom::Node& start, std::string_view special, NodeParser* parser) {
    constexpr std::array<AttributeDefault, 1> valueAttribute{{{"value", ""}}};
    std::vector<ShownAttribute> memory;
    for (const dom::Node* node = &start; node != nullptr; node = nextInDocument(*node, start)) {
        if (!isCalled(*node, special)) continue;
        const auto [value] = GetAttributeValues(
            parser != nullptr ? parser->expandAttributes(*node) : shownAttributes(*node, memory),
            valueAttribute);
        if (!value.empty()) return std::string(value);
    }
    return {};
}

std::string heading(std::string_view code) {
    return std::string("<h3>").append(code).append("</h3>");
}

/// Encodes and writes; remembers the first failure to encode and then writes nothing more.
class PageOutput {
public:
    explicit PageOutput(const Files::Write& write) : write_(write) {}

    void put(std::string& utf8) {
        if (failure_) return;
        try {
            encodeCodePage1252(utf8);
        } catch (...) {
            failure_ = std::current_exception();
            return;
        }
        write_(utf8);
    }

    void finish() const {
        if (failure_) std::rethrow_exception(failure_);
        write_(pageEnd);
    }

private:
    const Files::Write& write_;
    std::exception_ptr failure_;
};

}  // namespace

LayoutResult layoutNode(const dom::Node& node, bool nested) {
    LayoutResult result;
    result.code = specialValue(node, "code", nullptr);
    result.type = specialValue(node, "type", nullptr);
    if (!nested) result.html = heading(result.code);
    Layout(nullptr, [&](std::string& html) { result.html += html; }).run(node, nested);
    if (!nested) result.xml = writeXml(node);
    return result;
}

void layoutPage(const dom::Node& start, NodeParser* parser, const TakePiece& take) {
    std::string head;
    try {
        head = heading(specialValue(start, "code", parser));
    } catch (const RunTimeError&) {
        // The layout meets the same error, in its order among the others.
    }
    take(head);
    Layout(parser, take).run(start, false);
}

void writePage(Files& files, const std::string& path, const dom::Node& start, NodeParser* parser) {
    files.replaceBy(path, [&](const Files::Write& write) {
        write(pageHead);
        write(pageBegin);
        PageOutput output(write);
        layoutPage(start, parser, [&](std::string& html) { output.put(html); });
        output.finish();
    });
}

}  // namespace tavisk
