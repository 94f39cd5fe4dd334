#include "EventSink.h"

#include <gtest/gtest.h>

namespace ormisk::test {
namespace {

// The default event interface of the object's class; null without one.
ComPtr<ITypeInfo> EventsOf(IUnknown* object) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> coclass;
    TYPEATTR* attributes = nullptr;
    if (FAILED(object->QueryInterface(IID_PPV_ARGS(&provider))) || FAILED(provider->GetClassInfo(&coclass)) ||
        FAILED(coclass->GetTypeAttr(&attributes)))
        return nullptr;
    const UINT count = attributes->cImplTypes;
    coclass->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        constexpr int kWanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> events;
        if (SUCCEEDED(coclass->GetImplTypeFlags(i, &flags)) && (flags & kWanted) == kWanted &&
            SUCCEEDED(coclass->GetRefTypeOfImplType(i, &reference)) &&
            SUCCEEDED(coclass->GetRefTypeInfo(reference, &events)))
            return events;
    }
    return nullptr;
}

} // namespace

ComPtr<EventSink> EventSink::Connect(IUnknown* object) {
    ComPtr<EventSink> sink;
    sink.Attach(new EventSink);
    sink->m_Events = EventsOf(object);
    ComPtr<IConnectionPointContainer> container;
    TYPEATTR* attributes = nullptr;
    if (!sink->m_Events || FAILED(sink->m_Events->GetTypeAttr(&attributes))) {
        ADD_FAILURE() << "no events are described";
        return sink;
    }
    sink->m_Iid = attributes->guid;
    sink->m_Events->ReleaseTypeAttr(attributes);
    EXPECT_EQ(object->QueryInterface(IID_PPV_ARGS(&container)), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(sink->m_Iid, &sink->m_Source), S_OK);
    EXPECT_EQ(sink->m_Source->Advise(sink.Get(), &sink->m_Cookie), S_OK);
    return sink;
}

void EventSink::Disconnect() {
    onEvent = nullptr;
    if (m_Source)
        m_Source->Unadvise(m_Cookie);
    m_Source.Reset();
}

HRESULT EventSink::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IDispatch) && !IsEqualIID(iid, m_Iid))
        return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG EventSink::Release() {
    const ULONG count = --m_Count;
    if (count == 0)
        delete this;
    return count;
}

HRESULT EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) {
    BSTR text = nullptr;
    UINT found = 0;
    if (FAILED(m_Events->GetNames(id, &text, 1, &found)) || found != 1)
        return DISP_E_MEMBERNOTFOUND;
    const std::wstring name = text;
    SysFreeString(text);
    names.push_back(name);
    const ComPtr<EventSink> alive(this);
    if (const auto handler = onEvent)
        handler(name, *arguments);
    return S_OK;
}

} // namespace ormisk::test
