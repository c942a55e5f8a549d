// A host that creates the class through its factory, in the library that is registered for the
// user. Documents are UTF-16. The commands are those of calls.h as far as they stand here, and
//
//     load FILE -         the library, instead of the registered one
//     register - -        the two entry points' results
//     unregister - -
//     factory - -         the results of every request that has to be refused
//     count - -           references of a new object while they are taken and given back
//     idle - -            whether the library may be unloaded
//     object on|off -     an object, a lock: held from now on, or no longer
//     lock on|off -
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <tavisk/com.h>

#include "hostFiles.h"

namespace {

using namespace tavisk;

void* library;

std::string registeredLibrary() {
    const char* const data = std::getenv("XDG_DATA_HOME");
    std::ifstream file(std::string(data ? data : "") + "/tavisk/libtavisk.path");
    std::string line;
    std::getline(file, line);
    return line;
}

template <class Function>
Function* entry(Function*, const char* name) {
    if (!library) library = dlopen(registeredLibrary().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) throw std::runtime_error(dlerror());
    return reinterpret_cast<Function*>(dlsym(library, name));
}

#define ENTRY(name) entry(static_cast<decltype(&name)>(nullptr), #name)

std::string hex(HRESULT result) {
    std::ostringstream text;
    text << std::hex << static_cast<unsigned>(result);
    return text.str();
}

IClassFactory* newFactory() {
    void* factory = nullptr;
    ENTRY(DllGetClassObject)(CLSID_clsTavisk, IID_IClassFactory, &factory);
    return static_cast<IClassFactory*>(factory);
}

IclsTavisk* newObject() {
    IClassFactory* const factory = newFactory();
    void* object = nullptr;
    factory->CreateInstance(nullptr, IID_IclsTavisk, &object);
    factory->Release();
    return static_cast<IclsTavisk*>(object);
}

std::string edit(const std::string& file, const std::string& out) {
    char* const bytes = readFile(file.c_str());
    BSTR xml = reinterpret_cast<BSTR>(bytes);
    BSTR text = nullptr;
    IclsTavisk* const object = newObject();
    const HRESULT result = object->editXML(&xml, &text);
    object->Release();
    writeFile(out.c_str(), text, std::char_traits<char16_t>::length(text) * sizeof *text);
    ENTRY(tavisk_free)(text);
    const bool kept = xml == reinterpret_cast<BSTR>(bytes);
    std::free(bytes);
    return hex(result) + (kept ? "" : " changed the reference");
}

std::string preview(const std::string& file, const std::string& evaluate) {
    char* const bytes = readFile(file.c_str());
    BSTR xml = reinterpret_cast<BSTR>(bytes);
    VARIANT_BOOL flag = evaluate == "1" ? -1 : 0;
    VARIANT variant{8, {1, 2, 3}, {4, 5}};
    IclsTavisk* const object = newObject();
    const HRESULT result = object->previewXML(&xml, &flag, &variant);
    object->Release();
    std::free(bytes);
    return hex(result) + (variant.vt == 0 ? " empty" : " not empty");
}

std::string refusals() {
    void* object = &library;
    const auto after = [&](HRESULT result) {
        const std::string text = hex(result) + (object ? " object " : " ");
        object = &library;
        return text;
    };
    const auto getClass = ENTRY(DllGetClassObject);
    IClassFactory* const factory = newFactory();
    IclsTavisk* const held = newObject();
    std::string text = after(getClass(IID_IclsTavisk, IID_IClassFactory, &object));
    text += after(getClass(CLSID_clsTavisk, IID_IclsTavisk, &object));
    text += hex(getClass(CLSID_clsTavisk, IID_IClassFactory, nullptr)) + ' ';
    text += after(factory->CreateInstance(held, IID_IUnknown, &object));
    text += after(factory->CreateInstance(nullptr, IID_IClassFactory, &object));
    text += hex(factory->CreateInstance(nullptr, IID_IclsTavisk, nullptr)) + ' ';
    text += after(factory->QueryInterface(IID_IclsTavisk, &object));
    text += after(held->QueryInterface(IID_IClassFactory, &object));
    text += hex(held->QueryInterface(IID_IUnknown, nullptr)) + ' ';
    text += hex(held->GetTypeInfoCount(nullptr)) + ' ';
    BSTR xml = nullptr;
    text += hex(held->editXML(&xml, nullptr));
    held->Release();
    factory->Release();
    return text;
}

std::string counts() {
    IclsTavisk* const object = newObject();
    void* same = nullptr;
    std::string text = hex(object->QueryInterface(IID_IUnknown, &same));
    text += same == object ? " same" : " other";
    text += ' ' + std::to_string(object->AddRef());
    for (int i = 0; i < 3; ++i)
        text += ' ' + std::to_string(object->Release());
    return text;
}

std::string hold(bool on) {
    static IclsTavisk* held;
    if (on) {
        held = newObject();
    } else {
        held->Release();
    }
    return "0";
}

std::string lock(bool on) {
    IClassFactory* const factory = newFactory();
    const HRESULT result = factory->LockServer(on);
    factory->Release();
    return hex(result);
}

using Words = const std::string&;

const std::map<std::string, std::function<std::string(Words, Words)>> commands{
    {"edit", edit},
    {"preview", preview},
    {"load",
     [](Words file, Words) {
         library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
         return library ? "0" : dlerror();
     }},
    {"register", [](Words, Words) { return hex(ENTRY(DllRegisterServer)()); }},
    {"unregister", [](Words, Words) { return hex(ENTRY(DllUnregisterServer)()); }},
    {"factory", [](Words, Words) { return refusals(); }},
    {"count", [](Words, Words) { return counts(); }},
    {"idle", [](Words, Words) { return ENTRY(DllCanUnloadNow)() == S_OK ? "yes" : "no"; }},
    {"object", [](Words state, Words) { return hold(state == "on"); }},
    {"lock", [](Words state, Words) { return lock(state == "on"); }},
};

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string tag, command, file, argument;
        words >> tag >> command >> file >> argument;
        std::cout << tag << ' ' << commands.at(command)(file, argument) << std::endl;
    }
}
