#include "model/ValueRules.h"

#include "automation/ByName.h"
#include "model/NumberText.h"

#include <utility>

namespace ormisk {

namespace {

bool Converts(const VARIANT& value, VARTYPE type) {
    _variant_t copy;
    return SUCCEEDED(ConvertValue(value, type, copy));
}

template <class Interface> bool IsNothingOr(const VARIANT& value) {
    return HoldsObject(value) && (!ObjectOf(value) || Query<Interface>(ObjectOf(value)));
}

bool IsDate(const VARIANT& value) {
    return V_VT(&value) == VT_DATE || (V_VT(&value) == VT_BSTR && Converts(value, VT_DATE));
}

bool ReadsAsInteger(const VARIANT& value) {
    bool reads = false;
    return IgnoringFailures([&] { reads = IsIntegerText(TextOf(value)); }) && reads;
}

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

} // namespace

bool IsValueValidForEditor(const VARIANT& given, omEditorType type) {
    if (type == omTextEditor || type == omListEditor || type == omCustomDialog || type == omCustomEditor)
        return true; // they take what there is
    const _variant_t value = Plain(given);
    if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL || IsMissing(value))
        return true;
    switch (type) {
    case omNumberEditor:
        return IsNumeric(value);
    case omBooleanEditor:
        return Converts(value, VT_BOOL);
    case omFontEditor:
        return IsNothingOr<IFont>(value) || IsNothingOr<IFontDisp>(value);
    case omDateEditor:
        return IsDate(value);
    case omFileEditor:
    case omDirectoryEditor:
        return !HoldsObject(value);
    case omColorEditor:
        return ReadsAsInteger(value);
    case omPictureEditor:
        return IsNothingOr<IPicture>(value) || IsNothingOr<IPictureDisp>(value);
    default:
        return true;
    }
}

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

std::wstring DefaultText(IUnknown* object) {
    std::wstring text;
    IgnoringFailures([&] { text = TextOf(_variant_t(object)); });
    return text;
}

void Store(_variant_t& target, _variant_t value) { SwapValues(target, value); }

void SwapValues(_variant_t& a, _variant_t& b) { std::swap(static_cast<VARIANT&>(a), static_cast<VARIANT&>(b)); }

} // namespace ormisk
