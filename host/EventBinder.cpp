#include "EventBinder.h"

#include "EventArguments.h"
#include "Failure.h"

#include <ocidl.h>
#include <oleauto.h>

#include <map>
#include <memory>

namespace ormisk {
namespace {

// Frees an attribute block of a type description.
struct FreeAttributes {
    ITypeInfo* info;
    void operator()(TYPEATTR* attributes) const { info->ReleaseTypeAttr(attributes); }
    void operator()(FUNCDESC* function) const { info->ReleaseFuncDesc(function); }
};

std::unique_ptr<TYPEATTR, FreeAttributes> AttributesOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    Check(info->GetTypeAttr(&attributes), L"The control's description cannot be read");
    return {attributes, FreeAttributes{info}};
}

// The default event interface of an object's class.
ComPtr<ITypeInfo> EventsOf(IUnknown* control) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> coclass;
    Check(control->QueryInterface(IID_PPV_ARGS(&provider)), L"The control does not describe its events");
    Check(provider->GetClassInfo(&coclass), L"The control does not describe its events");
    const UINT count = AttributesOf(coclass.Get())->cImplTypes;
    for (UINT i = 0; i < count; ++i) {
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> events;
        if (SUCCEEDED(coclass->GetImplTypeFlags(i, &flags)) && (flags & IMPLTYPEFLAG_FSOURCE) &&
            (flags & IMPLTYPEFLAG_FDEFAULT) && SUCCEEDED(coclass->GetRefTypeOfImplType(i, &reference)) &&
            SUCCEEDED(coclass->GetRefTypeInfo(reference, &events)))
            return events;
    }
    throw Failure{L"The control has no events"};
}

std::map<DISPID, std::wstring> NamesOf(ITypeInfo* events) {
    std::map<DISPID, std::wstring> names;
    const UINT count = AttributesOf(events)->cFuncs;
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* described = nullptr;
        Check(events->GetFuncDesc(i, &described), L"The control's events cannot be read");
        const std::unique_ptr<FUNCDESC, FreeAttributes> function(described, FreeAttributes{events});
        BSTR name = nullptr;
        UINT found = 0;
        if (SUCCEEDED(events->GetNames(function->memid, &name, 1, &found)) && name)
            names[function->memid] = name;
        SysFreeString(name);
    }
    return names;
}

class EventSink final : public UntypedObject<IDispatch> {
public:
    EventSink(REFIID iid, std::map<DISPID, std::wstring> procedures, ScriptEngine& script, Run& run)
        : m_Iid(iid), m_Procedures(std::move(procedures)), m_Script(script), m_Run(run) {}

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }

    // Always succeeds: an error of the script ends the run, and until it has ended the control is left in peace.
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override {
        const ComPtr<EventSink> alive(this); // a procedure may replace the control
        const auto procedure = m_Procedures.find(id);
        if (procedure == m_Procedures.end() || m_Run.Ending())
            return S_OK;
        try {
            EventArguments forScript(*arguments);
            m_Script.CallProcedure(procedure->second, forScript.Parameters());
            if (!m_Run.Ending())
                forScript.WriteBack();
        } catch (const Failure& failure) {
            m_Script.FailIn(procedure->second, failure.text);
        } catch (...) {
            m_Script.FailIn(procedure->second, L"out of memory");
        }
        return S_OK;
    }

private:
    void* Find(REFIID iid) override {
        return IsEqualIID(iid, m_Iid) ? static_cast<IDispatch*>(this) : ComObject::Find(iid);
    }

    const IID m_Iid;
    const std::map<DISPID, std::wstring> m_Procedures;
    ScriptEngine& m_Script;
    Run& m_Run;
};

} // namespace

EventBinder::EventBinder(IUnknown* control, const std::wstring& prefix, ScriptEngine& script, Run& run) {
    const ComPtr<ITypeInfo> events = EventsOf(control);
    std::map<DISPID, std::wstring> procedures = NamesOf(events.Get());
    for (auto& [id, name] : procedures)
        name.insert(0, prefix);
    const IID iid = AttributesOf(events.Get())->guid;
    ComPtr<IConnectionPointContainer> container;
    Check(control->QueryInterface(IID_PPV_ARGS(&container)), L"The control raises no events");
    Check(container->FindConnectionPoint(iid, &m_Source), L"The control does not raise the events that it describes");
    const ComPtr<EventSink> sink = MakeCom<EventSink>(iid, std::move(procedures), script, run);
    Check(m_Source->Advise(sink.Get(), &m_Cookie), L"The control refuses a listener");
}

EventBinder::~EventBinder() { m_Source->Unadvise(m_Cookie); }

} // namespace ormisk
