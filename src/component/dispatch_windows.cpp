#include "component/dispatch_windows.h"

#include <array>
#include <cstddef>
#include <cwchar>
#include <oleauto.h>

#include "base/places.h"
#include "component/errorInfo_windows.h"

namespace tavisk {
namespace {

constexpr std::size_t mostParameters = 2;
/// References to references that lead further than this are taken for a circle.
constexpr int deepestReference = 16;

struct Parameter {
    const wchar_t* name;
    VARTYPE type;
};

struct Method {
    DISPID id;
    const wchar_t* name;
    std::array<Parameter, mostParameters> parameters;
    std::size_t parameterCount;
};

/// As in Tavisk.idl. The identifier of a parameter is its place.
constexpr std::array<Method, 2> methods{{
    {1, L"editXML", {{{L"xml", VT_BSTR}}}, 1},
    {2, L"previewXML", {{{L"xml", VT_BSTR}, {L"evaluateFormula", VT_BOOL}}}, 2},
}};

bool isName(const wchar_t* name, const wchar_t* given) {
    return given && CompareStringOrdinal(name, -1, given, -1, TRUE) == CSTR_EQUAL;
}

DISPID parameterNamed(const Method& method, const wchar_t* name) {
    for (std::size_t i = 0; i < method.parameterCount; ++i) {
        if (isName(method.parameters[i].name, name)) return static_cast<DISPID>(i);
    }
    return DISPID_UNKNOWN;
}

class Variant : public VARIANT {
public:
    Variant() noexcept { VariantInit(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

using Converted = std::array<Variant, mostParameters>;
/// The place in a call's arguments of each parameter.
using Places = std::array<UINT, mostParameters>;

/// The value at the end of all references. Null when there is none.
const VARIANT* valueOf(const VARIANT& argument) {
    const VARIANT* value = &argument;
    for (int depth = 0; value && V_VT(value) == (VT_BYREF | VT_VARIANT); ++depth) {
        if (depth == deepestReference) return nullptr;
        value = V_VARIANTREF(value);
    }
    if (value && V_ISBYREF(value) && !V_BYREF(value)) return nullptr;
    return value;
}

HRESULT convert(const VARIANT& argument, VARTYPE type, LCID locale, VARIANT& converted) {
    const VARIANT* const value = valueOf(argument);
    if (!value) return DISP_E_TYPEMISMATCH;
    if (V_VT(value) == VT_ERROR && V_ERROR(value) == DISP_E_PARAMNOTFOUND)
        return DISP_E_PARAMNOTOPTIONAL;
    Variant plain;
    HRESULT result = VariantCopyInd(&plain, const_cast<VARIANT*>(value));
    if (SUCCEEDED(result)) result = VariantChangeTypeEx(&converted, &plain, locale, 0, type);
    return SUCCEEDED(result) || result == E_OUTOFMEMORY ? result : DISP_E_TYPEMISMATCH;
}

/// Arguments stand in reverse, and the named ones before all others.
HRESULT findPlaces(const Method& method, const LateCall& call, Places& places) {
    constexpr UINT none = ~0U;
    places.fill(none);
    const DISPPARAMS& given = *call.arguments;
    if (given.cArgs != method.parameterCount) return DISP_E_BADPARAMCOUNT;
    if (given.cNamedArgs > given.cArgs) return E_INVALIDARG;
    for (UINT place = 0; place < given.cArgs; ++place) {
        const bool named = place < given.cNamedArgs;
        const auto parameter = static_cast<std::size_t>(
            named ? given.rgdispidNamedArgs[place] : static_cast<DISPID>(given.cArgs - 1 - place));
        if (parameter >= method.parameterCount) {
            if (call.wrongArgument) *call.wrongArgument = place;
            return DISP_E_PARAMNOTFOUND;
        }
        if (places[parameter] != none) return DISP_E_BADPARAMCOUNT;
        places[parameter] = place;
    }
    return S_OK;
}

HRESULT convertAll(const Method& method, const LateCall& call, Converted& converted) {
    Places places{};
    if (const HRESULT result = findPlaces(method, call, places); FAILED(result)) return result;
    for (std::size_t i = 0; i < method.parameterCount; ++i) {
        const HRESULT result = convert(call.arguments->rgvarg[places[i]], method.parameters[i].type,
                                       call.locale, converted[i]);
        if (FAILED(result)) {
            if (call.wrongArgument) *call.wrongArgument = places[i];
            return result;
        }
    }
    return S_OK;
}

HRESULT perform(IclsTavisk& object, const Method& method, Converted& arguments, VARIANT& result) {
    BSTR* const xml = &V_BSTR(&arguments[0]);
    if (method.id == 2) return object.previewXML(xml, &V_BOOL(&arguments[1]), &result);
    const HRESULT done = object.editXML(xml, &V_BSTR(&result));
    if (SUCCEEDED(done)) V_VT(&result) = VT_BSTR;
    return done;
}

}  // namespace

HRESULT interfaceDescription(ITypeInfo** info) {
    *info = nullptr;
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(libraryFile().c_str(), REGKIND_NONE, &library);
    if (FAILED(loaded)) return loaded;
    const HRESULT found = library->GetTypeInfoOfGuid(IID_IclsTavisk, info);
    library->Release();
    return found;
}

HRESULT idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (count == 0) return S_OK;
    if (!names || !ids) return E_POINTER;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (const Method& method : methods) {
        if (!isName(method.name, names[0])) continue;
        ids[0] = method.id;
        bool known = true;
        for (UINT i = 1; i < count; ++i) {
            ids[i] = parameterNamed(method, names[i]);
            known = known && ids[i] != DISPID_UNKNOWN;
        }
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT invoke(IclsTavisk& object, const LateCall& call) noexcept {
    if (!call.arguments) return E_POINTER;
    const Method* called = nullptr;
    for (const Method& method : methods) {
        if (method.id == call.method) called = &method;
    }
    // A host that wants a result may not know whether it calls a method or reads a property.
    if (!called || (call.flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;

    Converted arguments;
    if (const HRESULT converted = convertAll(*called, call, arguments); FAILED(converted))
        return converted;
    Variant result;
    const HRESULT done = perform(object, *called, arguments, result);
    if (FAILED(done)) return takeErrorInfo(done, call.exception);
    if (call.result) {
        *call.result = result;
        VariantInit(&result);
    }
    return S_OK;
}

}  // namespace tavisk
