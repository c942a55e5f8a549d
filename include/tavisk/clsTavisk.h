// The component's class for C++ hosts: edit and preview the help document of one item.
//
// All of it is in this header, on top of the C interface, so that a host may be built with another
// compiler or standard library than the component.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "tavisk/tavisk.h"

namespace tavisk {

/// A run-time error of the component; tavisk.h lists the numbers.
class Error : public std::runtime_error {
public:
    Error(int number, const char* text)
        : std::runtime_error(text ? text : "Out of memory"), number_(number) {}

    int number() const noexcept { return number_; }

private:
    int number_;
};

/// Holds no state. All calls come from one thread, and one at a time.
class clsTavisk {
public:
    /// Opens the editor on a document, UTF-8 without NUL inside, and returns it as the user left
    /// it. After an error it is `xml` itself; `errorNumber`, if given, tells which error (0: none).
    std::string editXML(const std::string& xml, int* errorNumber = nullptr) const {
        char* text = nullptr;
        const int number = tavisk_edit_xml(xml.c_str(), &text, nullptr);
        const Handle result(text, tavisk_free);
        if (errorNumber) *errorNumber = number;
        return number == 0 && text ? std::string(text) : xml;
    }

    /// Renders a document to a page and shows it, with formula values, pictures and overlays filled
    /// in when `evaluateFormula` is set. Throws Error.
    void previewXML(const std::string& xml, bool evaluateFormula = false) const {
        char* text = nullptr;
        const int number = tavisk_preview_xml(xml.c_str(), evaluateFormula ? 1 : 0, &text);
        const Handle message(text, tavisk_free);
        if (number != 0) throw Error(number, text);
    }

private:
    using Handle = std::unique_ptr<void, void (*)(void*)>;
};

}  // namespace tavisk
