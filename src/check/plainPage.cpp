#include "check/plainPage.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "base/codePage1252.h"
#include "base/text.h"
#include "document/xmlParse.h"

namespace tavisk {
namespace {

// Generous all of them: a document that exceeds one is not in error, only not plain.
constexpr std::size_t pictureFolder = 400;  ///< the longest path of the folder, and a tag around it
constexpr std::size_t overlayMarkup = 1200;
constexpr std::size_t rowMarkup = 1000;
constexpr std::size_t gapMarkup = 40;
constexpr std::size_t longestTexts = std::size_t{16} << 20;  ///< of a whole document
constexpr std::size_t longestPage = std::size_t{256} << 20;

/// What a token can become.
struct Replacements {
    bool plain = true;         ///< nothing that makes new tokens or that the page cannot hold
    std::size_t longest = 20;  ///< where lengths are limited; "Unknown", or the tag of a path
    std::size_t overlay = 0;   ///< where they are not

    void take(std::string_view text) {
        plain = plain && text.find('`') == std::string_view::npos &&
                findOutsideCodePage1252(text) == std::string_view::npos;
    }
};

Replacements replacementsOf(const TokenNames& names) {
    Replacements all;
    for (const dom::Node* formula : names.formulas()) {
        const std::string_view value = GetAttributeValue(formula, "value", "");
        all.take(value);
        all.longest = std::max(all.longest, value.size());
    }
    // The generated picture is there at last.
    std::size_t longestPicture = pictureFolder;
    for (const dom::Node* picture : names.pictures()) {
        std::size_t size = pictureFolder;
        for (const std::string_view part : {"name", "extension", "width", "height"}) {
            const std::string_view text = GetAttributeValue(picture, part, "");
            all.take(text);
            size += text.size();
        }
        longestPicture = std::max(longestPicture, size);
    }
    all.longest = std::max(all.longest, longestPicture);
    all.overlay = overlayMarkup + 4 * longestPicture;
    return all;
}

class Estimate {
public:
    explicit Estimate(const Replacements& replacements) : replacements_(replacements) {}

    bool add(const dom::Node& node) {
        if (!node.isElement()) return false;
        page_ += rowMarkup + node.baseName().size();
        for (const dom::Attribute& attribute : node.attributes()) {
            if (!add(attribute.text())) return false;
        }
        // Gaps beyond the whole page are not worth counting.
        for (const std::string_view gap : {"spacebefore", "spaceafter"}) {
            const double rows = leadingNumber(GetAttributeValue(&node, gap, "0"));
            if (rows * gapMarkup > static_cast<double>(longestPage)) return false;
            if (rows > 0) page_ += static_cast<std::size_t>(std::ceil(rows)) * gapMarkup;
        }
        return page_ <= longestPage;
    }

private:
    bool add(std::string_view text) {
        texts_ += text.size();
        if (texts_ > longestTexts) return false;
        // Every token takes two backquotes away, and nothing adds any.
        const auto tokens = static_cast<std::size_t>(std::ranges::count(text, '`')) / 2;
        page_ += 4 * text.size() + tokens * std::max(replacements_.longest, replacements_.overlay);
        const std::size_t inTokens = tokens * replacements_.longest;
        // As if all of it were line feeds, each of which becomes "<br>".
        if (4 * text.size() + inTokens <= maxCount) return true;
        const auto breaks = static_cast<std::size_t>(std::ranges::count(text, '\n'));
        return text.size() + 3 * breaks + inTokens <= maxCount;
    }

    const Replacements& replacements_;
    std::size_t texts_ = 0;
    std::size_t page_ = 0;
};

}  // namespace

bool pageCannotFail(const dom::Node& cabinet, const TokenNames& names) {
    const Replacements replacements = replacementsOf(names);
    if (!replacements.plain) return false;
    Estimate estimate(replacements);
    for (const dom::Node* node = &cabinet; node != nullptr; node = nextInDocument(*node, cabinet)) {
        if (!estimate.add(*node)) return false;
    }
    return true;
}

}  // namespace tavisk
