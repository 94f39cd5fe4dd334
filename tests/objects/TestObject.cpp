#include "TestObject.h"

#include "automation/Dispatch.h"
#include "automation/TypeLibrary.h"

namespace ormisk::test {

namespace {

enum Member : DISPID {
    kFailsRead = 50,
    kFailsWrite = 51,
    kCoerces = 52,
    kCounts = 53,
    kNoisy = 54,
    kPicky = 55,
    kLooks = 60,
    kOwn = 61,
    kUnsorted = 62,
    kUncategorized = 63,
    kNil = 64,
    kReadOnly = 48,
    kShape = 70,
    kCallback = 71,
    kCalls = 72,
};
constexpr PROPCAT kAppearance = -5;
constexpr PROPCAT kOwnCategory = 1;

_variant_t ValueOf(VARTYPE type, long number) {
    _variant_t value(number);
    value.ChangeType(type);
    return value;
}

ComPtr<ITypeInfo> InterfaceSideOf(const ComPtr<ITypeInfo>& dispatch) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> info;
    Check(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    Check(dispatch->GetRefTypeInfo(reference, info.GetAddressOf()));
    return info;
}

HRESULT Refuse(EXCEPINFO* exception) {
    return GiveException({DISP_E_OVERFLOW, L"TestObject", L"Refused.", {}}, exception);
}

} // namespace

TestObject::TestObject() : m_Members(TypeInfoOf(__uuidof(ITestObject))) {
    constexpr VARTYPE kTypes[] = {VT_UI1, VT_I1,   VT_I2,   VT_UI2,  VT_I4,  VT_INT, VT_I8, VT_DECIMAL, VT_R4,
                                  VT_R8,  VT_DATE, VT_BSTR, VT_BOOL, VT_UI4, VT_UI4, VT_I4, VT_I4,      VT_I4};
    DISPID id = 10;
    for (const VARTYPE type : kTypes)
        m_Values[id++] = ValueOf(type, 3);
    for (const DISPID object : {28, 29, 32, 71})
        m_Values[object] = static_cast<IDispatch*>(nullptr);
    m_Values[1] = L"base";
    m_Values[30] = ValueOf(VT_CY, 3);
    m_Values[31] = L"anything";
    for (const DISPID number : {34, 35, 40, 41, 42, 47, 48, 50, 51, 52, 53, 54, 55, 60, 61, 62, 63, 64, -501, 70, 72})
        m_Values[number] = 0L;
}

HRESULT TestObject::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch))
        *object = static_cast<IDispatch*>(this);
    else if (iid == __uuidof(ICategorizeProperties))
        *object = static_cast<ICategorizeProperties*>(this);
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG TestObject::Release() {
    const ULONG left = m_References.Remove();
    if (left == 0)
        delete this;
    return left;
}

long TestObject::ShapeNow() const { return V_I4(&m_Values.at(kShape)); }

HRESULT TestObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    return Guarded(IID_IDispatch, [&]() -> HRESULT {
        *info = nullptr;
        switch (ShapeNow()) {
        case NoTypeInformation:
            return TYPE_E_ELEMENTNOTFOUND;
        case PureDispatch:
            *info = TypeInfoOf(__uuidof(DTestObject)).Detach();
            return S_OK;
        case InterfaceSide:
            *info = InterfaceSideOf(m_Members).Detach();
            return S_OK;
        case ClassOfIt:
            *info = TypeInfoOf(__uuidof(::TestObject)).Detach();
            return S_OK;
        default:
            return m_Members.CopyTo(info);
        }
    });
}

HRESULT TestObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return m_Members->GetIDsOfNames(names, count, ids);
}

HRESULT TestObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
    const ComPtr<IDispatch> held(this);
    ++m_Calls;
    if (!m_Values.contains(id))
        return DISP_E_MEMBERNOTFOUND;
    if (ShapeNow() == FailingCalls && id < kShape)
        return Refuse(exception);
    CallBack(id);
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const HRESULT hr = puts ? Put(id, parameters->rgvarg[0]) : Get(id, result);
    return hr == DISP_E_EXCEPTION ? Refuse(exception) : hr;
}

HRESULT TestObject::Get(DISPID id, VARIANT* result) {
    if (id == kFailsRead)
        return DISP_E_EXCEPTION;
    if (id == kCalls)
        m_Values[id] = m_Calls;
    if (id == kCounts)
        m_Values[id] = V_I4(&m_Values[id]) + 1;
    return result ? VariantCopy(result, &m_Values[id]) : S_OK;
}

// A member keeps the type that it was made with.
HRESULT TestObject::Put(DISPID id, const VARIANT& given) {
    if (id == kReadOnly || id == kNil)
        return DISP_E_MEMBERNOTFOUND;
    if (id == kFailsWrite)
        return DISP_E_EXCEPTION;
    if (id == kPicky && V_VT(&given) != (VT_BYREF | VT_I4))
        return DISP_E_TYPEMISMATCH;
    return Guarded(IID_IDispatch, [&]() -> HRESULT {
        _variant_t value = Plain(given);
        _variant_t& kept = m_Values[id];
        if (id != 31 && !HoldsObject(kept))
            value.ChangeType(V_VT(&kept));
        else if (HoldsObject(kept) && !HoldsObject(value))
            return DISP_E_TYPEMISMATCH;
        if (id == kCoerces && V_I4(&value) > 100)
            value = 100L;
        const _variant_t former = kept;
        kept = value;
        return S_OK;
    });
}

// A noisy member tells of each use, before it answers.
void TestObject::CallBack(DISPID id) {
    const ComPtr<IDispatch> callback(V_DISPATCH(&m_Values[kCallback]));
    if (id != kNoisy || !callback)
        return;
    DISPPARAMS none{};
    callback->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
}

HRESULT TestObject::MapPropertyToCategory(DISPID id, PROPCAT* category) {
    switch (id) {
    case kLooks:
        *category = kAppearance;
        return S_OK;
    case kOwn:
        *category = kOwnCategory;
        return S_OK;
    case kNil:
        *category = kNilCategory;
        return S_OK;
    case kUncategorized:
        return E_FAIL;
    case -501:
        *category = kNilCategory; // not asked of stock properties
        return S_OK;
    default:
        *category = id == kUnsorted ? 0 : -2;
        return S_OK;
    }
}

HRESULT TestObject::GetCategoryName(PROPCAT category, LCID, BSTR* name) {
    *name = nullptr;
    if (category != kOwnCategory)
        return E_INVALIDARG;
    *name = SysAllocString(L"Flavours");
    return S_OK;
}

} // namespace ormisk::test
