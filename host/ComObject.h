#pragma once

#include <oaidl.h>
#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

#include <atomic>
#include <utility>

namespace ormisk {

using Microsoft::WRL::ComPtr;

// IUnknown for an object that answers the interfaces given; the first one is its identity. The first reference is that
// of MakeCom.
template <class First, class... Others> class ComObject : public First, public Others... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (!result)
            return E_POINTER;
        *result = Find(iid);
        if (!*result)
            return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_Count; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG count = --m_Count;
        if (count == 0)
            delete this;
        return count;
    }

protected:
    virtual ~ComObject() = default;

    // The interface of that number, uncounted; null when the object has none. A derived class adds the bases of its
    // interfaces here.
    virtual void* Find(REFIID iid) {
        if (IsEqualIID(iid, IID_IUnknown))
            return static_cast<First*>(this);
        void* found = As<First>(iid);
        ((found = found ? found : As<Others>(iid)), ...);
        return found;
    }

    template <class Interface> void* As(REFIID iid) {
        return IsEqualIID(iid, __uuidof(Interface)) ? static_cast<Interface*>(this) : nullptr;
    }

private:
    std::atomic<ULONG> m_Count = 0;
};

// An object with IDispatch among its interfaces, of whose members no type tells.
template <class... Interfaces> class UntypedObject : public ComObject<Interfaces...> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        *info = nullptr;
        return E_NOTIMPL;
    }
};

template <class T, class... Args> ComPtr<T> MakeCom(Args&&... args) {
    return ComPtr<T>(new T(std::forward<Args>(args)...));
}

} // namespace ormisk

// The toolchain's ComPtr has no comparison of its own, and would compare whether there are objects at all.
namespace Microsoft::WRL {

template <class T, class U> bool operator==(const ComPtr<T>& a, const ComPtr<U>& b) { return a.Get() == b.Get(); }

} // namespace Microsoft::WRL
