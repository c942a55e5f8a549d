#include "page/imageMarkup.h"

#include "base/text.h"
#include "document/xmlParse.h"
#include "formulas/tokens.h"
#include "page/imageStore.h"

namespace tavisk {
namespace {

bool isPicture(TokenKind kind) {
    return kind == TokenKind::image || kind == TokenKind::externalImage;
}

/// For tokens that no known picture has replaced; the body begins with its kind's character.
std::u16string leftoverPicture(TokenKind kind, std::u16string_view body) {
    if (kind == TokenKind::image) return u"Bad Image";
    return std::u16string(u"<img src='").append(body.substr(1)).append(u"'>");
}

std::string sizeAttribute(const dom::Node& image, std::string_view name) {
    const std::string_view size = GetAttributeValue(&image, name, "");
    if (size.empty()) return {};
    return std::string(" ").append(name).append("='").append(size).append("'");
}

/// The picture's file name as `dumpImages` writes it, but with the page's own defaults.
std::string fileName(const dom::Node* image) {
    return std::string(GetAttributeValue(image, "name", "Unknown"))
        .append(".")
        .append(GetAttributeValue(image, "extension", "png"));
}

int scaledSize(const dom::Node* image, std::string_view name, double scale) {
    return round16(strictNumber(GetAttributeValue(image, name, "256")) * scale);
}

std::string overlayBlock(const std::string& bottom, const std::string& top, int width, int height,
                         OverlayMarkup markup) {
    const std::string h = std::to_string(height);
    const std::string size = "width:" + std::to_string(width) + "px;height:" + h + "px'";
    const auto shape = [&](const char* id, const char* layer, const std::string& source) {
        return std::string("<v:shape id='") + id + "' style='position:absolute;z-index:" + layer +
               ";" + size + ">\r\n<v:imagedata src='" + source +
               "'/>\r\n<v:fill opacity='.5'/>\r\n</v:shape>\r\n";
    };
    const auto picture = [&](const char* id, const char* layer, const std::string& source) {
        return "<img src='" + source + "' style='position:absolute;z-index:" + layer + ";" + size +
               " v:shapes='" + id + "'>\r\n";
    };
    const std::string vml = "<!--[if gte vml 1]>\r\n" + shape("_OVERLAY_BOTTOM", "0", bottom) +
                            shape("_OVERLAY_TOP", "1", top) + "<![endif]-->\r\n";
    return "<div>\r\n" + (markup == OverlayMarkup::vmlToo ? vml : std::string()) +
           picture("_OVERLAY_BOTTOM", "0", bottom) + picture("_OVERLAY_TOP", "1", top) +
           "</div><table border=0><tr style='height:" + h + "px'><td>&nbsp;</td></tr></table>";
}

}  // namespace

ImageParser::ImageParser(const dom::Document& document, std::string_view imagefolder) {
    for (const dom::Node* image : document.elementsByTagName("image")) {
        std::string tag("<img src='");
        tag.append(imagefolder).append("/").append(fileName(image)).append("'");
        tag.append(sizeAttribute(*image, "height")).append(sizeAttribute(*image, "width"));
        tag.append(">");
        table_.add("~" + std::string(GetAttributeValue(image, "name", "")), std::move(tag));
    }
}

void ImageParser::parse(std::string& text) {
    table_.replaceIn(text);
    rewriteTokens(text, isPicture, leftoverPicture);
}

OverlayParser::OverlayParser(const dom::Document& document, std::string_view imagefolder,
                             double scale, OverlayMarkup markup) {
    const auto images = document.elementsByTagName("image");
    const dom::Node* bottom = nullptr;
    for (const dom::Node* image : images) {
        if (GetAttributeValue(image, "name", "") == generatedPictureName) bottom = image;
    }
    const std::string folder(imagefolder);
    const std::string bottomSource = folder + fileName(bottom);
    const int height = scaledSize(bottom, "height", scale);
    const int width = scaledSize(bottom, "width", scale);
    for (const dom::Node* image : images) {
        table_.add("!" + std::string(GetAttributeValue(image, "name", "")),
                   overlayBlock(bottomSource, folder + fileName(image), width, height, markup));
    }
}

std::string imageparse(std::string_view fulltext, const dom::Document& document,
                       std::string_view imagefolder) {
    std::string text(fulltext);
    ImageParser(document, imagefolder).parse(text);
    return text;
}

std::string overlayparse(std::string_view fulltext, const dom::Document& document,
                         std::string_view imagefolder, double scale) {
    std::string text(fulltext);
    OverlayParser(document, imagefolder, scale).parse(text);
    return text;
}

}  // namespace tavisk
