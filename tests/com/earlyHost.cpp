// A host that is bound to the interface when it is compiled, by the header made from the type
// library's source. It is called as host.vbs is.
#include <TaviskTypes.h>

#include "hostCalls.h"

namespace {

std::wstring lastError(HRESULT failure) {
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return described(failure, L"nobody", L"");
    Text source, text;
    info->GetSource(&source);
    info->GetDescription(&text);
    info->Release();
    return described(failure, source.str(), text.str());
}

std::wstring edit(IclsTavisk& component, const std::wstring& name, const std::wstring& out) {
    const std::wstring given = readText(name);
    Text xml(given), result;
    const BSTR before = xml.get();
    if (const HRESULT failure = component.editXML(&xml, &result); FAILED(failure))
        return lastError(failure);
    if (xml.get() != before || xml.str() != given) return L"changed";
    writeText(out, result.str());
    return L"String";
}

std::wstring preview(IclsTavisk& component, const std::wstring& name, bool evaluate) {
    Text xml(readText(name));
    VARIANT_BOOL flag = evaluate ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT result;
    V_VT(&result) = VT_I4;
    if (const HRESULT failure = component.previewXML(&xml, &flag, &result); FAILED(failure))
        return lastError(failure) + (V_VT(&result) == VT_EMPTY ? L"" : L" and a result");
    return typeName(result);
}

void run(int count, wchar_t** words) {
    IclsTavisk* component = nullptr;
    CLSID id;
    HRESULT result = CLSIDFromProgID(L"Tavisk.clsTavisk", &id);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IclsTavisk,
                                  reinterpret_cast<void**>(&component));
    }
    if (FAILED(result)) {
        std::wcout << L"no class: " << std::hex << static_cast<unsigned>(result) << std::endl;
        return;
    }
    performAll(count, words, [&](const auto& command, const auto& name, const auto& argument) {
        return command == L"edit" ? edit(*component, name, argument)
                                  : preview(*component, name, argument == L"1");
    });
    component->Release();
    CoFreeUnusedLibraries();
}

}  // namespace

int wmain(int count, wchar_t** words) {
    CoInitialize(nullptr);
    run(count, words);
    CoUninitialize();
    // Nobody uses it any more, but what it has started leads into it.
    constexpr int unloaded = 3;
    return GetModuleHandleW(L"Tavisk.dll") ? 0 : unloaded;
}
