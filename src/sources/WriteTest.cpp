#include "sources/WriteTest.h"

namespace ormisk {

namespace {

bool TakesTyped(const NamedProperty& property, const VARIANT& value) {
    HRESULT hr = E_FAIL;
    IgnoringFailures(
        [&] { hr = property.Put(DISPATCH_PROPERTYPUT, ReferenceArgument(value, DISPATCH_PROPERTYPUT).Get()); });
    return SUCCEEDED(hr);
}

} // namespace

bool IsReadOnlyMember(const NamedProperty& property, unsigned invokeKinds) {
    _variant_t value;
    if (FAILED(property.Get(value)))
        return true;
    if (invokeKinds & INVOKE_PROPERTYPUTREF)
        return !HoldsObject(value) || FAILED(property.Put(DISPATCH_PROPERTYPUTREF, &value));
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &value;
    return FAILED(property.Put(DISPATCH_PROPERTYPUT, &reference)) && !TakesTyped(property, value);
}

} // namespace ormisk
