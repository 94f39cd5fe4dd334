#include "CallArguments.h"

#include <comdef.h>
#include <comutil.h>
#include <oleauto.h>

namespace ormisk {
namespace {

_variant_t Converted(const VARIANT& value, VARTYPE type) {
    _variant_t plain;
    _variant_t converted;
    HRESULT result = VariantCopyInd(&plain, const_cast<VARIANT*>(&value));
    if (SUCCEEDED(result))
        result = VariantChangeType(&converted, &plain, VARIANT_ALPHABOOL, type);
    if (FAILED(result))
        throw _com_error(result);
    return converted;
}

} // namespace

bool CallArguments::Given(int position) const {
    return position < Count() && !(At(position).vt == VT_ERROR && At(position).scode == DISP_E_PARAMNOTFOUND);
}

std::wstring CallArguments::Text(int position) const {
    const _variant_t text = Converted(At(position), VT_BSTR);
    return std::wstring(text.bstrVal ? text.bstrVal : L"", SysStringLen(text.bstrVal));
}

double CallArguments::Number(int position) const { return Converted(At(position), VT_R8).dblVal; }

int CallArguments::Integer(int position) const { return Converted(At(position), VT_I4).lVal; }

} // namespace ormisk
