#include "automation/Value.h"

#include "automation/ByName.h"
#include "automation/TypeLibrary.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace ormisk {

namespace {

// The value behind VT_BYREF | VT_VARIANT.
const VARIANT& Referred(const VARIANT& v) {
    const bool refers = V_VT(&v) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&v);
    return refers ? *V_VARIANTREF(&v) : v;
}

VARTYPE TypeOf(const VARIANT& v) { return V_VT(&Referred(v)) & ~VT_BYREF; }

// A value where it lies, or a copy of one that is referred to.
class Direct {
public:
    explicit Direct(const VARIANT& v) : m_Value(&Referred(v)) {
        if (V_ISBYREF(m_Value)) {
            m_Copy = Plain(*m_Value);
            m_Value = &m_Copy;
        }
    }
    Direct(const Direct&) = delete;
    Direct& operator=(const Direct&) = delete;
    const VARIANT& operator*() const { return *m_Value; }

private:
    const VARIANT* m_Value;
    _variant_t m_Copy;
};

std::wstring_view ViewBstr(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

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

// A text as a value of the kind of another, so that it compares by meaning. The general way would copy the text first.
bool ReadAs(VARTYPE other, BSTR text, VARIANT& read) {
    wchar_t none[] = L"";
    wchar_t* const characters = text ? text : none;
    if (other == VT_DATE) {
        V_VT(&read) = VT_DATE;
        return SUCCEEDED(VarDateFromStr(characters, LOCALE_USER_DEFAULT, 0, &V_DATE(&read)));
    }
    V_VT(&read) = VT_R8;
    if (SUCCEEDED(VarR8FromStr(characters, LOCALE_USER_DEFAULT, 0, &V_R8(&read))))
        return true;
    V_VT(&read) = VT_BOOL;
    return other == VT_BOOL && SUCCEEDED(VarBoolFromStr(characters, LOCALE_USER_DEFAULT, 0, &V_BOOL(&read)));
}

Comparison CompareMixed(const VARIANT& left, const VARIANT& right) {
    const HRESULT hr = VarCmp(const_cast<VARIANT*>(&left), const_cast<VARIANT*>(&right), LOCALE_USER_DEFAULT, 0);
    return hr == static_cast<HRESULT>(VARCMP_EQ) ? Comparison::Equal : Comparison::Different;
}

// Hexadecimal digits as Basic writes them, with an "&" at the end of a long number or without.
std::optional<std::uint32_t> ReadHexText(std::wstring_view text) {
    if (!text.starts_with(L"&H") && !text.starts_with(L"&h"))
        return std::nullopt;
    std::wstring digits(text.substr(2));
    if (digits.ends_with(L'&'))
        digits.pop_back();
    const bool fits = !digits.empty() && digits.size() <= 8 &&
                      digits.find_first_not_of(L"0123456789abcdefABCDEF") == std::wstring::npos;
    return fits ? std::optional(static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16))) : std::nullopt;
}

} // namespace

