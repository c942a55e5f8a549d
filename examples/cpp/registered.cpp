// A host that creates the class: opens the editor on a document and writes it back.
//
//     c++ -std=c++20 examples/cpp/registered.cpp -o edit $(pkg-config --cflags tavisk)
//     ./edit DOCUMENT
//
// The library has to be registered for the user once, by a call of its DllRegisterServer.
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <tavisk/com.h>

int main(int count, char** words) {
    using namespace tavisk;
    if (count != 2) return 2;

    const char* const data = std::getenv("XDG_DATA_HOME");
    const std::string home = data ? data : std::string(std::getenv("HOME")) + "/.local/share";
    std::string path;
    std::getline(std::ifstream(home + "/tavisk/libtavisk.path"), path);
    void* const library = dlopen(path.c_str(), RTLD_NOW);
    if (!library) {
        std::cerr << dlerror() << '\n';
        return 1;
    }
    const auto getClass =
        reinterpret_cast<decltype(&DllGetClassObject)>(dlsym(library, "DllGetClassObject"));
    const auto freeText = reinterpret_cast<decltype(&tavisk_free)>(dlsym(library, "tavisk_free"));

    void* found = nullptr;
    getClass(CLSID_clsTavisk, IID_IClassFactory, &found);
    auto* const factory = static_cast<IClassFactory*>(found);
    factory->CreateInstance(nullptr, IID_IclsTavisk, &found);
    auto* const component = static_cast<IclsTavisk*>(found);
    factory->Release();

    // The class takes UTF-16; a document of ASCII characters alone is widened by copying.
    std::ifstream in(words[1], std::ios::binary);
    std::u16string xml{std::istreambuf_iterator<char>(in), {}};
    BSTR given = xml.data();
    BSTR edited = nullptr;
    const HRESULT result = component->editXML(&given, &edited);
    if (result == S_OK) {
        const std::u16string_view text(edited);
        std::ofstream(words[1], std::ios::binary) << std::string(text.begin(), text.end());
    }
    freeText(edited);
    component->Release();
    return result == S_OK ? 0 : 1;
}
