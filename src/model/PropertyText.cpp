#include "model/CProperty.h"

#include "model/FormatBound.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"

#include <algorithm>
#include <cmath>

// The text of the value column.

namespace ormisk {

namespace {

constexpr int kFirstDayOfWeek = 1;
constexpr int kFirstWeekOfYear = 1;

// Whether the system can be trusted with a value: it writes over the stack for one that is too long.
bool CanFormat(const VARIANT& value, const std::wstring& format) {
    _variant_t number;
    std::size_t length = V_VT(&value) == VT_BSTR ? SysStringLen(V_BSTR(&value)) : 0;
    if (!FitsFormatting(format, length))
        return false;
    if (ShowsAllDigits(format) && SUCCEEDED(ConvertValue(value, VT_R8, number))) {
        if (!std::isfinite(V_R8(&number)))
            return false;
        const double digits = std::log10(std::max(std::fabs(V_R8(&number)), 1.0)) + 3; // with those of a percentage
        length = std::max(length, static_cast<std::size_t>(digits));
    }
    return FitsFormatting(format, length);
}

bool FormatBySystem(const VARIANT& value, std::wstring format, std::wstring& text) {
    if (format == L"c" || format == L"C")
        format = L"General Date"; // the same, without the fault of the letter
    BSTR formatted = nullptr;
    if (!CanFormat(value, format) || FAILED(VarFormat(const_cast<VARIANT*>(&value), format.data(), kFirstDayOfWeek,
                                                      kFirstWeekOfYear, 0, &formatted))) {
        return false;
    }
    text = FromBstr(_bstr_t(formatted, false).GetBSTR());
    return true;
}

// A value that the system cannot format shows as it is; the case is all that a format changes in a long text.
void FormatValue(const VARIANT& value, const std::wstring& format, std::size_t longest, std::wstring& text) {
    if (V_VT(&value) == VT_NULL)
        Raise(static_cast<HRESULT>(0x800A005E), L"Invalid use of Null");
    if (!format.empty() && FormatBySystem(value, format, text))
        return;
    AssignText(value, longest, text);
    if (format.find(L'>') != std::wstring::npos)
        CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    else if (format.find(L'<') != std::wstring::npos)
        CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
}

} // namespace

void CProperty::FormatText(std::wstring& text, std::size_t longest) {
    const ValueKind& kind = KindOf(m_EditorType);
    if (HoldsObject(m_Value)) {
        const ComPtr<IUnknown> object(ObjectOf(m_Value));
        const ComPtr<CProperty> alive(this); // the object may do anything when it is asked
        if (kind.objectText)
            text = kind.objectText(*this, object.Get());
        else
            text = object ? DefaultText(object.Get()) : std::wstring();
        return;
    }
    text = kind.emptyText ? kind.emptyText(*this) : std::wstring();
    if (V_VT(&m_Value) == VT_EMPTY || IsMissing(m_Value))
        return;
    FormatValue(m_Value, m_Format, longest, text);
    if (kind.plainText)
        kind.plainText(*this, longest, text);
}

} // namespace ormisk
