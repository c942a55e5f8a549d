// The four functions by which a host, or the system for it, reaches the class.
#include <tavisk/com.h>

#include "component/classFactory.h"
#include "component/comObject.h"
#include "component/registration.h"

namespace tavisk {

extern "C" {

HRESULT TAVISK_METHOD DllGetClassObject(const GUID& clsid, const GUID& iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (clsid != CLSID_clsTavisk) return CLASS_E_CLASSNOTAVAILABLE;
    return answered([&] {
        IClassFactory* const factory = newClassFactory();
        const HRESULT result = factory->QueryInterface(iid, object);
        factory->Release();
        return result;
    });
}

HRESULT TAVISK_METHOD DllCanUnloadNow() { return mayUnload() ? S_OK : S_FALSE; }

HRESULT TAVISK_METHOD DllRegisterServer() { return answered(registerLibrary); }

HRESULT TAVISK_METHOD DllUnregisterServer() { return answered(unregisterLibrary); }

}  // extern "C"

}  // namespace tavisk
