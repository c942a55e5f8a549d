#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <tavisk/tavisk.h>

#include "base/error.h"
#include "base/text.h"
#include "component/component.h"
#include "component/hostText.h"

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

std::u16string_view unitsOf(const uint16_t* xml) {
    static_assert(sizeof(uint16_t) == sizeof(char16_t));
    return reinterpret_cast<const char16_t*>(xml);
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
    return tavisk::edit(xml, tavisk::unitsOf(xml).size(), result, error_text,
                        [&] { return tavisk::editXML(tavisk::utf8OfHost(tavisk::unitsOf(xml))); });
}

int tavisk_preview_xml(const char* xml, int evaluate_formula, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (!xml) return tavisk::refuse(error_text);
    return tavisk::preview(error_text, [&] { tavisk::previewXML(xml, evaluate_formula != 0); });
}

int tavisk_preview_xml_utf16(const uint16_t* xml, int evaluate_formula, char** error_text) {
    if (error_text) *error_text = nullptr;
    if (!xml) return tavisk::refuse(error_text);
    return tavisk::preview(error_text, [&] {
        tavisk::previewXML(tavisk::utf8OfHost(tavisk::unitsOf(xml)), evaluate_formula != 0);
    });
}

void tavisk_free(void* string) { std::free(string); }

const char* tavisk_version() { return TAVISK_VERSION; }
