#include "reference/pageReference.h"

#include <cmath>
#include <optional>

#include "reference/plainText.h"

namespace tavisk::reference {
namespace {

constexpr double largestPage = 1024.0 * 1024.0 * 1024.0;
constexpr double longestGap = 16.0 * 1024.0 * 1024.0;

std::u16string asciiCase(std::u16string text, char16_t first, char16_t last, int step) {
    for (char16_t& c : text) {
        if (c >= first && c <= last) c = static_cast<char16_t>(c + step);
    }
    return text;
}

std::u16string upper(const std::u16string& text) { return asciiCase(text, u'a', u'z', -32); }
std::u16string lower(const std::u16string& text) { return asciiCase(text, u'A', u'Z', 32); }

void appendGaps(std::u16string& html, const PlainNode& node, const std::u16string& attribute) {
    const std::u16string row = u"<tr><td colspan=2>&nbsp;</td></tr>";
    const double n = std::floor(leadingNumberOf(attributeOf(&node, attribute, u"0")));
    const double length = n * static_cast<double>(row.size());
    if (length > largestPage) throw Failure{ErrorNumber::outOfMemory};
    if (length > longestGap) throw TooLong{};
    for (double i = 1; i <= n; ++i)
        html += row;
}

// Opening and closing tags of a title or an answer.
struct Tags {
    std::u16string opening;
    std::u16string closing;
};

Tags tagsFor(int style, int bold, int italic, int underline, const std::u16string& colour,
             int size) {
    Tags tags;
    if ((style & bold) != 0) tags.opening += u"<b>";
    if ((style & italic) != 0) tags.opening += u"<i>";
    if ((style & underline) != 0) tags.opening += u"<u>";
    tags.opening += u"<font color=\"" + colour + u"\" size=\"";
    tags.opening += size >= 0 ? u"+" : u"-";
    tags.opening += decimal(std::abs(size)) + u"\">";
    tags.closing = u"</font>";
    if ((style & underline) != 0) tags.closing += u"</u>";
    if ((style & italic) != 0) tags.closing += u"</i>";
    if ((style & bold) != 0) tags.closing += u"</b>";
    return tags;
}

// No value for text that is not padded base64.
std::optional<std::string> bytesOfBase64(const std::u16string& text) {
    const std::u16string alphabet =
        u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::u16string packed;
    for (const char16_t c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r') packed += c;
    }
    if (packed.size() % 4 != 0) return std::nullopt;
    std::string bytes;
    for (std::size_t at = 0; at < packed.size(); at += 4) {
        std::u16string group = packed.substr(at, 4);
        std::size_t padding = 0;
        while (padding < 2 && group[3 - padding] == u'=')
            ++padding;
        if (padding != 0 && at + 4 != packed.size()) return std::nullopt;
        std::size_t bits = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            std::size_t digit = 0;
            if (i < 4 - padding) {
                digit = alphabet.find(group[i]);
                if (digit == std::u16string::npos) return std::nullopt;
            }
            bits = bits * 64 + digit;
        }
        for (std::size_t i = 0; i < 3 - padding; ++i) {
            bytes += static_cast<char>((bits >> (16 - 8 * i)) & 0xFF);
        }
    }
    return bytes;
}

std::u16string contentOf(const PlainNode& node) {
    if (node.kind == Kind::text || node.kind == Kind::cdata) return node.data;
    std::u16string content;
    for (const PlainNode& child : node.children)
        content += contentOf(child);
    return content;
}

}  // namespace

std::u16string capitalizeWords(const std::u16string& name) {
    std::vector<std::u16string> segments{u""};
    for (const char16_t c : name) {
        if (c == u'_') {
            segments.push_back(u"");
        } else {
            segments.back() += c;
        }
    }
    std::u16string words;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (i > 0) words += u" ";
        if (!segments[i].empty()) words += upper(segments[i].substr(0, 1)) + segments[i].substr(1);
    }
    return words;
}

PlainNode nodeparse(const PlainNode& node, const PlainNode& document,
                    const std::vector<PlainFormula>& catalogue, const std::u16string& imageTemp) {
    PlainNode copy{node.kind, node.name, node.attributes, node.data, {}};
    for (PlainAttribute& attribute : copy.attributes) {
        attribute.text = replaceEvery(attribute.text, u"\n", u"<br>");
        attribute.text = formulaparse(attribute.text, catalogue);
        attribute.text = imageparse(attribute.text, document, imageTemp);
        attribute.text = overlayparse(attribute.text, document, imageTemp, 1);
    }
    for (const PlainNode& child : node.children) {
        copy.children.push_back(nodeparse(child, document, catalogue, imageTemp));
    }
    return copy;
}

