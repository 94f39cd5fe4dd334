#include "model/DispatchArguments.h"

namespace ormisk {

DispatchArguments::DispatchArguments(const DISPPARAMS& parameters, UINT parameterCount, LCID locale)
    : m_Parameters(parameters), m_Locale(locale), m_Places(parameterCount, kLeftOut) {
    if (parameters.cArgs > parameterCount || parameters.cNamedArgs > parameters.cArgs)
        throw CallFailure{DISP_E_BADPARAMCOUNT, 0};
    // Named arguments come first in the list, the others behind them from the last to the first.
    for (UINT place = 0; place < parameters.cArgs; ++place) {
        const bool named = place < parameters.cNamedArgs;
        const UINT parameter =
            named ? static_cast<UINT>(parameters.rgdispidNamedArgs[place]) : parameters.cArgs - 1 - place;
        if (parameter >= parameterCount || m_Places[parameter] != kLeftOut)
            throw CallFailure{DISP_E_PARAMNOTFOUND, place};
        m_Places[parameter] = place;
    }
    m_Converted.reserve(parameterCount); // texts lent from here stay where they are
}

void DispatchArguments::Refuse(HRESULT result, UINT parameter) const {
    throw CallFailure{result, m_Places[parameter] == kLeftOut ? 0 : m_Places[parameter]};
}

const VARIANT* DispatchArguments::Given(UINT parameter) const {
    if (m_Places[parameter] == kLeftOut)
        return nullptr;
    const VARIANT* value = &m_Parameters.rgvarg[m_Places[parameter]];
    if (V_VT(value) == (VT_BYREF | VT_VARIANT))
        value = V_VARIANTREF(value);
    return value && !IsMissing(*value) ? value : nullptr;
}

const VARIANT& DispatchArguments::Converted(UINT parameter, VARTYPE type) {
    const VARIANT* given = Given(parameter);
    if (V_VT(given) == type && given == &m_Parameters.rgvarg[m_Places[parameter]])
        return *given;
    _variant_t converted; // also of a variable, which can be another while the call runs
    const HRESULT hr = ConvertValue(*given, type, converted, m_Locale);
    if (FAILED(hr))
        Refuse(hr == DISP_E_OVERFLOW ? hr : DISP_E_TYPEMISMATCH, parameter);
    m_Converted.push_back(converted);
    return m_Converted.back();
}

std::wstring_view DispatchArguments::Text(UINT parameter, std::optional<std::wstring_view> otherwise) {
    if (!Given(parameter)) {
        if (!otherwise)
            Refuse(DISP_E_PARAMNOTOPTIONAL, parameter);
        return *otherwise;
    }
    BSTR text = V_BSTR(&Converted(parameter, VT_BSTR));
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}

long DispatchArguments::Long(UINT parameter, long otherwise) {
    return Given(parameter) ? V_I4(&Converted(parameter, VT_I4)) : otherwise;
}

bool DispatchArguments::Boolean(UINT parameter, bool otherwise) {
    return Given(parameter) ? V_BOOL(&Converted(parameter, VT_BOOL)) != VARIANT_FALSE : otherwise;
}

ComPtr<IDispatch> DispatchArguments::Object(UINT parameter) {
    const VARIANT* value = Given(parameter);
    // Scripts have more than one word for Nothing.
    if (!value || V_VT(value) == VT_NULL || V_VT(value) == VT_EMPTY)
        return nullptr;
    ComPtr<IDispatch> object = DispatchOf(*value);
    if (!HoldsObject(*value) || (ObjectOf(*value) && !object))
        Refuse(DISP_E_TYPEMISMATCH, parameter);
    return object;
}

void DispatchArguments::PutText(UINT parameter, std::wstring_view text) {
    const VARIANT* value = Given(parameter);
    BSTR* target = nullptr;
    if (value && V_VT(value) == (VT_BYREF | VT_BSTR))
        target = V_BSTRREF(value);
    else if (value && V_VT(value) == VT_BSTR && value != &m_Parameters.rgvarg[m_Places[parameter]])
        target = &V_BSTR(const_cast<VARIANT*>(value));
    if (target)
        SysReAllocStringLen(target, text.data(), static_cast<UINT>(text.size()));
}

} // namespace ormisk
