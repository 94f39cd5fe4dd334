#pragma once

#include "automation/Dispatch.h"
#include "automation/Events.h"
#include "automation/TypeLibrary.h"

#include <ocidl.h>

namespace ormisk {

namespace detail {

// The base of an object with events, and of one without.
template <class Source> class EventsOf : public ConnectionPoints {
protected:
    EventsOf() : ConnectionPoints(__uuidof(Source)) {}
};
template <> class EventsOf<void> {};

} // namespace detail

// A public object: IUnknown, IDispatch of Primary through the type library, ISupportErrorInfo, IProvideClassInfo2 (with
// a CoClass) and, with a Source, IConnectionPointContainer with HasListeners and Fire. Each of Others is answered by
// its identifier; one that stands for several interfaces has a member `void *FindInterface(REFIID)` of its own that
// answers with a borrowed pointer or null. Made by MakeObject.
template <class Primary, class CoClass, class Source = void, class... Others>
class DispatchObject : public Primary,
                       public ISupportErrorInfo,
                       public IProvideClassInfo2,
                       public detail::EventsOf<Source>,
                       public Others... {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = FindOwn(iid);
        if (!*object)
            return QueryOther(iid, object);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_References.Add(); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = m_References.Remove();
        if (left == 0) {
            m_References.HoldForever();
            IgnoringFailures([&] { FinalRelease(); });
            delete this;
        }
        return left;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        return Guarded(__uuidof(Primary), [&] { return GiveTypeInfo(PrimaryType().Info(), index, info); });
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return Guarded(__uuidof(Primary), [&] { return FindMembers(PrimaryType().Info(), iid, names, count, ids); });
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override {
        return Guarded(__uuidof(Primary), [&] {
            return InvokeMember(PrimaryType(), static_cast<Primary*>(this), {id, locale, flags}, iid, parameters,
                                {result, exception, badArgument});
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid != __uuidof(IUnknown) && FindOwn(iid) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
        return Guarded(__uuidof(IProvideClassInfo), [&] {
            CheckPointer(info);
            *info = nullptr;
            if constexpr (!std::is_void_v<CoClass>)
                *info = TypeInfoOf(__uuidof(CoClass)).Detach();
        });
    }
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
        if (!id)
            return E_POINTER;
        *id = GUID_NULL;
        if constexpr (!std::is_void_v<Source>) {
            if (kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
                *id = __uuidof(Source);
                return S_OK;
            }
        }
        return E_INVALIDARG;
    }

    // Borrowed; for comparing and passing on without a choice of base.
    IUnknown* Identity() { return static_cast<Primary*>(this); }

protected:
    DispatchObject() = default;
    virtual ~DispatchObject() = default;
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    // Runs once, when the last reference has gone and before the destructor. References taken in it must not outlive
    // it.
    virtual void FinalRelease() {}
    // Further interfaces: gives a counted reference and S_OK.
    virtual HRESULT QueryOther(REFIID, void**) { return E_NOINTERFACE; }

private:
    static const DispatchType& PrimaryType() {
        static const DispatchType type(TypeInfoOf(__uuidof(Primary)));
        return type;
    }

    void* FindOwn(REFIID iid) {
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Primary))
            return static_cast<Primary*>(this);
        if (iid == __uuidof(ISupportErrorInfo))
            return static_cast<ISupportErrorInfo*>(this);
        if constexpr (!std::is_void_v<CoClass>) {
            if (iid == __uuidof(IProvideClassInfo) || iid == __uuidof(IProvideClassInfo2))
                return static_cast<IProvideClassInfo2*>(this);
        }
        if constexpr (!std::is_void_v<Source>) {
            if (iid == __uuidof(IConnectionPointContainer))
                return static_cast<IConnectionPointContainer*>(this);
        }
        void* found = nullptr;
        static_cast<void>(((found = FindIn<Others>(iid)) || ...));
        return found;
    }
    template <class Other> void* FindIn(REFIID iid) {
        if constexpr (requires(Other& other) { other.FindInterface(iid); })
            return static_cast<Other*>(this)->FindInterface(iid);
        else
            return iid == __uuidof(Other) ? static_cast<Other*>(this) : nullptr;
    }

    ReferenceCount m_References;
};

// Makes an object with one reference, the caller's.
template <class T, class... Args> ComPtr<T> MakeObject(Args&&... args) {
    return Adopt(new T(std::forward<Args>(args)...));
}

} // namespace ormisk
