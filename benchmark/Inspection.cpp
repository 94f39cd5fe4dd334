#include "Inspection.h"

#include "GridWindow.h"
#include "Sorting.h"
#include "Stopwatch.h"

#include <comutil.h>
#include <oleauto.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace ormisk::bench {
namespace {

constexpr GUID kInterfaces[] = {
    {0xc4c54d3c, 0x8d0e, 0x4b52, {0x9a, 0x57, 0x52, 0xac, 0x39, 0xd4, 0xa2, 0x01}},
    {0xc4c54d3c, 0x8d0e, 0x4b52, {0x9a, 0x57, 0x52, 0xac, 0x39, 0xd4, 0xa2, 0x02}},
    {0xc4c54d3c, 0x8d0e, 0x4b52, {0x9a, 0x57, 0x52, 0xac, 0x39, 0xd4, 0xa2, 0x03}},
};
constexpr int kCounts[] = {10, 100, 1000};
constexpr LCID kLocale = 0x409;
constexpr DISPID kFirstId = 1000; // of the members

// An object whose calls go through its type library, as those of most objects do. Its names are found in a table of its
// own. All members share their value.
class ManyMembers {
public:
    ManyMembers(ITypeLib* library, REFGUID id, int count) {
        Need(library->GetTypeInfoOfGuid(id, &m_Info), "type information");
        const Slot base[] = {Of(Query),        Of(AddRef),    Of(Release), Of(TypeInfoCount),
                             Of(GiveTypeInfo), Of(FindNames), Of(Invoke)};
        m_Slots.assign(std::begin(base), std::end(base));
        for (int i = 0; i < count; ++i) {
            const bool number = i % 2 == 0;
            m_Slots.push_back(number ? Of(GetNumber) : Of(GetText));
            m_Slots.push_back(number ? Of(PutNumber) : Of(PutText));
            const DISPID member = kFirstId + i;
            BSTR name = nullptr;
            UINT found = 0;
            Need(m_Info->GetNames(member, &name, 1, &found), "name of a member");
            m_Names.emplace_back(name);
            m_Ids[name] = member;
            SysFreeString(name);
        }
        m_Object.slots = m_Slots.data();
        m_Object.self = this;
    }
    ManyMembers(const ManyMembers&) = delete;
    ManyMembers& operator=(const ManyMembers&) = delete;

    IDispatch* Dispatch() { return reinterpret_cast<IDispatch*>(&m_Object); }
    const std::vector<std::wstring>& Names() const { return m_Names; }

private:
    using Slot = void*;
    struct Object {
        const Slot* slots;
        ManyMembers* self;
    };
    template <class F> static Slot Of(F* function) { return reinterpret_cast<Slot>(function); }

    static HRESULT STDMETHODCALLTYPE Query(Object* object, REFIID iid, void** result) {
        const bool answered = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
        *result = answered ? object : nullptr;
        return answered ? S_OK : E_NOINTERFACE;
    }
    static ULONG STDMETHODCALLTYPE AddRef(Object*) { return 2; }
    static ULONG STDMETHODCALLTYPE Release(Object*) { return 1; }
    static HRESULT STDMETHODCALLTYPE TypeInfoCount(Object*, UINT* count) { return *count = 1, S_OK; }
    static HRESULT STDMETHODCALLTYPE GiveTypeInfo(Object* object, UINT, LCID, ITypeInfo** info) {
        return object->self->m_Info.CopyTo(info);
    }
    static HRESULT STDMETHODCALLTYPE FindNames(Object* object, REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
        const auto found = object->self->m_Ids.find(names[0]);
        *ids = found == object->self->m_Ids.end() ? DISPID_UNKNOWN : found->second;
        return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    static HRESULT STDMETHODCALLTYPE Invoke(Object* object, DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                            VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
        return object->self->m_Info->Invoke(object, id, flags, parameters, result, exception, badArgument);
    }
    static HRESULT STDMETHODCALLTYPE GetNumber(Object* object, LONG* value) {
        return *value = object->self->m_Number, S_OK;
    }
    static HRESULT STDMETHODCALLTYPE PutNumber(Object* object, LONG value) {
        return object->self->m_Number = value, S_OK;
    }
    static HRESULT STDMETHODCALLTYPE GetText(Object* object, BSTR* value) {
        return *value = SysAllocString(object->self->m_Text.c_str()), S_OK;
    }
    static HRESULT STDMETHODCALLTYPE PutText(Object* object, BSTR value) { return object->self->m_Text = value, S_OK; }

    Object m_Object{};
    std::vector<Slot> m_Slots;
    ComPtr<ITypeInfo> m_Info;
    std::vector<std::wstring> m_Names;
    std::unordered_map<std::wstring, DISPID> m_Ids;
    LONG m_Number = 12;
    std::wstring m_Text = L"A text of some length";
};

DISPID Find(IDispatch* object, const std::wstring& name) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(name.c_str())};
    DISPID id = DISPID_UNKNOWN;
    Need(object->GetIDsOfNames(IID_NULL, names, 1, kLocale, &id), "name");
    return id;
}

_variant_t Get(IDispatch* object, const std::wstring& name) {
    DISPPARAMS none{};
    _variant_t value;
    Need(object->Invoke(Find(object, name), IID_NULL, kLocale, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr),
         "get");
    return value;
}

void Put(IDispatch* object, const std::wstring& name, _variant_t value) {
    VARIANT reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &value;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&reference, &put, 1, 1};
    Need(object->Invoke(Find(object, name), IID_NULL, kLocale, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                        nullptr),
         "put");
}

ComPtr<ITypeLib> OwnLibrary() {
    wchar_t path[MAX_PATH];
    ComPtr<ITypeLib> library;
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    Need(LoadTypeLibEx(path, REGKIND_NONE, &library), "own type library");
    return library;
}

} // namespace

void MeasureInspection(const GridWindow& window) {
    const ComPtr<ITypeLib> library = OwnLibrary();
    for (std::size_t i = 0; i < std::size(kCounts); ++i) {
        ManyMembers object(library.Get(), kInterfaces[i], kCounts[i]);
        const auto empty = [&window] {
            _variant_t nothing;
            Need(window.Properties()->Clear(&nothing), "Clear");
            window.Settle();
        };
        const auto load = [&] {
            VARIANT_BOOL done = VARIANT_FALSE;
            Need(window.Grid()->LoadObjectProperties(object.Dispatch(), VARIANT_TRUE, VARIANT_TRUE, &done), "load");
        };
        const auto call = [&object] {
            for (const std::wstring& name : object.Names()) {
                Put(object.Dispatch(), name, Get(object.Dispatch(), name));
                Get(object.Dispatch(), name);
            }
        };
        constexpr int kRuns = 31;
        Report("inspect", kCounts[i], MedianOf(kRuns, empty, load));
        Report("inspect_calls", kCounts[i], MedianOf(kRuns, empty, call));
        empty();
    }
}

} // namespace ormisk::bench
