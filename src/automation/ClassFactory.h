#pragma once

#include "automation/DispatchObject.h"
#include "automation/Unknown.h"

namespace ormisk {

// The class object of a creatable class.
template <class T> class ClassFactory final : public Unknown<IClassFactory> {
public:
    // For DllGetClassObject: gives a counted reference.
    static HRESULT Give(REFIID iid, void** object) {
        return Guarded(iid, [&] { return Adopt(new ClassFactory)->QueryInterface(iid, object); });
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return Guarded(iid, [&]() -> HRESULT {
            if (!object)
                return E_POINTER;
            *object = nullptr;
            return outer ? CLASS_E_NOAGGREGATION : MakeObject<T>()->QueryInterface(iid, object);
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        LockServerModule(lock != FALSE);
        return S_OK;
    }
};

} // namespace ormisk
