#include "model/CProperty.h"

#include "automation/Give.h"
#include "model/NumberText.h"
#include "model/ValueRules.h"

// The public members of a property.

namespace ormisk {

namespace {

template <class F> HRESULT Member(F&& body) { return Guarded(__uuidof(_CProperty), std::forward<F>(body)); }

template <class Out, class T> HRESULT Get(Out* out, const T& value) {
    return Member([&] { Give(out, value); });
}

// An argument as the property keeps it.
bool Taken(VARIANT_BOOL value) { return value != VARIANT_FALSE; }
std::wstring Taken(BSTR value) { return FromBstr(value); }
template <class T> const T& Taken(const T& value) { return value; }

// A parameter's name as it counts.
std::wstring CheckedName(BSTR name) {
    std::wstring trimmed(TrimBlanks(FromBstr(name)));
    if (trimmed.empty())
        Raise(ErrorCode::InvalidKey);
    return trimmed;
}

} // namespace

template <class Argument, class Given> HRESULT CProperty::Put(void (CProperty::*set)(Argument), const Given& given) {
    return Member([&] { (this->*set)(Taken(given)); });
}

template <class Field, class Given> HRESULT CProperty::PutField(Field& field, const Given& given, Attribute attribute) {
    return Member([&] { Change(field, Taken(given), attribute); });
}

HRESULT CProperty::put_Bold(VARIANT_BOOL value) { return Put(&CProperty::SetBold, value); }
HRESULT CProperty::get_Bold(VARIANT_BOOL* value) { return Get(value, m_Bold); }

HRESULT CProperty::put_Italic(VARIANT_BOOL value) { return Put(&CProperty::SetItalic, value); }
HRESULT CProperty::get_Italic(VARIANT_BOOL* value) { return Get(value, m_Italic); }

HRESULT CProperty::put_BackColor(OLE_COLOR value) { return Put(&CProperty::SetBackColor, value); }
HRESULT CProperty::get_BackColor(OLE_COLOR* value) { return Get(value, ResolvedBackColor()); }

HRESULT CProperty::put_ForeColor(OLE_COLOR value) { return Put(&CProperty::SetForeColor, value); }
HRESULT CProperty::get_ForeColor(OLE_COLOR* value) { return Get(value, ResolvedForeColor()); }

HRESULT CProperty::get_Tag(VARIANT* value) { return Get(value, m_Tag); }
HRESULT CProperty::putref_Tag(VARIANT value) { return put_Tag(value); }
HRESULT CProperty::put_Tag(VARIANT value) {
    return Member([&] {
        _variant_t exchanged = Plain(value);
        Exchange(m_Tag, exchanged);
    });
}

HRESULT CProperty::putref_Picture(IPictureDisp* value) { return Put(&CProperty::SetPicture, value); }
HRESULT CProperty::get_Picture(IPictureDisp** value) { return Get(value, m_Picture); }

HRESULT CProperty::get_Key(BSTR* value) { return Get(value, m_Key); }

HRESULT CProperty::get_Name(BSTR* value) { return Get(value, m_Name); }
HRESULT CProperty::put_Name(BSTR value) { return Put(&CProperty::SetName, value); }

HRESULT CProperty::get_Value(VARIANT* value) { return Get(value, m_Value); }
HRESULT CProperty::putref_Value(VARIANT value) { return Put(&CProperty::SetValue, value); }
HRESULT CProperty::put_Value(VARIANT value) {
    return Member([&] { LetValue(value); });
}

HRESULT CProperty::get_Appearance(long* value) { return Get(value, m_Appearance); }
HRESULT CProperty::put_Appearance(omAppearance value) { return Put(&CProperty::SetAppearance, value); }

HRESULT CProperty::get_EditorType(omEditorType* value) {
    return Member([&] { Give(value, EditorType()); });
}
HRESULT CProperty::put_EditorType(omEditorType value) {
    SetEditorType(value);
    return S_OK;
}

HRESULT CProperty::get_Help(BSTR* value) { return Get(value, m_Help); }
HRESULT CProperty::put_Help(BSTR value) { return PutField(m_Help, value, Attribute::Help); }

HRESULT CProperty::get_ListItems(_CListItems** value) {
    return Get(value, [&] { return ComPtr<CListItems>(&ListItems()); });
}

HRESULT CProperty::get_Category(BSTR* value) { return Get(value, m_Category); }

HRESULT CProperty::get_ReadOnly(VARIANT_BOOL* value) { return Get(value, m_ReadOnly); }
HRESULT CProperty::put_ReadOnly(VARIANT_BOOL value) { return Put(&CProperty::SetReadOnly, value); }

HRESULT CProperty::get_FormattedText(BSTR* value) {
    return Get(value, [&] {
        std::wstring text;
        FormatText(text);
        return text;
    });
}

HRESULT CProperty::put_Format(BSTR value) { return PutField(m_Format, value, Attribute::Format); }
HRESULT CProperty::get_Format(BSTR* value) { return Get(value, m_Format); }

HRESULT CProperty::get_EditorKey(BSTR* value) { return Get(value, m_EditorKey); }
HRESULT CProperty::put_EditorKey(BSTR value) {
    return Member([&] { m_EditorKey = FromBstr(value); });
}

HRESULT CProperty::put_CustomDraw(VARIANT_BOOL value) { return PutField(m_CustomDraw, value, Attribute::CustomDraw); }
HRESULT CProperty::get_CustomDraw(VARIANT_BOOL* value) { return Get(value, m_CustomDraw); }

HRESULT CProperty::get_SourceObject(IDispatch** value) { return Get(value, m_SourceObject); }

HRESULT CProperty::get_AutoUpdateSource(VARIANT_BOOL* value) { return Get(value, m_AutoUpdateSource); }
HRESULT CProperty::put_AutoUpdateSource(VARIANT_BOOL value) {
    m_AutoUpdateSource = Taken(value);
    return S_OK;
}

HRESULT CProperty::SetEditorParam(BSTR name, BSTR value) {
    return Member([&] { SetParam(FromBstr(name), FromBstr(value)); });
}

HRESULT CProperty::GetEditorParam(BSTR name, BSTR* value) {
    return Get(value, [&] { return EditorParam(FromBstr(name)); });
}

HRESULT CProperty::put_HelpFile(BSTR value) { return PutField(m_HelpFile, value, Attribute::HelpFile); }
HRESULT CProperty::get_HelpFile(BSTR* value) { return Get(value, m_HelpFile); }

HRESULT CProperty::put_HelpContext(long value) { return PutField(m_HelpContext, value, Attribute::HelpContext); }
HRESULT CProperty::get_HelpContext(long* value) { return Get(value, m_HelpContext); }

HRESULT CProperty::RemoveEditorParam(BSTR name) {
    return Member([&] {
        const std::wstring key = CheckedName(name);
        if (m_EditorParams)
            m_EditorParams->Remove(key);
    });
}

HRESULT CProperty::put_Visible(VARIANT_BOOL value) { return Put(&CProperty::SetVisible, value); }
HRESULT CProperty::get_Visible(VARIANT_BOOL* value) { return Get(value, m_Visible); }

HRESULT CProperty::get_PictureMaskColor(OLE_COLOR* value) { return Get(value, m_PictureMaskColor); }
HRESULT CProperty::put_PictureMaskColor(OLE_COLOR value) {
    return PutField(m_PictureMaskColor, value, Attribute::PictureMaskColor);
}

HRESULT CProperty::get_Index(long* value) { return Get(value, m_Index); }

HRESULT CProperty::get_Unicode(VARIANT_BOOL* value) { return Get(value, m_Unicode); }
HRESULT CProperty::put_Unicode(VARIANT_BOOL value) { return Put(&CProperty::SetUnicode, value); }

} // namespace ormisk
