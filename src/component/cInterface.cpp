#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <tavisk/tavisk.h>

#include "component/component.h"
#include "platform/error.h"
#include "platform/text.h"

namespace tavisk {
namespace {

/// A copy that the caller gives back with tavisk_free; null when memory is missing.
template <class Unit>
Unit* handOut(const Unit* text, std::size_t length) noexcept {
    auto* copy = static_cast<Unit*>(std::malloc((length + 1) * sizeof(Unit)));
    if (!copy) return nullptr;
    std::memcpy(copy, text, length * sizeof(Unit));
    copy[length] = 0;
    return copy;
}

int report(const RunTimeError& error, char** text) noexcept {
    if (text) *text = handOut(error.what(), std::strlen(error.what()));
    return error.number();
}

/// Half of a surrogate pair becomes bytes that are not UTF-8, which parsing refuses with their
/// line.
std::string utf8Of(const uint16_t* xml) {
    static_assert(sizeof(uint16_t) == sizeof(char16_t));
    const std::u16string_view units(reinterpret_cast<const char16_t*>(xml));
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

std::size_t lengthOf(const uint16_t* xml) {
    return std::u16string_view(reinterpret_cast<const char16_t*>(xml)).size();
}

/// `body` does the call and returns the edited text, UTF-8 or UTF-16, in memory that was handed
/// out.
template <class Unit, class Body>
int edit(const Unit* xml, std::size_t length, Unit** result, char** errorText, Body body) noexcept {
    try {
        const EditResult edited = body();
        if (!edited.error) {
            *result = nullptr;
            if constexpr (sizeof(Unit) == 1) {
                *result = handOut(edited.text.data(), edited.text.size());
            } else {
                const std::u16string units = toUtf16(edited.text);
                *result = handOut(reinterpret_cast<const Unit*>(units.data()), units.size());
            }
            if (*result) return 0;
            raise(ErrorNumber::outOfMemory);
        }
        *result = handOut(xml, length);
        return report(*edited.error, errorText);
    } catch (...) {
        *result = handOut(xml, length);
        return report(currentRunTimeError(), errorText);
    }
}

template <class Body>
int preview(char** errorText, Body body) noexcept {
    try {
        body();
        return 0;
    } catch (...) {
        return report(currentRunTimeError(), errorText);
    }
}

int refuse(char** errorText) noexcept {
    return report(RunTimeError(ErrorNumber::invalidArgument), errorText);
}

}  // namespace
}  // namespace tavisk

int tavisk_edit_xml(const char* xml, char** result, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (result) *result = nullptr;
    if (!xml || !result) return tavisk::refuse(error_text);
    return tavisk::edit(xml, std::strlen(xml), result, error_text,
                        [&] { return tavisk::editXML(xml); });
}

int tavisk_edit_xml_utf16(const uint16_t* xml, uint16_t** result, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (result) *result = nullptr;
    if (!xml || !result) return tavisk::refuse(error_text);
    return tavisk::edit(xml, tavisk::lengthOf(xml), result, error_text,
                        [&] { return tavisk::editXML(tavisk::utf8Of(xml)); });
}

int tavisk_preview_xml(const char* xml, int evaluate_formula, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (!xml) return tavisk::refuse(error_text);
    return tavisk::preview(error_text, [&] { tavisk::previewXML(xml, evaluate_formula != 0); });
}

int tavisk_preview_xml_utf16(const uint16_t* xml, int evaluate_formula, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (!xml) return tavisk::refuse(error_text);
    return tavisk::preview(error_text,
                           [&] { tavisk::previewXML(tavisk::utf8Of(xml), evaluate_formula != 0); });
}

void tavisk_free(void* string) { std::free(string); }

const char* tavisk_version() { return TAVISK_VERSION; }
