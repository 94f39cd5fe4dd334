#include "FormNames.h"

#include "ControlSite.h"

#include <oleauto.h>

#include <cwchar>

namespace ormisk {
namespace {

constexpr DISPID kControl = 1;

} // namespace

STDMETHODIMP FormNames::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const bool known = count == 1 && _wcsicmp(names[0], m_Site.Name().c_str()) == 0;
    for (UINT i = 0; i < count; ++i)
        ids[i] = known ? kControl : DISPID_UNKNOWN;
    return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP FormNames::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                               UINT*) {
    if (id != kControl || !(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)))
        return DISP_E_MEMBERNOTFOUND;
    if (arguments->cArgs != 0)
        return DISP_E_BADPARAMCOUNT;
    if (result) {
        VariantInit(result);
        result->vt = VT_DISPATCH;
        result->pdispVal = m_Site.Automation().Detach();
    }
    return S_OK;
}

} // namespace ormisk
