#include "component/clsTaviskObject.h"

#include <oleauto.h>
#include <string>
#include <string_view>

#include "base/text.h"
#include "component/comObject.h"
#include "component/component.h"
#include "component/dispatch_windows.h"
#include "component/errorInfo_windows.h"
#include "component/hostText.h"

namespace tavisk {
namespace {

/// A null text is an empty one.
std::string utf8Of(const BSTR* text) {
    if (!text || !*text) return {};
    static_assert(sizeof(OLECHAR) == sizeof(char16_t));
    return utf8OfHost({reinterpret_cast<const char16_t*>(*text), SysStringLen(*text)});
}

/// Null when memory is missing.
BSTR newText(std::u16string_view units) {
    return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(units.data()),
                             static_cast<UINT>(units.size()));
}

/// The host's own, byte for byte.
BSTR copyOf(const BSTR* text) {
    if (!text || !*text) return newText(u"");
    return SysAllocStringByteLen(reinterpret_cast<const char*>(*text), SysStringByteLen(*text));
}

/// Null when the edit failed, of which the user has been told.
BSTR edited(const BSTR* xml) noexcept {
    try {
        const EditResult result = tavisk::editXML(utf8Of(xml));
        return result.error ? nullptr : newText(toUtf16(result.text));
    } catch (...) {
        return nullptr;
    }
}

class Object final : public ComObject<IclsTavisk, ISupportErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(const IID& iid, void** object) override {
        if (iid == IID_ISupportErrorInfo) return handOut<ISupportErrorInfo>(this, object);
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IclsTavisk;
        return handOut<IclsTavisk>(known ? this : nullptr, object);
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        return answered([&] { return interfaceDescription(info); });
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(const IID& reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        return idsOfNames(names, count, ids);
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, const IID& reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        return invoke(*this, {id, locale, flags, arguments, result, exception, wrongArgument});
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(const IID& iid) override {
        return iid == IID_IclsTavisk ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE editXML(BSTR* xml, BSTR* result) override {
        if (!result) return E_POINTER;
        *result = edited(xml);
        if (!*result) *result = copyOf(xml);
        return *result ? S_OK : E_OUTOFMEMORY;
    }

    HRESULT STDMETHODCALLTYPE previewXML(BSTR* xml, VARIANT_BOOL* evaluateFormula,
                                         VARIANT* result) override {
        if (result) VariantInit(result);
        try {
            tavisk::previewXML(utf8Of(xml), evaluateFormula && *evaluateFormula != VARIANT_FALSE);
            return S_OK;
        } catch (...) {
            return leaveErrorInfo(currentRunTimeError());
        }
    }
};

}  // namespace

IclsTavisk* newClsTavisk() { return new Object; }

}  // namespace tavisk
