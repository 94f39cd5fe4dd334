#include "automation/ByName.h"

namespace ormisk {

namespace {

HRESULT FindByName(IDispatch* object, const std::wstring& member, LCID locale, DISPID* id) {
    wchar_t* name = const_cast<wchar_t*>(member.c_str());
    return object->GetIDsOfNames(IID_NULL, &name, 1, locale, id);
}

HRESULT InvokeById(IDispatch* object, DISPID id, WORD flags, VARIANT* argument, LCID locale, VARIANT* result,
                   EXCEPINFO* exception) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{argument, nullptr, argument ? 1u : 0u, 0};
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (puts) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    return object->Invoke(id, IID_NULL, locale, flags, &parameters, puts ? nullptr : result, exception, nullptr);
}

void FreeTexts(const EXCEPINFO& exception) {
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

// Of a failure only the number is kept.
HRESULT GetQuietly(IDispatch* object, DISPID id, WORD flags, LCID locale, _variant_t& value) {
    value.Clear();
    EXCEPINFO exception{};
    const HRESULT hr = InvokeById(object, id, flags, nullptr, locale, &value, &exception);
    if (FAILED(hr)) {
        FreeTexts(exception);
        value.Clear();
    }
    return hr;
}

} // namespace

_variant_t InvokeByName(IDispatch* object, const std::wstring& member, WORD flags, VARIANT* argument, LCID locale) {
    CheckPointer(object);
    const ComPtr<IDispatch> alive(object);
    DISPID id = DISPID_UNKNOWN;
    SetErrorInfo(0, nullptr); // an older failure is not this one
    Check(FindByName(object, member, locale, &id));
    _variant_t result;
    EXCEPINFO exception{};
    const HRESULT hr = InvokeById(object, id, flags, argument, locale, &result, &exception);
    if (hr == DISP_E_EXCEPTION)
        throw TakeException(exception);
    Check(hr);
    return result;
}

HRESULT GetDefaultValue(IDispatch* object, _variant_t& value) {
    return GetQuietly(object, DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, LOCALE_USER_DEFAULT, value);
}

NamedProperty::NamedProperty(IDispatch* object, const std::wstring& name) : m_Object(object) {
    if (object)
        m_Found = FindByName(object, name, kByNameLocale, &m_Id);
}

HRESULT NamedProperty::Get(_variant_t& value) const {
    if (FAILED(m_Found)) {
        value.Clear();
        return m_Found;
    }
    return GetQuietly(m_Object.Get(), m_Id, DISPATCH_PROPERTYGET, kByNameLocale, value);
}

HRESULT NamedProperty::Put(WORD flags, VARIANT* value) const {
    if (FAILED(m_Found))
        return m_Found;
    EXCEPINFO exception{};
    const HRESULT hr = InvokeById(m_Object.Get(), m_Id, flags, value, kByNameLocale, nullptr, &exception);
    if (FAILED(hr))
        FreeTexts(exception);
    return hr;
}

} // namespace ormisk
