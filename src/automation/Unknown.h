#pragma once

#include "automation/ComPtr.h"
#include "automation/LiveObject.h"

namespace ormisk {

// QueryInterface of an object that answers for the interfaces given; the first of them is its identity.
template <class First, class... Others, class Object> HRESULT Answer(Object* self, REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(First))
        *object = static_cast<First*>(self);
    else
        static_cast<void>(((iid == __uuidof(Others) && (*object = static_cast<Others*>(self))) || ...));
    if (!*object)
        return E_NOINTERFACE;
    self->AddRef();
    return S_OK;
}

// A small object of plain interfaces: one reference for its maker to adopt, gone with the last. Counted from any
// thread.
template <class... Interfaces> class Unknown : public Interfaces..., LiveObject {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override { return Answer<Interfaces...>(this, iid, object); }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&m_References)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&m_References);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

protected:
    Unknown() = default;
    virtual ~Unknown() = default;

private:
    volatile LONG m_References = 1;
};

} // namespace ormisk
