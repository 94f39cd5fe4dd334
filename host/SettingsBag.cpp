#include "SettingsBag.h"

#include "Failure.h"
#include "FormVariant.h"
#include "ScriptError.h"

#include <comutil.h>
#include <oleauto.h>

namespace ormisk {
namespace {

// The value in the type that is asked for; any with VT_EMPTY. Texts of numbers are those of no language.
HRESULT Converted(const _variant_t& stored, VARTYPE type, _variant_t& value) {
    const bool objects = (type == VT_UNKNOWN || type == VT_DISPATCH) && stored.vt == VT_DISPATCH;
    if (type == VT_EMPTY || type == stored.vt || objects) {
        value = stored;
        return S_OK;
    }
    if (stored.vt == VT_DISPATCH)
        return DISP_E_TYPEMISMATCH;
    return VariantChangeTypeEx(&value, const_cast<_variant_t*>(&stored), LOCALE_INVARIANT, 0, type);
}

} // namespace

void SettingsBag::TellUnread() const {
    for (const FormSetting& setting : m_Settings)
        if (!m_Read.contains(setting.line))
            m_Tell(setting.line, L"the control has no setting " + setting.name);
}

// What comes in says which type is wanted; it holds nothing that would have to go.
STDMETHODIMP SettingsBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) {
    if (!name || !value)
        return E_POINTER;
    const VARTYPE wanted = value->vt;
    VariantInit(value);
    const FormSetting* const setting = FindSetting(m_Settings, name);
    if (!setting)
        return E_INVALIDARG;
    m_Read.insert(setting->line);
    std::wstring trouble;
    HRESULT result = E_FAIL;
    try {
        _variant_t converted;
        result = Converted(FromFormValue(setting->value), wanted, converted);
        if (SUCCEEDED(result)) {
            *value = converted.Detach();
            return S_OK;
        }
        trouble = L"the value is of another kind than the setting";
    } catch (const Failure& failure) {
        trouble = failure.text;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    if (log) {
        ScriptError error;
        Explain(error.Receive(), trouble);
        log->AddError(name, error.Receive());
    }
    return result;
}

STDMETHODIMP SettingsBag::Write(LPCOLESTR name, VARIANT* value) {
    if (!name || !value)
        return E_POINTER;
    try {
        auto kept = ToFormValue(*value);
        if (!kept) {
            m_Tell(0, std::wstring(name) + L" cannot be kept in a file");
            return DISP_E_BADVARTYPE;
        }
        if (!FindSetting(m_Settings, name))
            m_Settings.push_back({name, std::move(*kept)});
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP SettingsBag::AddError(LPCOLESTR name, EXCEPINFO* error) {
    if (!name || !error)
        return E_POINTER;
    const FormSetting* const setting = FindSetting(m_Settings, name);
    const std::wstring text = error->bstrDescription ? error->bstrDescription : SystemText(error->scode);
    m_Tell(setting ? setting->line : 0, std::wstring(name) + L": " + text);
    return S_OK;
}

} // namespace ormisk
