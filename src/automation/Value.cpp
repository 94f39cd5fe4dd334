#include "automation/Value.h"

#include "automation/TypeLibrary.h"

#include <cmath>
#include <cwchar>

namespace ormisk {

namespace {

// The value behind VT_BYREF | VT_VARIANT.
const VARIANT& Referred(const VARIANT& v) {
    const bool refers = V_VT(&v) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&v);
    return refers ? *V_VARIANTREF(&v) : v;
}

VARTYPE TypeOf(const VARIANT& v) { return V_VT(&Referred(v)) & ~VT_BYREF; }

bool IsText(const VARIANT& v) { return V_VT(&v) == VT_BSTR; }

bool IsNumberOrBoolean(VARTYPE type) {
    switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
    case VT_BOOL:
        return true;
    default:
        return false;
    }
}

bool SameText(BSTR a, BSTR b) {
    const UINT length = SysStringLen(a);
    return length == SysStringLen(b) && (length == 0 || std::wmemcmp(a, b, length) == 0);
}

// A text beside a value of another kind is read as one of that kind, so that it compares by meaning.
bool ReadAs(VARTYPE other, VARIANT& text) {
    VARTYPE type = VT_BSTR;
    if (IsNumberOrBoolean(other)) {
        type = VT_R8;
    } else if (other == VT_DATE) {
        type = VT_DATE;
    }
    if (SUCCEEDED(VariantChangeTypeEx(&text, &text, LOCALE_USER_DEFAULT, 0, type))) {
        return true;
    }
    return other == VT_BOOL && SUCCEEDED(VariantChangeTypeEx(&text, &text, LOCALE_USER_DEFAULT, 0, VT_BOOL));
}

const wchar_t* ElementName(VARTYPE type) {
    switch (type) {
    case VT_EMPTY:
        return L"Empty";
    case VT_NULL:
        return L"Null";
    case VT_I2:
        return L"Integer";
    case VT_I4:
    case VT_INT:
        return L"Long";
    case VT_R4:
        return L"Single";
    case VT_R8:
        return L"Double";
    case VT_CY:
        return L"Currency";
    case VT_DATE:
        return L"Date";
    case VT_BSTR:
        return L"String";
    case VT_DISPATCH:
        return L"Object";
    case VT_ERROR:
        return L"Error";
    case VT_BOOL:
        return L"Boolean";
    case VT_VARIANT:
        return L"Variant";
    case VT_DECIMAL:
        return L"Decimal";
    case VT_UI1:
        return L"Byte";
    case VT_I1:
        return L"SByte";
    case VT_UI2:
        return L"UShort";
    case VT_UI4:
    case VT_UINT:
        return L"ULong";
    case VT_I8:
        return L"LongLong";
    case VT_UI8:
        return L"ULongLong";
    default:
        return L"Unknown";
    }
}

std::wstring ClassNameOf(IUnknown* object) {
    ComPtr<ITypeInfo> info;
    if (const auto provider = Query<IProvideClassInfo>(object)) {
        provider->GetClassInfo(info.GetAddressOf());
    }
    if (!info) {
        if (const auto dispatch = Query<IDispatch>(object)) {
            dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.GetAddressOf());
        }
    }
    const std::wstring name = info ? NameOf(info.Get()) : std::wstring();
    return name.empty() ? L"Object" : name;
}

} // namespace

bool HoldsObject(const VARIANT& v) {
    const VARTYPE type = TypeOf(v);
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

IUnknown* ObjectOf(const VARIANT& v) {
    if (!HoldsObject(v)) {
        return nullptr;
    }
    const VARIANT& value = Referred(v);
    if (V_VT(&value) & VT_BYREF) {
        return V_UNKNOWNREF(&value) ? *V_UNKNOWNREF(&value) : nullptr;
    }
    return V_UNKNOWN(&value);
}

ComPtr<IDispatch> DispatchOf(const VARIANT& v) {
    IUnknown* const object = ObjectOf(v);
    if (TypeOf(v) == VT_DISPATCH) {
        return static_cast<IDispatch*>(object);
    }
    return Query<IDispatch>(object);
}

bool IsMissing(const VARIANT& v) {
    const VARIANT& value = Referred(v);
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

bool SameObject(IUnknown* a, IUnknown* b) {
    if (a == b || !a || !b) {
        return a == b;
    }
    const ComPtr<IUnknown> first(a); // while they are asked who they are
    const ComPtr<IUnknown> second(b);
    return Query<IUnknown>(first).Get() == Query<IUnknown>(second).Get();
}

Comparison CompareValues(const VARIANT& a, const VARIANT& b) {
    _variant_t left = Plain(a);
    _variant_t right = Plain(b);
    if (V_VT(&left) == VT_NULL || V_VT(&right) == VT_NULL) {
        return Comparison::Null;
    }
    if (IsText(left) && IsText(right)) {
        return SameText(V_BSTR(&left), V_BSTR(&right)) ? Comparison::Equal : Comparison::Different;
    }
    if ((IsText(left) && !ReadAs(V_VT(&right), left)) || (IsText(right) && !ReadAs(V_VT(&left), right))) {
        return Comparison::Different;
    }
    return VarCmp(&left, &right, LOCALE_USER_DEFAULT, 0) == static_cast<HRESULT>(VARCMP_EQ) ? Comparison::Equal
                                                                                            : Comparison::Different;
}

_variant_t Plain(const VARIANT& v) {
    _variant_t copy;
    CheckSystem(VariantCopyInd(&copy, const_cast<VARIANT*>(&v)));
    return copy;
}

std::wstring TextOf(const VARIANT& v) {
    _variant_t value = Plain(v);
    if (V_VT(&value) == VT_NULL) {
        return {};
    }
    CheckSystem(VariantChangeTypeEx(&value, &value, LOCALE_USER_DEFAULT, VARIANT_ALPHABOOL, VT_BSTR));
    return FromBstr(V_BSTR(&value));
}

bool IsNumeric(const VARIANT& v) {
    const VARTYPE type = TypeOf(v);
    if (type == VT_EMPTY || IsNumberOrBoolean(type)) {
        return true;
    }
    if (type != VT_BSTR && type != VT_DISPATCH) {
        return false;
    }
    _variant_t value;
    return SUCCEEDED(VariantCopyInd(&value, const_cast<VARIANT*>(&v))) &&
           SUCCEEDED(VariantChangeTypeEx(&value, &value, LOCALE_USER_DEFAULT, 0, VT_R8));
}

std::wstring TypeNameOf(const VARIANT& v) {
    if (HoldsObject(v)) {
        IUnknown* object = ObjectOf(v);
        return object ? ClassNameOf(object) : L"Nothing";
    }
    const VARTYPE type = TypeOf(v);
    const std::wstring element = ElementName(type & ~VT_ARRAY);
    return type & VT_ARRAY ? element + L"()" : element;
}

std::wstring FromBstr(BSTR text) { return text ? std::wstring(text, SysStringLen(text)) : std::wstring(); }

_bstr_t ToBstr(const std::wstring& text) { return _bstr_t(NewBstr(text), false); }

BSTR NewBstr(const std::wstring& text) {
    if (BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        return result;
    }
    Raise(E_OUTOFMEMORY, SystemText(E_OUTOFMEMORY));
}

_variant_t ToVariant(const std::wstring& text) {
    _variant_t value;
    V_BSTR(&value) = NewBstr(text);
    V_VT(&value) = VT_BSTR;
    return value;
}

} // namespace ormisk
