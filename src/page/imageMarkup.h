// Turns picture, external picture and overlay tokens into page markup.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formulas/tokenTable.h"
#include "xml/dom.h"

namespace tavisk {

/// `imageparse` for one state of the document's pictures, prepared once and used for many texts.
class ImageParser {
public:
    ImageParser(const dom::Document& document, std::string_view imagefolder);

    /// Rewrites `text` in place; error 6 when it is over 32,767 UTF-16 code units after the known
    /// pictures are in.
    void parse(std::string& text);

private:
    TokenTable table_;
};

/// Whether overlays are written a second time, for browsers that know VML.
enum class OverlayMarkup { vmlToo, picturesOnly };

/// `overlayparse`, prepared once. Construction throws error 13 or 6 for the generated picture's
/// size.
class OverlayParser {
public:
    OverlayParser(const dom::Document& document, std::string_view imagefolder, double scale,
                  OverlayMarkup markup = OverlayMarkup::vmlToo);

    void parse(std::string& text) { table_.replaceIn(text); }

private:
    TokenTable table_;
};

/// Known pictures become `img` tags, unknown ones "Bad Image", external ones an `img` tag with
/// their path. The second scan stops at the length that the text had before it, so a token near the
/// end can stay.
std::string imageparse(std::string_view fulltext, const dom::Document& document,
                       std::string_view imagefolder);

/// Overlay tokens become a block that lays the picture half-transparently over the generated one.
std::string overlayparse(std::string_view fulltext, const dom::Document& document,
                         std::string_view imagefolder, double scale);

}  // namespace tavisk
