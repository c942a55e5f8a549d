#include "xml/xmlCharacters.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace tavisk {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The name characters of XML 1.0, fifth edition.
constexpr std::array nameStart{
    Range{':', ':'},       Range{'A', 'Z'},       Range{'_', '_'},       Range{'a', 'z'},
    Range{0xC0, 0xD6},     Range{0xD8, 0xF6},     Range{0xF8, 0x2FF},    Range{0x370, 0x37D},
    Range{0x37F, 0x1FFF},  Range{0x200C, 0x200D}, Range{0x2070, 0x218F}, Range{0x2C00, 0x2FEF},
    Range{0x3001, 0xD7FF}, Range{0xF900, 0xFDCF}, Range{0xFDF0, 0xFFFD}, Range{0x10000, 0xEFFFF},
};
constexpr std::array nameRest{
    Range{'-', '-'},   Range{'.', '.'},     Range{'0', '9'},
    Range{0xB7, 0xB7}, Range{0x300, 0x36F}, Range{0x203F, 0x2040},
};

template <class Ranges>
bool inAny(const Ranges& ranges, char32_t c) {
    return std::ranges::any_of(ranges, [c](const Range& r) { return c >= r.first && c <= r.last; });
}

constexpr bool isForbiddenControl(unsigned char c) {
    return c < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

bool hasForbiddenControl(std::string_view text) {
    bool any = false;
    for (const char c : text)
        any |= isForbiddenControl(static_cast<unsigned char>(c));
    return any;
}

}  // namespace

bool isXmlText(std::string_view text) noexcept {
    if (hasForbiddenControl(text)) return false;
    if (isAscii(text)) return true;
    if (findInvalidUtf8(text) != std::string_view::npos) return false;
    // U+FFFE and U+FFFF are the only other characters that are none.
    return text.find("\xEF\xBF\xBE") == std::string_view::npos &&
           text.find("\xEF\xBF\xBF") == std::string_view::npos;
}

bool isXmlName(std::string_view name) noexcept {
    if (name.empty() || findInvalidUtf8(name) != std::string_view::npos) return false;
    const std::size_t colon = name.find(':');
    if (colon != std::string_view::npos && (colon == 0 || colon + 1 == name.size() ||
                                            name.find(':', colon + 1) != std::string_view::npos)) {
        return false;
    }
    bool start = true;  // behind the colon a name starts anew
    for (std::size_t at = 0; at < name.size();) {
        const char32_t c = nextCharacter(name, at);
        if (!inAny(nameStart, c) && (start || !inAny(nameRest, c))) return false;
        start = c == ':';
    }
    return true;
}

bool isReservedTarget(std::string_view name) noexcept {
    return name.size() == 3 && lowerAscii(name) == "xml";
}

}  // namespace tavisk
