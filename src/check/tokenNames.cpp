#include "check/tokenNames.h"

#include "base/text.h"
#include "document/xmlParse.h"
#include "formulas/tokens.h"
#include "page/imageStore.h"

namespace tavisk {
namespace {

bool isReadable(const dom::Node* element) { return element->attributes().size() <= maxCount; }

}  // namespace

TokenNames::TokenNames(const dom::Document& document)
    : formulas_(document.elementsByTagName("formula")),
      pictures_(document.elementsByTagName("image")),
      pictureNames_{generatedPictureName} {
    for (const dom::Node* formula : formulas_) {
        if (!isReadable(formula)) continue;
        formulaNames_.insert(GetAttributeValue(formula, "name", ""));
        // A formula's value may hold tokens of its own.
        usePicturesIn(GetAttributeValue(formula, "value", ""));
    }
    for (const dom::Node* picture : pictures_) {
        if (isReadable(picture)) pictureNames_.insert(GetAttributeValue(picture, "name", ""));
    }
}

bool TokenNames::knowsFormula(std::string_view name) const {
    return name == "code" || name == "type" || hasFormula(name);
}

void TokenNames::usePicturesIn(std::string_view text) {
    if (text.find('`') == std::string_view::npos || utf16Length(text) > maxCount) return;
    std::vector<Token> tokens;
    scanTokens(text, tokens);
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::image || token.kind == TokenKind::overlay) {
            usePicture(tokenBody(text, token).substr(1));
        }
    }
}

}  // namespace tavisk
