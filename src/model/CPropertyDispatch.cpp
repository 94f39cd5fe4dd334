#include "model/CProperty.h"

#include "model/NumberText.h"
#include "model/ValueRules.h"

// The public members of a property.

namespace ormisk {

namespace {

template <class F> HRESULT Member(F&& body) { return Guarded(__uuidof(_CProperty), std::forward<F>(body)); }

template <class Out, class T> HRESULT Give(Out* out, T value) {
    return Member([&] {
        CheckPointer(out);
        *out = value;
    });
}

HRESULT GiveFlag(VARIANT_BOOL* out, bool value) { return Give(out, value ? VARIANT_TRUE : VARIANT_FALSE); }

HRESULT GiveText(BSTR* out, const std::wstring& text) {
    return Member([&] {
        CheckPointer(out);
        *out = NewBstr(text);
    });
}

HRESULT GiveValue(VARIANT* out, const VARIANT& value) {
    return Member([&] {
        CheckPointer(out);
        *out = Plain(value).Detach();
    });
}

bool IsTrue(VARIANT_BOOL value) { return value != VARIANT_FALSE; }

// A parameter's name as it counts.
std::wstring CheckedName(BSTR name) {
    std::wstring trimmed(TrimBlanks(FromBstr(name)));
    if (trimmed.empty())
        Raise(ErrorCode::InvalidKey);
    return trimmed;
}

} // namespace

HRESULT CProperty::put_Bold(VARIANT_BOOL value) {
    return Member([&] { SetBold(IsTrue(value)); });
}
HRESULT CProperty::get_Bold(VARIANT_BOOL* value) { return GiveFlag(value, m_Bold); }

HRESULT CProperty::put_Italic(VARIANT_BOOL value) {
    return Member([&] { SetItalic(IsTrue(value)); });
}
HRESULT CProperty::get_Italic(VARIANT_BOOL* value) { return GiveFlag(value, m_Italic); }

HRESULT CProperty::put_BackColor(OLE_COLOR value) {
    return Member([&] { SetBackColor(value); });
}
HRESULT CProperty::get_BackColor(OLE_COLOR* value) {
    return Member([&] {
        CheckPointer(value);
        *value = ResolvedBackColor();
    });
}

HRESULT CProperty::put_ForeColor(OLE_COLOR value) {
    return Member([&] { SetForeColor(value); });
}
HRESULT CProperty::get_ForeColor(OLE_COLOR* value) {
    return Member([&] {
        CheckPointer(value);
        *value = ResolvedForeColor();
    });
}

HRESULT CProperty::get_Tag(VARIANT* value) { return GiveValue(value, m_Tag); }
HRESULT CProperty::putref_Tag(VARIANT value) { return put_Tag(value); }
HRESULT CProperty::put_Tag(VARIANT value) {
    return Member([&] {
        _variant_t exchanged = Plain(value);
        Exchange(m_Tag, exchanged);
    });
}

HRESULT CProperty::putref_Picture(IPictureDisp* value) {
    return Member([&] { SetPicture(value); });
}
HRESULT CProperty::get_Picture(IPictureDisp** value) {
    return Member([&] {
        CheckPointer(value);
        *value = ComPtr<IPictureDisp>(m_Picture).Detach();
    });
}

HRESULT CProperty::get_Key(BSTR* value) { return GiveText(value, m_Key); }

HRESULT CProperty::get_Name(BSTR* value) { return GiveText(value, m_Name); }
HRESULT CProperty::put_Name(BSTR value) {
    return Member([&] { SetName(FromBstr(value)); });
}

HRESULT CProperty::get_Value(VARIANT* value) { return GiveValue(value, m_Value); }
HRESULT CProperty::putref_Value(VARIANT value) {
    return Member([&] { SetValue(value); });
}
HRESULT CProperty::put_Value(VARIANT value) {
    return Member([&] { LetValue(value); });
}

HRESULT CProperty::get_Appearance(long* value) { return Give(value, static_cast<long>(m_Appearance)); }
HRESULT CProperty::put_Appearance(omAppearance value) {
    return Member([&] { SetAppearance(value); });
}

HRESULT CProperty::get_EditorType(omEditorType* value) {
    return Member([&] {
        CheckPointer(value);
        *value = EditorType();
    });
}
HRESULT CProperty::put_EditorType(omEditorType value) {
    SetEditorType(value);
    return S_OK;
}

HRESULT CProperty::get_Help(BSTR* value) { return GiveText(value, m_Help); }
HRESULT CProperty::put_Help(BSTR value) {
    return Member([&] { Change(m_Help, FromBstr(value), L"Help"); });
}

HRESULT CProperty::get_ListItems(_CListItems** value) {
    return Member([&] {
        CheckPointer(value);
        *value = nullptr;
        *value = ComPtr<CListItems>(&ListItems()).Detach();
    });
}

HRESULT CProperty::get_Category(BSTR* value) { return GiveText(value, m_Category); }

HRESULT CProperty::get_ReadOnly(VARIANT_BOOL* value) { return GiveFlag(value, m_ReadOnly); }
HRESULT CProperty::put_ReadOnly(VARIANT_BOOL value) {
    return Member([&] { SetReadOnly(IsTrue(value)); });
}

HRESULT CProperty::get_FormattedText(BSTR* value) {
    return Member([&] {
        CheckPointer(value);
        *value = nullptr;
        std::wstring text;
        FormatText(text);
        *value = NewBstr(text);
    });
}

HRESULT CProperty::put_Format(BSTR value) {
    return Member([&] { Change(m_Format, FromBstr(value), L"Format"); });
}
HRESULT CProperty::get_Format(BSTR* value) { return GiveText(value, m_Format); }

HRESULT CProperty::get_EditorKey(BSTR* value) { return GiveText(value, m_EditorKey); }
HRESULT CProperty::put_EditorKey(BSTR value) {
    return Member([&] { m_EditorKey = FromBstr(value); });
}

HRESULT CProperty::put_CustomDraw(VARIANT_BOOL value) {
    return Member([&] { Change(m_CustomDraw, IsTrue(value), L"CustomDraw"); });
}
HRESULT CProperty::get_CustomDraw(VARIANT_BOOL* value) { return GiveFlag(value, m_CustomDraw); }

HRESULT CProperty::get_SourceObject(IDispatch** value) {
    return Member([&] {
        CheckPointer(value);
        *value = ComPtr<IDispatch>(m_SourceObject).Detach();
    });
}

HRESULT CProperty::get_AutoUpdateSource(VARIANT_BOOL* value) { return GiveFlag(value, m_AutoUpdateSource); }
HRESULT CProperty::put_AutoUpdateSource(VARIANT_BOOL value) {
    m_AutoUpdateSource = IsTrue(value);
    return S_OK;
}

HRESULT CProperty::SetEditorParam(BSTR name, BSTR value) {
    return Member([&] { SetParam(FromBstr(name), FromBstr(value)); });
}

HRESULT CProperty::GetEditorParam(BSTR name, BSTR* value) {
    return Member([&] {
        CheckPointer(value);
        *value = nullptr;
        *value = NewBstr(EditorParam(FromBstr(name)));
    });
}

HRESULT CProperty::put_HelpFile(BSTR value) {
    return Member([&] { Change(m_HelpFile, FromBstr(value), L"HelpFile"); });
}
HRESULT CProperty::get_HelpFile(BSTR* value) { return GiveText(value, m_HelpFile); }

HRESULT CProperty::put_HelpContext(long value) {
    return Member([&] { Change(m_HelpContext, value, L"HelpContext"); });
}
HRESULT CProperty::get_HelpContext(long* value) { return Give(value, m_HelpContext); }

HRESULT CProperty::RemoveEditorParam(BSTR name) {
    return Member([&] {
        const std::wstring key = CheckedName(name);
        if (m_EditorParams)
            m_EditorParams->Remove(key);
    });
}

HRESULT CProperty::put_Visible(VARIANT_BOOL value) {
    return Member([&] { SetVisible(IsTrue(value)); });
}
HRESULT CProperty::get_Visible(VARIANT_BOOL* value) { return GiveFlag(value, m_Visible); }

HRESULT CProperty::get_PictureMaskColor(OLE_COLOR* value) { return Give(value, m_PictureMaskColor); }
HRESULT CProperty::put_PictureMaskColor(OLE_COLOR value) {
    return Member([&] { Change(m_PictureMaskColor, value, L"PictureMaskColor"); });
}

HRESULT CProperty::get_Index(long* value) { return Give(value, m_Index); }

HRESULT CProperty::get_Unicode(VARIANT_BOOL* value) { return GiveFlag(value, m_Unicode); }
HRESULT CProperty::put_Unicode(VARIANT_BOOL value) {
    return Member([&] { SetUnicode(IsTrue(value)); });
}

} // namespace ormisk
