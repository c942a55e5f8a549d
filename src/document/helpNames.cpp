#include "document/helpNames.h"

#include <algorithm>

namespace tavisk {
namespace {

std::string replaced(std::string_view name, char what, char with) {
    std::string out(name);
    std::ranges::replace(out, what, with);
    return out;
}

}  // namespace

std::string shownName(std::string_view elementName) { return replaced(elementName, '_', ' '); }

std::string elementName(std::string_view shownName) { return replaced(shownName, ' ', '_'); }

}  // namespace tavisk
