#include "model/ValueRules.h"

#include "automation/ByName.h"
#include "platform/FontDescription.h"

#include <algorithm>
#include <utility>

namespace ormisk {

namespace {

// The type as which a plain value is passed by reference; VT_VARIANT for the variable itself.
VARTYPE ReferenceType(VARTYPE type) {
    switch (type) {
    case VT_UI1:
    case VT_BOOL:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_BSTR:
        return type;
    case VT_INT:
        return VT_I4;
    default:
        return VT_VARIANT;
    }
}

template <class... Interfaces> bool IsOneOf(const ComPtr<IUnknown>& object) {
    return (Query<Interfaces>(object) || ...);
}

bool SamePicture(const VARIANT& a, const VARIANT& b) {
    _variant_t handleOfA;
    _variant_t handleOfB;
    return SUCCEEDED(ResolveDefault(a, handleOfA)) && SUCCEEDED(ResolveDefault(b, handleOfB)) &&
           CompareValues(handleOfA, handleOfB) == Comparison::Equal;
}

} // namespace

bool IsNumericText(std::wstring_view text) {
    // Most keys are names, told without a call of the system; a number may be hexadecimal.
    if (text.find_first_of(L"0123456789&") == std::wstring_view::npos)
        return false;
    std::wstring copy(text);
    double number = 0;
    return copy.find(L'\0') == std::wstring::npos &&
           SUCCEEDED(VarR8FromStr(copy.data(), LOCALE_USER_DEFAULT, 0, &number));
}

_variant_t InvokeProperty(IDispatch* object, const std::wstring& member, WORD callType, const VARIANT& value) {
    if (callType == DISPATCH_PROPERTYGET) {
        InvokeByName(object, member, callType);
        return InvokeByName(object, member, callType);
    }
    ReferenceArgument argument(value, callType);
    InvokeByName(object, member, callType, argument.Get());
    return {};
}

ReferenceArgument::ReferenceArgument(const VARIANT& value, WORD callType) : m_Value(Plain(value)) {
    const VARTYPE type = callType == DISPATCH_PROPERTYPUT ? ReferenceType(V_VT(&m_Value)) : VARTYPE{VT_VARIANT};
    V_VT(&m_Reference) = static_cast<VARTYPE>(type | VT_BYREF);
    // All plain types lie at the same place.
    V_BYREF(&m_Reference) = type == VT_VARIANT ? static_cast<void*>(&m_Value) : static_cast<void*>(&V_I4(&m_Value));
}

bool ValuesEqual(const VARIANT& a, const VARIANT& b) {
    if (HoldsObject(a) != HoldsObject(b))
        return false;
    if (!HoldsObject(a))
        return CompareValues(a, b) == Comparison::Equal;
    // They are asked, and may do anything, also to whoever has them as a value.
    const ComPtr<IUnknown> first(ObjectOf(a));
    const ComPtr<IUnknown> second(ObjectOf(b));
    if (IsOneOf<IFont, IFontDisp>(first) && IsOneOf<IFont, IFontDisp>(second))
        return DescribeFont(first.Get()) == DescribeFont(second.Get());
    if (IsOneOf<IPicture, IPictureDisp>(first) && IsOneOf<IPicture, IPictureDisp>(second))
        return SamePicture(_variant_t(a), _variant_t(b));
    return false;
}

void AssignText(const VARIANT& value, std::size_t longest, std::wstring& text) {
    if (V_VT(&value) == VT_BSTR) {
        const BSTR held = V_BSTR(&value);
        text.assign(held ? held : L"", std::min<std::size_t>(SysStringLen(held), longest));
    } else {
        text = TextOf(value);
    }
}

std::wstring DefaultText(IUnknown* object) {
    std::wstring text;
    IgnoringFailures([&] { text = TextOf(_variant_t(object)); });
    return text;
}

void Store(_variant_t& target, _variant_t value) { SwapValues(target, value); }

void SwapValues(_variant_t& a, _variant_t& b) { std::swap(static_cast<VARIANT&>(a), static_cast<VARIANT&>(b)); }

} // namespace ormisk
