// The library as the system loads it: entry points, objects, type library, a life without windows.
#include <gtest/gtest.h>
#include <string>
#include <tavisk/com.h>

namespace {

constexpr GUID unknownClass{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

std::wstring libraryPath() {
    wchar_t path[MAX_PATH] = {};
    GetEnvironmentVariableW(L"TAVISK_DLL", path, MAX_PATH);
    return path;
}

class Server : public testing::Test {
protected:
    HMODULE library = LoadLibraryW(libraryPath().c_str());
    IClassFactory* factory = nullptr;

    void SetUp() override {
        ASSERT_NE(library, nullptr) << GetLastError();
        CoInitialize(nullptr);
        ASSERT_EQ(getClass(CLSID_clsTavisk, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
                  S_OK);
    }
    ~Server() override {
        if (factory) factory->Release();
        CoUninitialize();
        FreeLibrary(library);
    }

    template <class Function>
    Function* entry(const char* name) {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }
    HRESULT getClass(const GUID& id, const GUID& iid, void** object) {
        return entry<HRESULT WINAPI(const GUID&, const GUID&, void**)>("DllGetClassObject")(id, iid,
                                                                                            object);
    }
    HRESULT canUnload() { return entry<HRESULT WINAPI()>("DllCanUnloadNow")(); }

    template <class Interface>
    Interface* create(const IID& iid) {
        void* object = nullptr;
        EXPECT_EQ(factory->CreateInstance(nullptr, iid, &object), S_OK);
        return static_cast<Interface*>(object);
    }
    void* something = this;
};

TEST_F(Server, otherClasses) {
    EXPECT_EQ(getClass(unknownClass, IID_IClassFactory, &something), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(something, nullptr);
}

TEST_F(Server, otherInterfacesOfTheFactory) {
    EXPECT_EQ(getClass(CLSID_clsTavisk, IID_IDispatch, &something), E_NOINTERFACE);
    EXPECT_EQ(something, nullptr);
    EXPECT_EQ(getClass(CLSID_clsTavisk, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(Server, noPartOfAnotherObject) {
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &something), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(something, nullptr);
}

TEST_F(Server, interfacesOfTheObject) {
    auto* const object = create<IclsTavisk>(IID_IclsTavisk);
    IUnknown* const identity = create<IUnknown>(IID_IUnknown);
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, IID_IclsTavisk, IID_ISupportErrorInfo}) {
        IUnknown* found = nullptr;
        EXPECT_EQ(object->QueryInterface(iid, reinterpret_cast<void**>(&found)), S_OK);
        IUnknown* same = nullptr;
        EXPECT_EQ(found->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&same)), S_OK);
        EXPECT_EQ(same, static_cast<IUnknown*>(object));
        same->Release();
        found->Release();
    }
    EXPECT_NE(identity, static_cast<IUnknown*>(object));
    EXPECT_EQ(object->QueryInterface(IID_IClassFactory, &something), E_NOINTERFACE);
    EXPECT_EQ(something, nullptr);
    EXPECT_EQ(identity->Release(), 0U);
    EXPECT_EQ(object->Release(), 0U);
}

TEST_F(Server, tellsOfErrorsOfItsInterfaceAlone) {
    auto* const support = create<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IclsTavisk), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
    support->Release();
}

TEST_F(Server, objectsAndLocksKeepItLoaded) {
    EXPECT_EQ(canUnload(), S_FALSE);  // the factory
    factory->LockServer(TRUE);
    factory->Release();
    EXPECT_EQ(canUnload(), S_FALSE);
    factory = nullptr;
    getClass(CLSID_clsTavisk, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    auto* const object = create<IUnknown>(IID_IUnknown);
    factory->LockServer(FALSE);
    factory->Release();
    factory = nullptr;
    EXPECT_EQ(canUnload(), S_FALSE);
    object->Release();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(Server, theDescriptionOfTheInterface) {
    auto* const object = create<IDispatch>(IID_IDispatch);
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ITypeInfo* info = nullptr;
    ASSERT_EQ(object->GetTypeInfo(0, 0, &info), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_TRUE(attributes->guid == IID_IclsTavisk);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes->wTypeFlags,
              TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FNONEXTENSIBLE);
    info->ReleaseTypeAttr(attributes);
    info->Release();
    EXPECT_EQ(object->GetTypeInfo(1, 0, &info), DISP_E_BADINDEX);
    EXPECT_EQ(info, nullptr);
    object->Release();
}

/// "type name(type name, ...)" with the numbers of the types; 0x4000 is a reference.
std::wstring signature(ITypeInfo& info, DISPID id) {
    for (UINT i = 0;; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(info.GetFuncDesc(i, &function))) return L"none";
        std::wstring text;
        if (function->memid == id) {
            BSTR names[4] = {};
            UINT count = 0;
            info.GetNames(id, names, 4, &count);
            text = std::to_wstring(function->elemdescFunc.tdesc.vt) + L" " + names[0];
            for (SHORT p = 0; p < function->cParams; ++p) {
                const TYPEDESC& type = function->lprgelemdescParam[p].tdesc;
                text += L" " +
                        std::to_wstring(type.vt == VT_PTR ? VT_BYREF | type.lptdesc->vt : type.vt);
                text += L":" + std::wstring(names[p + 1]);
            }
            for (UINT n = 0; n < count; ++n)
                SysFreeString(names[n]);
        }
        info.ReleaseFuncDesc(function);
        if (!text.empty()) return text;
    }
}

TEST_F(Server, theTypesOfTheMethods) {
    auto* const object = create<IDispatch>(IID_IDispatch);
    ITypeInfo* info = nullptr;
    ASSERT_EQ(object->GetTypeInfo(0, 0, &info), S_OK);
    EXPECT_EQ(signature(*info, 1), L"8 editXML 16392:xml");
    EXPECT_EQ(signature(*info, 2), L"12 previewXML 16392:xml 16395:evaluateFormula");
    info->Release();
    object->Release();
}

TEST_F(Server, noPlaceForTheEditedText) {
    auto* const object = create<IclsTavisk>(IID_IclsTavisk);
    BSTR xml = nullptr;
    EXPECT_EQ(object->editXML(&xml, nullptr), E_POINTER);
    object->Release();
}

TEST(Unloading, leavesTheProcessWhenNothingWasShown) {
    HMODULE library = LoadLibraryW(libraryPath().c_str());
    ASSERT_NE(library, nullptr);
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_EQ(GetModuleHandleW(L"Tavisk.dll"), nullptr);
}

/// Creates the class by the manifest that is shipped, with nothing registered.
TEST(Manifest, createsTheClassWithoutRegistration) {
    std::wstring manifest = libraryPath();
    manifest.replace(manifest.size() - 3, 3, L"X.manifest");
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE) << GetLastError();
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    CoInitialize(nullptr);

    CLSID id{};
    EXPECT_EQ(CLSIDFromProgID(L"Tavisk.clsTavisk.1", &id), S_OK);
    // What the name stands for need not be the class's own number.
    for (const CLSID& known : {id, CLSID_clsTavisk}) {
        IclsTavisk* object = nullptr;
        EXPECT_EQ(CoCreateInstance(known, nullptr, CLSCTX_INPROC_SERVER, IID_IclsTavisk,
                                   reinterpret_cast<void**>(&object)),
                  S_OK);
        if (object) object->Release();
    }

    CoUninitialize();
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

}  // namespace
