#include "component/hostText.h"

#include "base/text.h"

namespace tavisk {

std::string utf8OfHost(std::u16string_view units) {
    std::string utf8;
    utf8.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool pair = (units[i] & 0xFC00) == 0xD800 && i + 1 < units.size() &&
                          (units[i + 1] & 0xFC00) == 0xDC00;
        if (!pair) {
            appendUtf8(utf8, units[i]);
            continue;
        }
        appendUtf8(utf8, 0x10000U + ((units[i] & 0x3FFU) << 10) + (units[i + 1] & 0x3FFU));
        ++i;
    }
    return utf8;
}

}  // namespace tavisk
