#include "model/CProperty.h"

#include "automation/ByName.h"
#include "model/NumberText.h"
#include "model/ValueRules.h"

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
    CheckSystem(VariantChangeType(&value, &value, 0, VT_I2));
    return V_I2(&value);
}

void FormatValue(const VARIANT& value, const std::wstring& format, std::wstring& text) {
    if (V_VT(&value) == VT_NULL) {
        Raise(static_cast<HRESULT>(0x800A005E), L"Invalid use of Null");
    }
    if (format.empty()) {
        // A text goes as it is, into the buffer that the caller has.
        if (V_VT(&value) == VT_BSTR) {
            text.assign(V_BSTR(&value) ? V_BSTR(&value) : L"", SysStringLen(V_BSTR(&value)));
        } else {
            text = TextOf(value);
        }
        return;
    }
    BSTR formatted = nullptr;
    CheckSystem(VarFormat(const_cast<VARIANT*>(&value), const_cast<wchar_t*>(format.c_str()), kFirstDayOfWeek,
                          kFirstWeekOfYear, 0, &formatted));
    text.assign(formatted ? formatted : L"", SysStringLen(formatted));
    SysFreeString(formatted);
}

bool AsBoolean(const VARIANT& value) {
    _variant_t boolean;
    CheckSystem(VariantChangeTypeEx(&boolean, const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0, VT_BOOL));
    return V_BOOL(&boolean) != VARIANT_FALSE;
}

// The bits that a hexadecimal number shows: those of the value's own size, of a long for all but the small ones.
std::uint32_t BitsOf(const VARIANT& value) {
    if (V_VT(&value) == VT_UI4 || V_VT(&value) == VT_UINT) {
        return V_UI4(&value); // beyond a Long, as system colours are
    }
    _variant_t number;
    const VARTYPE type = V_VT(&value) == VT_I2 || V_VT(&value) == VT_BOOL ? VT_I2 : VT_I4;
    CheckSystem(VariantChangeTypeEx(&number, const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0, type));
    return type == VT_I2 ? static_cast<std::uint16_t>(V_I2(&number)) : static_cast<std::uint32_t>(V_I4(&number));
}

} // namespace

void CProperty::FormatText(std::wstring& text) {
    if (HoldsObject(m_Value)) {
        text = ObjectText(ObjectOf(m_Value));
    } else {
        PlainText(text);
    }
}

std::wstring CProperty::ObjectText(IUnknown* borrowed) {
    const ComPtr<IUnknown> object(borrowed);
    const ComPtr<CProperty> alive(this); // the object may do anything when it is asked
    if (m_EditorType == omPictureEditor) {
        const bool shown = object && PictureTypeOf(object.Get()) > 0;
        return shown ? ParamOr(L"(Picture)", L"(Picture)") : ParamOr(L"NoPicturePrompt", L"(none)");
    }
    if (!object) {
        return {};
    }
    if (m_EditorType != omListEditor) {
        return DefaultText(object.Get());
    }
    std::wstring text;
    for (long i = 1; i <= ListItems().CountOf(); ++i) {
        const ComPtr<CListItem> item = ListItems().At(i);
        if (HoldsObject(item->Value()) && SameObject(ObjectOf(item->Value()), object.Get())) {
            text = item->Text();
        }
    }
    return text;
}

void CProperty::PlainText(std::wstring& text) {
    text.clear();
    if (m_EditorType == omPictureEditor) {
        text = ParamOr(L"NoPicturePrompt", L"(none)");
    }
    if (V_VT(&m_Value) == VT_EMPTY || IsMissing(m_Value)) {
        return;
    }
    FormatValue(m_Value, m_Format, text);
    if (m_EditorType == omBooleanEditor) {
        std::wstring label = EditorParam(AsBoolean(m_Value) ? L"True" : L"False");
        if (!label.empty()) {
            text = std::move(label);
        }
    } else if (m_EditorType == omListEditor) {
        ListText(text);
    } else if (m_EditorType == omColorEditor && m_Format.empty()) {
        text = ColorHexText(BitsOf(m_Value));
    }
}

// The last of the entries with this value gives the text.
void CProperty::ListText(std::wstring& text) {
    bool found = false;
    for (long i = 1; i <= ListItems().CountOf(); ++i) {
        const CListItem* item = ListItems().At(i);
        if (!HoldsObject(item->Value()) && CompareValues(item->Value(), m_Value) == Comparison::Equal) {
            text = item->Text();
            found = true;
        }
    }
    if (!found) {
        text = TextOf(m_Value);
    }
}

} // namespace ormisk
