#pragma once

#include "automation/DispatchObject.h"

namespace ormisk {

// The class object of a creatable class.
template <class T> class ClassFactory final : public IClassFactory, LiveObject {
public:
    // For DllGetClassObject: gives a counted reference.
    static HRESULT Give(REFIID iid, void** object) {
        return Guarded(iid, [&] { return Adopt(new ClassFactory)->QueryInterface(iid, object); });
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) {
            return E_POINTER;
        }
        const bool answered = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
        *object = answered ? this : nullptr;
        if (answered) {
            AddRef();
        }
        return answered ? S_OK : E_NOINTERFACE;
    }
    // Class objects are called from any thread.
    STDMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&m_References); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = InterlockedDecrement(&m_References);
        if (left == 0) {
            delete this;
        }
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return Guarded(iid, [&]() -> HRESULT {
            if (!object) {
                return E_POINTER;
            }
            *object = nullptr;
            return outer ? CLASS_E_NOAGGREGATION : MakeObject<T>()->QueryInterface(iid, object);
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        LockServerModule(lock != FALSE);
        return S_OK;
    }

private:
    ClassFactory() = default;
    ~ClassFactory() = default;

    volatile LONG m_References = 1;
};

} // namespace ormisk
