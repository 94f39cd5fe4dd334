#include "model/CProperty.h"

#include "automation/ByName.h"
#include "model/FormatBound.h"
#include "model/NumberText.h"
#include "model/ValueRules.h"

#include <algorithm>
#include <cmath>

// The text of the value column.

namespace ormisk {

namespace {

constexpr int kFirstDayOfWeek = 1;
constexpr int kFirstWeekOfYear = 1;

// The type of a picture; above 0 when there is an image.
short PictureTypeOf(IUnknown* object) {
    short type = 0;
    if (const ComPtr<IPicture> picture = Query<IPicture>(object)) {
        Check(picture->get_Type(&type));
        return type;
    }
    _variant_t value = InvokeByName(Query<IDispatch>(object).Get(), L"Type", DISPATCH_PROPERTYGET);
    CheckSystem(ConvertValue(value, VT_I2, value));
    return V_I2(&value);
}

// A text goes as it is, into the buffer that the caller has, and no more of it than is asked for.
void AssignText(const VARIANT& value, std::size_t longest, std::wstring& text) {
    if (V_VT(&value) == VT_BSTR) {
        const BSTR held = V_BSTR(&value);
        text.assign(held ? held : L"", std::min<std::size_t>(SysStringLen(held), longest));
    } else {
        text = TextOf(value);
    }
}

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

bool AsBoolean(const VARIANT& value) {
    _variant_t boolean;
    CheckSystem(ConvertValue(value, VT_BOOL, boolean));
    return V_BOOL(&boolean) != VARIANT_FALSE;
}

// The bits that a hexadecimal number shows: those of the value's own size for the small ones, else of a colour.
std::uint32_t BitsOf(const VARIANT& value) {
    if (V_VT(&value) == VT_I2 || V_VT(&value) == VT_BOOL)
        return static_cast<std::uint16_t>(V_I2(&value));
    std::uint32_t color = 0;
    CheckSystem(ReadColor(value, color));
    return color;
}

} // namespace

void CProperty::FormatText(std::wstring& text, std::size_t longest) {
    if (HoldsObject(m_Value))
        text = ObjectText(ObjectOf(m_Value));
    else
        PlainText(text, longest);
}

std::wstring CProperty::ObjectText(IUnknown* borrowed) {
    const ComPtr<IUnknown> object(borrowed);
    const ComPtr<CProperty> alive(this); // the object may do anything when it is asked
    if (m_EditorType == omPictureEditor) {
        const bool shown = object && PictureTypeOf(object.Get()) > 0;
        return shown ? ParamOr(L"(Picture)", L"(Picture)") : ParamOr(L"NoPicturePrompt", L"(none)");
    }
    if (!object)
        return {};
    if (m_EditorType != omListEditor)
        return DefaultText(object.Get());
    std::wstring text;
    for (long i = 1; i <= ListItems().CountOf(); ++i) {
        const ComPtr<CListItem> item = ListItems().At(i);
        if (HoldsObject(item->Value()) && SameObject(ObjectOf(item->Value()), object.Get()))
            text = item->Text();
    }
    return text;
}

void CProperty::PlainText(std::wstring& text, std::size_t longest) {
    text.clear();
    if (m_EditorType == omPictureEditor)
        text = ParamOr(L"NoPicturePrompt", L"(none)");
    if (V_VT(&m_Value) == VT_EMPTY || IsMissing(m_Value))
        return;
    FormatValue(m_Value, m_Format, longest, text);
    if (m_EditorType == omBooleanEditor) {
        std::wstring label = EditorParam(AsBoolean(m_Value) ? L"True" : L"False");
        if (!label.empty())
            text = std::move(label);
    } else if (m_EditorType == omListEditor) {
        ListText(text, longest);
    } else if (m_EditorType == omColorEditor && m_Format.empty()) {
        text = ColorHexText(BitsOf(m_Value));
    }
}

// The last of the entries with this value gives the text.
void CProperty::ListText(std::wstring& text, std::size_t longest) {
    bool found = false;
    for (long i = 1; i <= ListItems().CountOf(); ++i) {
        const CListItem* item = ListItems().At(i);
        if (!HoldsObject(item->Value()) && CompareValues(item->Value(), m_Value) == Comparison::Equal) {
            text = item->Text();
            found = true;
        }
    }
    if (!found)
        AssignText(m_Value, longest, text);
}

} // namespace ormisk
