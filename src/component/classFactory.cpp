#include "component/classFactory.h"

#include "component/clsTaviskObject.h"
#include "component/comObject.h"

namespace tavisk {
namespace {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    HRESULT TAVISK_METHOD QueryInterface(const GUID& iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        return handOut<IClassFactory>(known ? this : nullptr, object);
    }

    HRESULT TAVISK_METHOD CreateInstance(IUnknown* outer, const GUID& iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return answered([&] {
            IclsTavisk* const created = newClsTavisk();
            const HRESULT result = created->QueryInterface(iid, object);
            created->Release();
            return result;
        });
    }

    HRESULT TAVISK_METHOD LockServer(BOOL lock) override {
        if (lock) {
            lockServer();
        } else {
            unlockServer();
        }
        return S_OK;
    }
};

}  // namespace

IClassFactory* newClassFactory() { return new ClassFactory; }

}  // namespace tavisk
