#include "EventArguments.h"

#include "Conversion.h"
#include "Failure.h"

#include <utility>

namespace ormisk {
namespace {

constexpr VARTYPE kVariantReference = VT_BYREF | VT_VARIANT;

bool NeedsStandIn(const VARIANT& argument) {
    return (argument.vt & VT_BYREF) && argument.vt != kVariantReference && !(argument.vt & VT_ARRAY);
}

// Puts a value of the reference's own type where it points to; takes the value's content.
void Store(const VARIANT& reference, VARIANT& value) {
    switch (value.vt) {
    case VT_BSTR:
        SysFreeString(std::exchange(*reference.pbstrVal, value.bstrVal));
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (IUnknown* old = std::exchange(*reference.ppunkVal, value.punkVal))
            old->Release();
        break;
    case VT_I1:
    case VT_UI1:
        *reference.pbVal = value.bVal;
        break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        *reference.piVal = value.iVal;
        break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        *reference.plVal = value.lVal;
        break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
        *reference.pllVal = value.llVal;
        break;
    case VT_DECIMAL:
        *reference.pdecVal = value.decVal;
        reference.pdecVal->wReserved = 0;
        break;
    default:
        VariantClear(&value);
        throw Failure{L"An argument of this type cannot be written back"};
    }
}

} // namespace

EventArguments::EventArguments(DISPPARAMS& original)
    : m_Original(original), m_Passed(original.rgvarg, original.rgvarg + original.cArgs), m_StandIns(original.cArgs),
      m_Parameters{m_Passed.data(), nullptr, original.cArgs, 0} {
    for (UINT i = 0; i < original.cArgs; ++i) {
        if (!NeedsStandIn(original.rgvarg[i]) || FAILED(VariantCopyInd(&m_StandIns[i], &original.rgvarg[i])))
            continue;
        m_Passed[i].vt = kVariantReference;
        m_Passed[i].pvarVal = &m_StandIns[i];
    }
}

EventArguments::~EventArguments() {
    for (VARIANT& standIn : m_StandIns)
        VariantClear(&standIn);
}

void EventArguments::WriteBack() {
    for (UINT i = 0; i < m_Original.cArgs; ++i) {
        if (m_Passed[i].vt != kVariantReference || m_Passed[i].pvarVal != &m_StandIns[i])
            continue;
        const VARIANT& reference = m_Original.rgvarg[i];
        _variant_t converted;
        const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
        if (FAILED(ConvertValue(m_StandIns[i], type, 0, converted)))
            throw Failure{L"the value given to argument " + std::to_wstring(m_Original.cArgs - i) +
                          L" is of a wrong type"};
        VARIANT content = converted.Detach();
        Store(reference, content);
    }
}

} // namespace ormisk
