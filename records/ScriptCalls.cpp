#include "records/ScriptCalls.h"

#include "records/Failures.h"

#include <utility>

namespace ormisk::records {

void NarrowForScripts(DISPID member, VARIANT* result) {
    constexpr DISPID kCollect = -8;
    if (!result || V_VT(result) != VT_I8 || member == DISPID_VALUE || member == kCollect)
        return;
    if (const LONGLONG number = V_I8(result); std::in_range<LONG>(number)) {
        V_VT(result) = VT_I4;
        V_I4(result) = static_cast<LONG>(number);
    }
}

bool IsPutOfField(DISPID member, WORD flags, const DISPPARAMS* parameters) {
    return member == DISPID_VALUE && (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) && parameters &&
           parameters->cArgs == 2;
}

HRESULT PutField(::Fields* fields, LCID locale, WORD flags, DISPPARAMS* parameters, EXCEPINFO* exception) {
    ComPtr<::Field> field;
    try {
        Check(fields->get_Item(parameters->rgvarg[1], field.GetAddressOf()));
    } catch (...) {
        return GiveException(CurrentError(), exception);
    }
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS value{parameters->rgvarg, &put, 1, 1};
    return field->Invoke(DISPID_VALUE, IID_NULL, locale, flags, &value, nullptr, exception, nullptr);
}

std::vector<_variant_t> ElementsOf(const VARIANT& value) {
    const _variant_t plain = Plain(value);
    if (V_VT(&plain) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(V_ARRAY(&plain)) != 1)
        return {plain};
    LONG first = 0;
    LONG last = 0;
    CheckSystem(SafeArrayGetLBound(V_ARRAY(&plain), 1, &first));
    CheckSystem(SafeArrayGetUBound(V_ARRAY(&plain), 1, &last));
    std::vector<_variant_t> elements;
    for (LONG i = first; i <= last; ++i) {
        _variant_t element;
        CheckSystem(SafeArrayGetElement(V_ARRAY(&plain), &i, &element));
        elements.push_back(std::move(element));
    }
    return elements;
}

} // namespace ormisk::records