std::u16string renderNodeRow(const PlainNode& node) {
    const auto number = [&](const std::u16string& name) {
        return floorTo16(leadingNumberOf(attributeOf(&node, name, u"0")));
    };
    const int style = number(u"style");
    const std::u16string titlecolor = attributeOf(&node, u"titlecolor", u"#000000");
    const std::u16string answercolor = attributeOf(&node, u"answercolor", u"#000000");
    const int titlefontsize = number(u"titlefontsize");
    const int answerfontsize = number(u"answerfontsize");
    const std::u16string value = attributeOf(&node, u"value", u"");
    const bool titlehidden = attributeOf(&node, u"titlehidden", u"0") == u"1";
    const bool answerhidden = attributeOf(&node, u"answerhidden", u"0") == u"1";

    const Tags title = tagsFor(style, 1, 2, 4, titlecolor, titlefontsize);
    const Tags answer = tagsFor(style, 8, 16, 32, answercolor, answerfontsize);
    const std::u16string titleText = replaceEvery(baseName(node), u"_", u" ");

    if (titlehidden && answerhidden) return u"";
    if (titlehidden) {
        return u"<tr>\r\n\t<td colspan=2>\r\n\t\t" + answer.opening + value + answer.closing +
               u"\r\n\t</td>\r\n</tr>\r\n";
    }
    if (answerhidden) {
        return u"<tr>\r\n\t<td colspan=2>\r\n\t\t" + title.opening + titleText + title.closing +
               u"\r\n\t</td>\r\n</tr>\r\n";
    }
    std::u16string row = u"<tr>\r\n\t";
    row += value.empty() ? u"<td colspan=2>" : u"<td>";
    row += u"\r\n\t\t" + title.opening + titleText + title.closing + u"\r\n\t</td>\r\n";
    if (!value.empty()) {
        row += u"\t<td>\r\n\t\t" + answer.opening + value + answer.closing + u"\r\n\t</td>\r\n";
    }
    row += u"</tr>\r\n";
    return row;
}

PlainLayout layoutNode(const PlainNode& node, bool nested) {
    PlainLayout result;
    if (!nested) result.html = u"<table border=0><tr><td valign='top' align='left'>\r\n";
    appendGaps(result.html, node, u"spacebefore");
    const bool named = node.kind == Kind::element || node.kind == Kind::instruction;
    const std::u16string special = lower(capitalizeWords(named ? node.name : u""));
    if (special == u"code") {
        result.code = attributeOf(&node, u"value", u"");
    } else if (special == u"type") {
        result.type = attributeOf(&node, u"value", u"");
    }
    if (nested) result.html += renderNodeRow(node);
    for (const PlainNode& child : node.children) {
        const PlainLayout below = layoutNode(child, true);
        result.html += below.html;
        if (result.code.empty()) result.code = below.code;
        if (result.type.empty()) result.type = below.type;
    }
    appendGaps(result.html, node, u"spaceafter");
    if (attributeOf(&node, u"columnbreak", u"0") == u"1") {
        result.html += u"</table></td><td valign='top' align='left'><table>";
    }
    if (attributeOf(&node, u"pagebreak", u"0") == u"1") {
        result.html +=
            u"</table></td></tr></table><br clear=all style='page-break-before:always'>"
            u"<table><tr><td valign='top' align='left'><table>";
    }
    if (!nested) {
        result.html += u"</table>&nbsp;\r\n";
        result.html = u"<h3>" + result.code + u"</h3>" + result.html;
    }
    return result;
}

std::string pageBytes(const std::u16string& html) {
    const std::u16string head =
        u"<html xmlns:v=\"urn:schemas-microsoft-com:vml\"><head><link rel=\"stylesheet\" "
        u"href=\"style.css\" type=\"text/css\"></head><body><table width=100%><tr><td>";
    const std::u16string tail = u"</td></tr></table></body></html>";
    return codePage1252Of(head + u"\r\n" + html + u"\r\n" + tail);
}

void dumpImages(const PlainNode& document, const std::u16string& path, PlainFiles& files) {
    for (const PlainNode* image : elementsNamed(document, u"image")) {
        const std::u16string file = attributeOf(image, u"name", u"default") + u"." +
                                    attributeOf(image, u"extension", u"bmp");
        // A name that leads out of the folder counts before what would be written under it.
        if (file.find(u'/') != std::u16string::npos || file == u"." || file == u"..") {
            throw Failure{ErrorNumber::badFileName};
        }
        const std::optional<std::string> bytes = bytesOfBase64(contentOf(*image));
        if (!bytes) throw Failure{ErrorNumber::typeMismatch};
        std::string& stored = files[utf8Of(path + file)];
        stored = *bytes + (stored.size() > bytes->size() ? stored.substr(bytes->size()) : "");
    }
}

PlainFiles preview(const PlainNode& document, const std::vector<PlainFormula>& catalogue,
                   const std::u16string& folder, bool evaluateFormula) {
    PlainFiles files;
    const PlainNode& cabinet = *elementsNamed(document, u"cabinet").front();
    const std::u16string imageTemp = folder + u"/temp_images/";
    std::u16string html;
    if (evaluateFormula) {
        dumpImages(document, imageTemp, files);
        const PlainNode copy = nodeparse(cabinet, document, catalogue, imageTemp);
        html = layoutNode(copy, false).html;
    } else {
        html = layoutNode(cabinet, false).html;
    }
    files[utf8Of(folder + u"/temp.html")] = pageBytes(html);
    return files;
}

}  // namespace tavisk::reference
