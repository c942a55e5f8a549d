// A host that knows nothing but IDispatch and the names. It is called as host.vbs is; "named" gives
// its arguments by name, the last one first. With "free" as its first word it is a host of many
// threads: the system then makes a thread for the class and carries the calls there.
#include <cwchar>

#include "hostCalls.h"

namespace {

DISPID idOf(IDispatch& component, const wchar_t* name, const wchar_t* parameter, DISPID* id) {
    LPOLESTR names[] = {const_cast<wchar_t*>(name), const_cast<wchar_t*>(parameter)};
    DISPID ids[2] = {DISPID_UNKNOWN, DISPID_UNKNOWN};
    component.GetIDsOfNames(IID_NULL, names, parameter ? 2 : 1, LOCALE_USER_DEFAULT, ids);
    if (id) *id = ids[1];
    return ids[0];
}

/// `arguments` stand in reverse.
std::wstring invoke(IDispatch& component, DISPID id, DISPPARAMS& arguments, VARIANT& result) {
    EXCEPINFO exception{};
    UINT wrong = 0;
    VariantInit(&result);
    const HRESULT failure =
        component.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                         &arguments, &result, &exception, &wrong);
    if (SUCCEEDED(failure)) return L"";
    if (failure != DISP_E_EXCEPTION) return L"failed " + std::to_wstring(failure & 0xFFFF);
    const std::wstring text =
        described(exception.scode, exception.bstrSource, exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    return text;
}

std::wstring perform(IDispatch& component, const std::wstring& command, const std::wstring& name,
                     const std::wstring& argument) {
    Text xml(readText(name));
    VARIANT values[2];
    VARIANT result;
    V_VT(&values[1]) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&values[1]) = &xml;
    if (command == L"edit") {
        DISPPARAMS arguments{&values[1], nullptr, 1, 0};
        const std::wstring error =
            invoke(component, idOf(component, L"EditXml", nullptr, nullptr), arguments, result);
        if (!error.empty()) return error;
        if (xml.str() != readText(name)) return L"changed";
        if (V_VT(&result) == VT_BSTR) writeText(argument, V_BSTR(&result));
        const std::wstring type = typeName(result);
        VariantClear(&result);
        return type;
    }

    Text flag(argument);  // converts to a truth value
    V_VT(&values[0]) = VT_BSTR;
    V_BSTR(&values[0]) = flag.get();
    DISPID names[2] = {};
    const DISPID id = idOf(component, L"previewXML", L"evaluateFormula", &names[0]);
    idOf(component, L"previewXML", L"XML", &names[1]);
    DISPPARAMS arguments{values, names, 2, command == L"named" ? 2U : 0U};
    const std::wstring error = invoke(component, id, arguments, result);
    return error.empty() ? typeName(result) : error;
}

void run(int count, wchar_t** words) {
    IDispatch* component = nullptr;
    CLSID id;
    HRESULT result = CLSIDFromProgID(L"Tavisk.clsTavisk.1", &id);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                  reinterpret_cast<void**>(&component));
    }
    if (FAILED(result)) {
        std::wcout << L"no class: " << std::hex << static_cast<unsigned>(result) << std::endl;
        return;
    }
    performAll(count, words, [&](const auto& command, const auto& name, const auto& argument) {
        return perform(*component, command, name, argument);
    });
    component->Release();
}

}  // namespace

int wmain(int count, wchar_t** words) {
    const bool isFree = count > 1 && std::wcscmp(words[1], L"free") == 0;
    CoInitializeEx(nullptr, isFree ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED);
    run(isFree ? count - 1 : count, isFree ? words + 1 : words);
    CoUninitialize();
    return 0;
}
