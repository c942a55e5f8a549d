#include "command/loadedComponent.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <tavisk/tavisk.h>
#include <type_traits>

#include "base/error.h"
#include "base/paths.h"
#include "command/input.h"
#include "command/library.h"

namespace tavisk {
namespace {

namespace fs = std::filesystem;

void* load() {
    const fs::path own = commandFolder();
    std::error_code error;
    if (!own.empty()) {
        for (const fs::path& folder : {own, own / libraryFolder, own.parent_path() / "lib"}) {
            const fs::path file = folder / componentFile;
            if (!fs::exists(file, error)) continue;
            if (void* const library = openLibrary(file)) return library;
            // One that is here but cannot be used must not be hidden by another one elsewhere.
            throw ComponentMissing("the component cannot be loaded: " + libraryError());
        }
    }
    if (void* const library = openLibrary(componentFile)) return library;
    throw ComponentMissing("the component with the windows is missing: " +
                           std::string(componentFile) + " is neither in " + textOf(own) +
                           ", nor in ../lib from there, nor " + "on the system's library path");
}

template <class Function>
void find(void* library, const char* name, Function*& function) {
    void* const found = findFunction(library, name);
    if (found == nullptr) {
        throw ComponentMissing("the component cannot be used: " + libraryError());
    }
    function = reinterpret_cast<Function*>(found);
}

/// A string of the component.
using Handle = std::unique_ptr<char, void (*)(void*)>;

void check(int number) {
    const auto error = static_cast<ErrorNumber>(number);
    if (error == ErrorNumber::objectUnloaded)
        throw Rejected({"the document was rejected", std::nullopt, "tavisk"});
    if (number != 0) raise(error);
}

}  // namespace

Component::Component() : functions_{} {
    static_assert(std::is_same_v<decltype(functions_.edit), decltype(&tavisk_edit_xml)>);
    static_assert(std::is_same_v<decltype(functions_.preview), decltype(&tavisk_preview_xml)>);
    static_assert(std::is_same_v<decltype(functions_.free), decltype(&tavisk_free)>);
    void* const library = load();
    find(library, "tavisk_edit_xml", functions_.edit);
    find(library, "tavisk_preview_xml", functions_.preview);
    find(library, "tavisk_free", functions_.free);
}

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
