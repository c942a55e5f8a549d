// Late binding on an object that writes down how it was called.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "component/dispatch_windows.h"
#include "component/errorInfo_windows.h"

namespace tavisk {
namespace {

constexpr WORD asMethod = DISPATCH_METHOD;
constexpr WORD asEither = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr DISPID edit = 1;
constexpr DISPID preview = 2;
constexpr UINT untouched = 99;

class Recorder final : public IclsTavisk {
public:
    std::wstring calls;
    bool fails = false;

    HRESULT STDMETHODCALLTYPE QueryInterface(const IID&, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(const IID&, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, const IID&, LCID, WORD, DISPPARAMS*, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE editXML(BSTR* xml, BSTR* result) override {
        calls += L"edit " + textOf(*xml);
        *result = SysAllocString(L"edited");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE previewXML(BSTR* xml, VARIANT_BOOL* evaluateFormula,
                                         VARIANT* result) override {
        calls += L"preview " + textOf(*xml) + L" " + std::to_wstring(*evaluateFormula);
        VariantInit(result);
        return fails ? leaveErrorInfo(RunTimeError(ErrorNumber::overflow)) : S_OK;
    }

private:
    static std::wstring textOf(BSTR text) {
        return text ? std::wstring(text, SysStringLen(text)) : L"null";
    }
};

/// An argument that is given back.
struct Value : VARIANT {
    Value() { VariantInit(this); }
    Value(const wchar_t* text) : Value() {
        V_VT(this) = VT_BSTR;
        V_BSTR(this) = text ? SysAllocString(text) : nullptr;
    }
    Value(int number) : Value() {
        V_VT(this) = VT_I4;
        V_I4(this) = number;
    }
    Value(VARTYPE type, void* reference) : Value() {
        V_VT(this) = static_cast<VARTYPE>(VT_BYREF | type);
        V_BYREF(this) = reference;
    }
    Value(const Value& other) : Value() { VariantCopy(this, const_cast<Value*>(&other)); }
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(this); }
};

Value ofType(VARTYPE type) {
    Value value;
    V_VT(&value) = type;
    return value;
}

Value omitted() {
    Value value = ofType(VT_ERROR);
    V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
    return value;
}

class Dispatch : public testing::Test {
protected:
    Recorder object;
    Value result;
    EXCEPINFO exception{};
    UINT wrong = untouched;
    std::vector<DISPID> names;

    ~Dispatch() override {
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
    }

    /// `arguments` in reverse.
    HRESULT call(DISPID method, std::vector<Value> arguments, WORD flags = asEither) {
        DISPPARAMS given{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                         static_cast<UINT>(names.size())};
        return invoke(object,
                      {method, LOCALE_INVARIANT, flags, &given, &result, &exception, &wrong});
    }

    /// What the method got for its first argument.
    std::wstring taken(const Value& xml) {
        object.calls.clear();
        return call(edit, {xml}) == S_OK ? object.calls : L"failed";
    }

    DISPID idOf(const wchar_t* name) {
        LPOLESTR given = const_cast<wchar_t*>(name);
        DISPID id = untouched;
        const HRESULT result = idsOfNames(&given, 1, &id);
        EXPECT_EQ(result, id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK);
        return id;
    }
};

TEST_F(Dispatch, namesInAnyLetterCase) {
    EXPECT_EQ(idOf(L"editXML"), edit);
    EXPECT_EQ(idOf(L"EDITxml"), edit);
    EXPECT_EQ(idOf(L"PreviewXml"), preview);
}

TEST_F(Dispatch, unknownNames) {
    EXPECT_EQ(idOf(L"edit"), DISPID_UNKNOWN);
    EXPECT_EQ(idOf(L""), DISPID_UNKNOWN);
    EXPECT_EQ(idOf(nullptr), DISPID_UNKNOWN);
}

TEST_F(Dispatch, namesOfParameters) {
    LPOLESTR given[] = {const_cast<wchar_t*>(L"previewXML"),
                        const_cast<wchar_t*>(L"EvaluateFormula"), const_cast<wchar_t*>(L"xml")};
    DISPID ids[3] = {};
    EXPECT_EQ(idsOfNames(given, 3, ids), S_OK);
    EXPECT_EQ(std::vector<DISPID>(ids, ids + 3), (std::vector<DISPID>{preview, 1, 0}));
}

TEST_F(Dispatch, oneUnknownParameterDoesNotHideTheOthers) {
    LPOLESTR given[] = {const_cast<wchar_t*>(L"previewXML"), const_cast<wchar_t*>(L"other"),
                        const_cast<wchar_t*>(L"xml")};
    DISPID ids[3] = {};
    EXPECT_EQ(idsOfNames(given, 3, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(std::vector<DISPID>(ids, ids + 3), (std::vector<DISPID>{preview, DISPID_UNKNOWN, 0}));
}

TEST_F(Dispatch, theResultIsAText) {
    EXPECT_EQ(call(edit, {L"<a/>"}), S_OK);
    EXPECT_EQ(object.calls, L"edit <a/>");
    ASSERT_EQ(V_VT(&result), VT_BSTR);
    EXPECT_STREQ(V_BSTR(&result), L"edited");
}

TEST_F(Dispatch, theResultOfAPreviewIsEmpty) {
    V_VT(&result) = VT_I4;
    EXPECT_EQ(call(preview, {0, L"<a/>"}), S_OK);
    EXPECT_EQ(object.calls, L"preview <a/> 0");
    EXPECT_EQ(V_VT(&result), VT_EMPTY);
}

TEST_F(Dispatch, noPlaceForAResult) {
    Value xml(L"<a/>");
    DISPPARAMS given{&xml, nullptr, 1, 0};
    EXPECT_EQ(invoke(object, {edit, 0, asMethod, &given, nullptr, nullptr, nullptr}), S_OK);
    EXPECT_EQ(object.calls, L"edit <a/>");
}

TEST_F(Dispatch, asAMethodOnly) {
    EXPECT_EQ(call(edit, {L"a"}, asMethod), S_OK);
    EXPECT_EQ(call(edit, {L"a"}, DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(edit, {L"a"}, DISPATCH_PROPERTYPUT), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(3, {L"a"}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(DISPID_VALUE, {L"a"}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object.calls, L"edit a");
}

TEST_F(Dispatch, valuesThatConvert) {
    EXPECT_EQ(taken(12), L"edit 12");
    EXPECT_EQ(taken(ofType(VT_EMPTY)), L"edit ");
    Value real = ofType(VT_R8);
    V_R8(&real) = 1.5;
    EXPECT_EQ(taken(real), L"edit 1.5");
}

TEST_F(Dispatch, aNullTextPassesForAnEmptyOne) {
    const std::wstring got = taken(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(got == L"edit " || got == L"edit null") << got.size();
}

TEST_F(Dispatch, references) {
    BSTR text = SysAllocString(L"there");
    EXPECT_EQ(taken(Value(VT_BSTR, &text)), L"edit there");
    EXPECT_STREQ(text, L"there");
    SysFreeString(text);
    LONG number = 7;
    EXPECT_EQ(taken(Value(VT_I4, &number)), L"edit 7");
}

TEST_F(Dispatch, referencesToReferences) {
    BSTR text = SysAllocString(L"deep");
    Value inner(VT_BSTR, &text);
    Value middle(VT_VARIANT, static_cast<VARIANT*>(&inner));
    EXPECT_EQ(taken(Value(VT_VARIANT, static_cast<VARIANT*>(&inner))), L"edit deep");
    EXPECT_EQ(taken(Value(VT_VARIANT, static_cast<VARIANT*>(&middle))), L"edit deep");
    EXPECT_STREQ(text, L"deep");
    SysFreeString(text);
}

TEST_F(Dispatch, referencesThatLeadNowhere) {
    Value circle(VT_VARIANT, nullptr);
    V_VARIANTREF(&circle) = &circle;
    for (const Value& reference :
         {Value(VT_BSTR, nullptr), Value(VT_VARIANT, nullptr), Value(circle)}) {
        wrong = untouched;
        EXPECT_EQ(call(edit, {reference}), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(wrong, 0U);
    }
    EXPECT_EQ(object.calls, L"");
}

TEST_F(Dispatch, truthValues) {
    for (const wchar_t* yes : {L"True", L"-1", L"5"}) {
        object.calls.clear();
        EXPECT_EQ(call(preview, {yes, L"a"}), S_OK);
        EXPECT_EQ(object.calls, L"preview a -1") << yes;
    }
    object.calls.clear();
    EXPECT_EQ(call(preview, {ofType(VT_EMPTY), L"a"}), S_OK);
    EXPECT_EQ(object.calls, L"preview a 0");
}

TEST_F(Dispatch, whatDoesNotConvertIsNamedByItsPlace) {
    EXPECT_EQ(call(preview, {L"maybe", L"a"}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(call(preview, {0, ofType(VT_NULL)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong, 1U);
    EXPECT_EQ(call(edit, {ofType(VT_UNKNOWN)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(object.calls, L"");
}

TEST_F(Dispatch, wrongCounts) {
    EXPECT_EQ(call(edit, {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(edit, {L"a", L"b"}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(preview, {L"a"}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(preview, {L"a", L"b", L"c"}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(object.calls, L"");
}

TEST_F(Dispatch, anArgumentLeftOut) {
    EXPECT_EQ(call(preview, {omitted(), L"a"}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(wrong, 0U);
}

TEST_F(Dispatch, namedArguments) {
    names = {0, 1};
    EXPECT_EQ(call(preview, {L"a", 1}), S_OK);
    names = {1, 0};
    EXPECT_EQ(call(preview, {1, L"b"}), S_OK);
    names = {1};
    EXPECT_EQ(call(preview, {1, L"c"}), S_OK);
    EXPECT_EQ(object.calls, L"preview a -1preview b -1preview c -1");
}

TEST_F(Dispatch, oneParameterTwice) {
    names = {0};
    EXPECT_EQ(call(preview, {L"a", L"b"}), DISP_E_BADPARAMCOUNT);
    names = {1, 1};
    EXPECT_EQ(call(preview, {0, 0}), DISP_E_BADPARAMCOUNT);
}

TEST_F(Dispatch, aParameterThatDoesNotExist) {
    names = {2};
    EXPECT_EQ(call(preview, {0, L"a"}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(wrong, 0U);
    names = {1, -5};
    EXPECT_EQ(call(preview, {0, L"a"}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(wrong, 1U);
}

TEST_F(Dispatch, aFailureCarriesSourceNumberAndText) {
    object.fails = true;
    EXPECT_EQ(call(preview, {0, L"a"}), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<HRESULT>(0x800A0006));
    EXPECT_STREQ(exception.bstrSource, L"Tavisk");
    EXPECT_STREQ(exception.bstrDescription, L"Overflow");
    EXPECT_EQ(V_VT(&result), VT_EMPTY);
}

TEST_F(Dispatch, noPlaceForAFailure) {
    object.fails = true;
    std::vector<Value> arguments{0, L"a"};
    DISPPARAMS given{arguments.data(), nullptr, 2, 0};
    EXPECT_EQ(invoke(object, {preview, 0, asMethod, &given, nullptr, nullptr, nullptr}),
              DISP_E_EXCEPTION);
}

TEST_F(Dispatch, noArguments) {
    EXPECT_EQ(invoke(object, {edit, 0, asMethod, nullptr, &result, nullptr, nullptr}), E_POINTER);
}

}  // namespace
}  // namespace tavisk
