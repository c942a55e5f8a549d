#include "reference/tokenReference.h"

#include "reference/plainText.h"

namespace tavisk::reference {
namespace {

// The text with the characters from `open` to `close`, counted from 1, replaced.
std::u16string splice(const std::u16string& text, int open, int close, const std::u16string& with) {
    return text.substr(0, static_cast<std::size_t>(open - 1)) + with +
           text.substr(static_cast<std::size_t>(close));
}

std::u16string overlayBlock(const std::u16string& bottomSrc, const std::u16string& topSrc,
                            const std::u16string& w, const std::u16string& h) {
    const std::u16string nl = u"\r\n";
    return u"<div>" + nl +                                                                   //
           u"<!--[if gte vml 1]>" + nl +                                                     //
           u"<v:shape id='_OVERLAY_BOTTOM' style='position:absolute;z-index:0;width:" + w +  //
           u"px;height:" + h + u"px'>" + nl +                                                //
           u"<v:imagedata src='" + bottomSrc + u"'/>" + nl +                                 //
           u"<v:fill opacity='.5'/>" + nl +                                                  //
           u"</v:shape>" + nl +                                                              //
           u"<v:shape id='_OVERLAY_TOP' style='position:absolute;z-index:1;width:" + w +     //
           u"px;height:" + h + u"px'>" + nl +                                                //
           u"<v:imagedata src='" + topSrc + u"'/>" + nl +                                    //
           u"<v:fill opacity='.5'/>" + nl +                                                  //
           u"</v:shape>" + nl +                                                              //
           u"<![endif]-->" + nl +                                                            //
           u"<img src='" + bottomSrc + u"' style='position:absolute;z-index:0;width:" + w +  //
           u"px;height:" + h + u"px' v:shapes='_OVERLAY_BOTTOM'>" + nl +                     //
           u"<img src='" + topSrc + u"' style='position:absolute;z-index:1;width:" + w +     //
           u"px;height:" + h + u"px' v:shapes='_OVERLAY_TOP'>" + nl +                        //
           u"</div><table border=0><tr style='height:" + h + u"px'><td>&nbsp;</td></tr></table>";
}

}  // namespace

std::vector<PlainFormula> loadFormulas(const PlainNode& document) {
    std::vector<PlainFormula> catalogue;
    for (const PlainNode* element : elementsNamed(document, u"formula")) {
        PlainFormula entry;
        entry.standard = attributeOf(element, u"standard", u"0") == u"1";
        entry.name = attributeOf(element, u"name", u"");
        entry.description = attributeOf(element, u"description", u"");
        entry.value = attributeOf(element, u"value", u"");
        catalogue.push_back(entry);
    }
    return catalogue;
}

std::vector<PlainRun> colourRuns(const std::u16string& text) {
    std::vector<PlainRun> runs;
    const int n = count16(text);
    int open = 0;
    for (int i = 1; i <= n; ++i) {
        if (charAt(text, i) != u'`') continue;
        if (open == 0) {
            open = i;
            continue;
        }
        PlainRun run{open - 1, i - open + 1, PlainColour::olive};
        switch (charAt(text, open + 1)) {
            case u'~': run.colour = PlainColour::blueImage; break;
            case u'!': run.colour = PlainColour::green; break;
            case u'@': run.colour = PlainColour::blueExternal; break;
            default: break;
        }
        runs.push_back(run);
        open = 0;
    }
    return runs;
}

std::u16string formulaparse(std::u16string text, const std::vector<PlainFormula>& catalogue) {
    if (catalogue.empty()) return text;
    for (const PlainFormula& entry : catalogue) {
        text = replaceEvery(text, u"`" + entry.name + u"`", entry.value);
    }
    const int n = count16(text);
    int open = 0;
    for (int i = 1; i <= n; ++i) {
        if (charAt(text, i) != u'`') continue;
        if (open == 0) {
            open = i;
            continue;
        }
        const char16_t kind = charAt(text, open + 1);
        if (kind != u'~' && kind != u'!' && kind != u'@') text = splice(text, open, i, u"Unknown");
        open = 0;
    }
    return text;
}

std::u16string imageparse(std::u16string text, const PlainNode& document,
                          const std::u16string& imagefolder) {
    for (const PlainNode* image : elementsNamed(document, u"image")) {
        std::u16string h = attributeOf(image, u"height", u"");
        if (!h.empty()) h = u" height='" + h + u"'";
        std::u16string w = attributeOf(image, u"width", u"");
        if (!w.empty()) w = u" width='" + w + u"'";
        const std::u16string tokenName = attributeOf(image, u"name", u"");
        const std::u16string srcName = attributeOf(image, u"name", u"Unknown");
        const std::u16string ext = attributeOf(image, u"extension", u"png");
        const std::u16string tag =
            u"<img src='" + imagefolder + u"/" + srcName + u"." + ext + u"'" + h + w + u">";
        text = replaceEvery(text, u"`~" + tokenName + u"`", tag);
    }
    const int n = count16(text);
    int start = 0;
    for (int i = 1; i <= n; ++i) {
        if (charAt(text, i) != u'`') continue;
        if (start == 0) {
            start = i;
            continue;
        }
        const char16_t kind = charAt(text, start + 1);
        if (kind == u'~') {
            text = splice(text, start, i, u"Bad Image");
        } else if (kind == u'@') {
            const std::u16string path = text.substr(static_cast<std::size_t>(start + 1),
                                                    static_cast<std::size_t>(i - start - 2));
            text = splice(text, start, i, u"<img src='" + path + u"'>");
        }
        start = 0;
    }
    return text;
}

std::u16string overlayparse(std::u16string text, const PlainNode& document,
                            const std::u16string& imagefolder, double scale) {
    const std::vector<const PlainNode*> images = elementsNamed(document, u"image");
    const PlainNode* bottom = nullptr;
    for (const PlainNode* image : images) {
        if (attributeOf(image, u"name", u"") == u"generated_cabinet_picture") bottom = image;
    }
    const std::u16string bottomSrc = imagefolder + attributeOf(bottom, u"name", u"Unknown") + u"." +
                                     attributeOf(bottom, u"extension", u"png");
    const int height = roundTo16(strictNumberOf(attributeOf(bottom, u"height", u"256")) * scale);
    const int width = roundTo16(strictNumberOf(attributeOf(bottom, u"width", u"256")) * scale);
    for (const PlainNode* image : images) {
        const std::u16string topSrc = imagefolder + attributeOf(image, u"name", u"Unknown") + u"." +
                                      attributeOf(image, u"extension", u"png");
        const std::u16string tokenName = attributeOf(image, u"name", u"");
        text = replaceEvery(text, u"`!" + tokenName + u"`",
                            overlayBlock(bottomSrc, topSrc, decimal(width), decimal(height)));
    }
    return text;
}

}  // namespace tavisk::reference
