#include "host/component.h"

#include <memory>

namespace tavisk {
namespace {

/// A string of the component.
using Handle = std::unique_ptr<char, void (*)(void*)>;

void check(int number) {
    const auto error = static_cast<ErrorNumber>(number);
    if (error == ErrorNumber::objectUnloaded) throw DocumentRejected();
    if (number != 0) raise(error);
}

}  // namespace

std::string Component::editXML(const std::string& xml) const {
    char* text = nullptr;
    const int number = functions_.edit(xml.c_str(), &text, nullptr);
    const Handle result(text, functions_.free);
    check(number);
    return result.get();
}

void Component::previewXML(const std::string& xml, bool evaluateFormula) const {
    check(functions_.preview(xml.c_str(), evaluateFormula ? 1 : 0, nullptr));
}

}  // namespace tavisk
