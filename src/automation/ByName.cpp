#include "automation/ByName.h"

namespace ormisk {

_variant_t InvokeByName(IDispatch* object, const std::wstring& member, WORD flags, VARIANT* argument, LCID locale) {
    CheckPointer(object);
    const ComPtr<IDispatch> alive(object);
    wchar_t* name = const_cast<wchar_t*>(member.c_str());
    DISPID id = DISPID_UNKNOWN;
    Check(object->GetIDsOfNames(IID_NULL, &name, 1, locale, &id));

    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{argument, nullptr, argument ? 1u : 0u, 0};
    const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (puts) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    _variant_t result;
    EXCEPINFO exception{};
    const HRESULT hr =
        object->Invoke(id, IID_NULL, locale, flags, &parameters, puts ? nullptr : &result, &exception, nullptr);
    if (hr == DISP_E_EXCEPTION) {
        throw TakeException(exception);
    }
    Check(hr);
    return result;
}

} // namespace ormisk