bool HoldsObject(const VARIANT& v) {
    const VARTYPE type = TypeOf(v);
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

IUnknown* ObjectOf(const VARIANT& v) {
    if (!HoldsObject(v))
        return nullptr;
    const VARIANT& value = Referred(v);
    if (V_VT(&value) & VT_BYREF)
        return V_UNKNOWNREF(&value) ? *V_UNKNOWNREF(&value) : nullptr;
    return V_UNKNOWN(&value);
}

ComPtr<IDispatch> DispatchOf(const VARIANT& v) {
    IUnknown* const object = ObjectOf(v);
    if (TypeOf(v) == VT_DISPATCH)
        return static_cast<IDispatch*>(object);
    return Query<IDispatch>(object);
}

bool IsNull(const VARIANT& v) { return TypeOf(v) == VT_NULL; }

bool IsMissing(const VARIANT& v) {
    const VARIANT& value = Referred(v);
    return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

bool SameObject(IUnknown* a, IUnknown* b) {
    if (a == b || !a || !b)
        return a == b;
    const ComPtr<IUnknown> first(a); // while they are asked who they are
    const ComPtr<IUnknown> second(b);
    return Query<IUnknown>(first).Get() == Query<IUnknown>(second).Get();
}

Comparison CompareValues(const VARIANT& a, const VARIANT& b) {
    if (IsNull(a) || IsNull(b))
        return Comparison::Null;
    if (HoldsObject(a) || HoldsObject(b))
        return Comparison::Different;
    const Direct left(a);
    const Direct right(b);
    if (IsText(*left) && IsText(*right))
        return ViewBstr(V_BSTR(&*left)) == ViewBstr(V_BSTR(&*right)) ? Comparison::Equal : Comparison::Different;
    const VARIANT& text = IsText(*left) ? *left : *right;
    const VARIANT& other = IsText(*left) ? *right : *left;
    if (!IsText(text) || !(IsNumberOrBoolean(V_VT(&other)) || V_VT(&other) == VT_DATE))
        return CompareMixed(text, other);
    VARIANT read{};
    return ReadAs(V_VT(&other), V_BSTR(&text), read) ? CompareMixed(read, other) : Comparison::Different;
}

_variant_t Plain(const VARIANT& v) {
    _variant_t copy;
    CheckSystem(VariantCopyInd(&copy, const_cast<VARIANT*>(&v)));
    return copy;
}

HRESULT ResolveDefault(const VARIANT& v, _variant_t& plain) {
    _variant_t value;
    HRESULT hr = VariantCopyInd(&value, const_cast<VARIANT*>(&v));
    for (int step = 0; SUCCEEDED(hr) && HoldsObject(value); ++step) {
        const ComPtr<IDispatch> object = DispatchOf(value);
        _variant_t given;
        if (step == kDeepestDefault || !object || FAILED(GetDefaultValue(object.Get(), given)))
            return DISP_E_TYPEMISMATCH;
        hr = VariantCopyInd(&value, &given);
    }
    if (SUCCEEDED(hr)) {
        VARIANT found = value.Detach();
        plain.Attach(found);
    }
    return hr;
}

HRESULT ConvertValue(const VARIANT& v, VARTYPE type, _variant_t& converted, LCID locale, USHORT flags) {
    const VARIANT* value = &Referred(v);
    _variant_t plain;
    if (HoldsObject(*value)) {
        const HRESULT hr = ResolveDefault(*value, plain);
        if (FAILED(hr))
            return hr;
        value = &plain;
    }
    return VariantChangeTypeEx(&converted, const_cast<VARIANT*>(value), locale, flags, type);
}

// A Double holds every number of 32 bits, and all others can be read as one.
HRESULT ReadColor(const VARIANT& v, std::uint32_t& color) {
    _variant_t value;
    HRESULT hr = ResolveDefault(v, value);
    const auto hex = IsText(value) ? ReadHexText(ViewBstr(V_BSTR(&value))) : std::nullopt;
    if (hex) {
        color = *hex;
        return S_OK;
    }
    if (SUCCEEDED(hr))
        hr = ConvertValue(value, VT_R8, value);
    if (FAILED(hr))
        return hr;
    const double number = std::nearbyint(V_R8(&value));
    if (!(number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::uint32_t>::max()))
        return DISP_E_OVERFLOW; // also what is no number
    color = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
    return S_OK;
}

std::wstring TextOf(const VARIANT& v) {
    const VARIANT& value = Referred(v);
    if (V_VT(&value) == VT_NULL)
        return {};
    if (IsText(value))
        return FromBstr(V_BSTR(&value));
    _variant_t text;
    CheckSystem(ConvertValue(value, VT_BSTR, text, LOCALE_USER_DEFAULT, VARIANT_ALPHABOOL));
    return FromBstr(V_BSTR(&text));
}

bool IsNumeric(const VARIANT& v) {
    _variant_t value;
    if (HoldsObject(v))
        return SUCCEEDED(ResolveDefault(v, value)) && IsNumeric(value);
    const VARTYPE type = TypeOf(v);
    if (type == VT_EMPTY || IsNumberOrBoolean(type))
        return true;
    return type == VT_BSTR && SUCCEEDED(ConvertValue(v, VT_R8, value));
}

std::wstring FromBstr(BSTR text) { return text ? std::wstring(text, SysStringLen(text)) : std::wstring(); }

_bstr_t ToBstr(const std::wstring& text) { return _bstr_t(NewBstr(text), false); }

BSTR NewBstr(const std::wstring& text) {
    if (BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
        return result;
    Raise(E_OUTOFMEMORY, SystemText(E_OUTOFMEMORY));
}

_variant_t ToVariant(const std::wstring& text) {
    _variant_t value;
    V_BSTR(&value) = NewBstr(text);
    V_VT(&value) = VT_BSTR;
    return value;
}

} // namespace ormisk
