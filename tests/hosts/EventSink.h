#pragma once

#include "LateBound.h"

#include <ocidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ormisk::test {

// Listens to the default events of an object as a script engine does: by the names in the object's own description.
// What a handler does is up to the test; the names of all events are kept in order.
class EventSink final : public IDispatch {
public:
    // Nothing is connected when the object describes no events.
    static ComPtr<EventSink> Connect(IUnknown* object);

    void Disconnect();

    std::vector<std::wstring> names;
    std::function<void(const std::wstring& name, const DISPPARAMS& arguments)> onEvent;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_Count; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override;

private:
    EventSink() = default;
    ~EventSink() = default;

    ULONG m_Count = 1;
    IID m_Iid = {};
    DWORD m_Cookie = 0;
    ComPtr<IConnectionPoint> m_Source;
    ComPtr<ITypeInfo> m_Events;
};

} // namespace ormisk::test
