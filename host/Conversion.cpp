#include "Conversion.h"

#include <oleauto.h>
#include <wrl/client.h>

namespace ormisk {
namespace {

constexpr int kDeepestDefault = 8;

} // namespace

HRESULT ConvertValue(const VARIANT& value, VARTYPE type, USHORT flags, _variant_t& converted) {
    _variant_t plain;
    HRESULT result = VariantCopyInd(&plain, const_cast<VARIANT*>(&value));
    for (int step = 0; SUCCEEDED(result) && plain.vt == VT_DISPATCH && type != VT_DISPATCH; ++step) {
        const Microsoft::WRL::ComPtr<IDispatch> object = plain.pdispVal;
        if (!object || step == kDeepestDefault)
            return DISP_E_TYPEMISMATCH;
        DISPPARAMS none{};
        plain.Clear();
        result = object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                                &none, &plain, nullptr, nullptr);
    }
    return FAILED(result) ? result : VariantChangeType(&converted, &plain, flags, type);
}

} // namespace ormisk
