#include "CallArguments.h"

#include "Conversion.h"
#include "Failure.h"

#include <limits>

namespace ormisk {
namespace {

// `what` is a value of that type in words.
_variant_t Converted(const VARIANT& value, VARTYPE type, int position, const wchar_t* what) {
    _variant_t converted;
    if (FAILED(ConvertValue(value, type, VARIANT_ALPHABOOL, converted)))
        throw Failure{L"Argument " + std::to_wstring(position + 1) + L" is not " + what};
    return converted;
}

} // namespace

bool CallArguments::Given(int position) const {
    return position < Count() && (At(position).vt != VT_ERROR || At(position).scode != DISP_E_PARAMNOTFOUND);
}

std::wstring CallArguments::Text(int position) const {
    const _variant_t text = Converted(At(position), VT_BSTR, position, L"a text");
    return std::wstring(text.bstrVal ? text.bstrVal : L"", SysStringLen(text.bstrVal));
}

double CallArguments::Number(int position) const {
    return Converted(At(position), VT_R8, position, L"a number").dblVal;
}

int CallArguments::Integer(int position) const {
    return Converted(At(position), VT_I4, position, L"a whole number").lVal;
}

OLE_COLOR CallArguments::Color(int position) const {
    const double number = Number(position);
    if (number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<unsigned>::max())
        return static_cast<OLE_COLOR>(static_cast<long long>(number));
    throw Failure{L"Argument " + std::to_wstring(position + 1) + L" is not a colour"};
}

} // namespace ormisk
