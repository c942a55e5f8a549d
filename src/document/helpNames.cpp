#include "document/helpNames.h"

#include <algorithm>
#include <cstddef>

namespace tavisk {
namespace {

std::string replaced(std::string_view name, char what, char with) {
    std::string out(name);
    std::ranges::replace(out, what, with);
    return out;
}

}  // namespace

std::string shownName(std::string_view elementName) { return replaced(elementName, '_', ' '); }

void appendShownName(std::string& text, std::string_view elementName) {
    const auto at = static_cast<std::ptrdiff_t>(text.size());
    text += elementName;
    std::replace(text.begin() + at, text.end(), '_', ' ');
}

std::string elementName(std::string_view shownName) { return replaced(shownName, ' ', '_'); }

}  // namespace tavisk
