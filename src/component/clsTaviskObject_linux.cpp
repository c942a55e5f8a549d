#include "component/clsTaviskObject.h"

#include "component/comObject.h"

namespace tavisk {
namespace {

constexpr char16_t nothing[] = u"";

const std::uint16_t* unitsOf(const BSTR* text) {
    return reinterpret_cast<const std::uint16_t*>(text && *text ? *text : nothing);
}

class Object final : public ComObject<IclsTavisk> {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IclsTavisk;
        return handOut<IclsTavisk>(known ? this : nullptr, object);
    }

    HRESULT GetTypeInfoCount(std::uint32_t*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(std::uint32_t, std::uint32_t, void**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(const GUID&, char16_t**, std::uint32_t, std::uint32_t,
                          std::int32_t*) override {
        return E_NOTIMPL;
    }
    HRESULT Invoke(std::int32_t, const GUID&, std::uint32_t, std::uint16_t, void*, VARIANT*, void*,
                   std::uint32_t*) override {
        return E_NOTIMPL;
    }

    HRESULT editXML(BSTR* xml, BSTR* result) override {
        if (!result) return E_POINTER;
        // Of an error the user has been told; the method never fails because of one.
        tavisk_edit_xml_utf16(unitsOf(xml), reinterpret_cast<std::uint16_t**>(result), nullptr);
        return *result ? S_OK : E_OUTOFMEMORY;
    }

    HRESULT previewXML(BSTR* xml, VARIANT_BOOL* evaluateFormula, VARIANT* result) override {
        if (result) *result = {};
        const bool evaluate = evaluateFormula && *evaluateFormula != 0;
        const int number = tavisk_preview_xml_utf16(unitsOf(xml), evaluate, nullptr);
        return number == 0 ? S_OK : hresultOf(RunTimeError(static_cast<ErrorNumber>(number)));
    }
};

}  // namespace

IclsTavisk* newClsTavisk() { return new Object; }

}  // namespace tavisk
