#pragma once

#include "automation/DispatchObject.h"
#include "automation/Value.h"
#include "model/CListItems.h"
#include "model/EditorParams.h"
#include "model/ObjectHolder.h"
#include "model/RareText.h"

#include <optional>

namespace ormisk {

// A property: the public object behind one row of the grid. Each change of what is shown is reported to the owner with
// the word of the attribute; a setter that is given the present value reports nothing. Made and filed by CProperties.
class CProperty : public DispatchObject<_CProperty, ::CProperty>, public ObjectHolder {
public:
    // What a row reads, without side effects.
    const std::wstring& Name() const { return m_Name; }
    const std::wstring& Category() const { return m_Category; }
    const std::wstring& Key() const { return m_Key; } // the host's
    const std::wstring& InternalKey() const { return m_InternalKey; }
    const VARIANT& Value() const { return m_Value; }
    const std::wstring& Format() const { return m_Format; }
    const std::wstring& Help() const { return m_Help; }
    const std::wstring& HelpFile() const { return m_HelpFile; }
    long HelpContext() const { return m_HelpContext; }
    const std::wstring& EditorKey() const { return m_EditorKey; }
    const std::wstring& DataType() const { return m_DataType; }
    omEditorType EditorKind() const { return m_EditorType; }
    bool IsVisible() const { return m_Visible; }
    bool IsReadOnly() const { return m_ReadOnly; }
    bool IsBold() const { return m_Bold; }
    bool IsItalic() const { return m_Italic; }
    bool CustomDraw() const { return m_CustomDraw; }
    bool ByteExpanded() const { return m_Unicode; }
    bool AutoUpdateSource() const { return m_AutoUpdateSource; }
    void SetAutoUpdateSource(bool update) { m_AutoUpdateSource = update; }
    omAppearance Appearance() const { return m_Appearance; }
    OLE_COLOR RawBackColor() const { return m_BackColor; } // 0xFFFFFFFF follows the owner
    OLE_COLOR RawForeColor() const { return m_ForeColor; }
    OLE_COLOR ResolvedBackColor() const; // 0 without an owner
    OLE_COLOR ResolvedForeColor() const;
    OLE_COLOR PictureMaskColor() const { return m_PictureMaskColor; }
    IPictureDisp* Picture() const { return m_Picture.Get(); } // borrowed
    long Index() const { return m_Index; }
    ComPtr<IDispatch> SourceObject() const { return m_SourceObject; }

    // The text of the value column, into a buffer of the caller's. Raises for Null and where a conversion fails. Of a
    // longer value, what lies behind so many characters may be left out.
    void FormatText(std::wstring& text, std::size_t longest = std::wstring::npos);

    // The editor type; of a Boolean property the list items are made anew by it.
    omEditorType EditorType();
    CListItems& ListItems();
    // "" when neither the property nor its owner has one. Raises InvalidKey for a blank name.
    std::wstring EditorParam(const std::wstring& name) const;
    std::wstring ParamOr(const std::wstring& name, const wchar_t* otherwise) const; // in place of ""

    // A plain value, written through to the source object if there is one to be kept in step; a value that compares
    // equal, and Null over anything but Null, is dropped. An object goes to SetValue.
    void LetValue(const VARIANT& given);
    // An object, by reference. Reports in every case.
    void SetValue(const VARIANT& given);
    // The value as it is elsewhere, which nothing is written back to: Null, Empty and other values are all different.
    // True when it was another one.
    bool MirrorValue(const VARIANT& given);

    void SetName(const std::wstring& name);
    void SetBold(bool bold) { Change(m_Bold, bold, Attribute::Bold); }
    void SetItalic(bool italic) { Change(m_Italic, italic, Attribute::Italic); }
    void SetBackColor(OLE_COLOR color) { Change(m_BackColor, color, Attribute::BackColor); }
    void SetForeColor(OLE_COLOR color) { Change(m_ForeColor, color, Attribute::ForeColor); }
    void SetAppearance(omAppearance appearance) { Change(m_Appearance, appearance, Attribute::Appearance); }
    void SetPicture(IPictureDisp* picture);
    void SetVisible(bool visible) { Change(m_Visible, visible, Attribute::Visible); }
    void SetReadOnly(bool readOnly) { Change(m_ReadOnly, readOnly, Attribute::ReadOnly); }
    void SetUnicode(bool byteExpanded) { Change(m_Unicode, byteExpanded, Attribute::Unicode); }

    // These do not report. The name of a parameter counts in any case; a blank one raises InvalidKey.
    void SetEditorType(omEditorType type) { m_EditorType = type; }
    void SetParam(const std::wstring& name, const std::wstring& value);

    // Operations of the library itself; none of them reports.

    // The help of a row that is not on screen yet.
    void InitHelp(std::wstring_view help, std::wstring_view file = {}, long context = 0) {
        m_Help = help;
        m_HelpFile = file;
        m_HelpContext = context;
    }
    void InitReadOnly() { m_ReadOnly = true; }
    // Once, right after creation.
    void Init(const Ref<OwnerLink>& owner, std::wstring_view name, const VARIANT& value, IDispatch* source,
              bool autoUpdate, omEditorType editorType, bool readOnly);
    void SetIndex(long index) { m_Index = index; }
    void SetKey(std::wstring_view key) { m_Key = key; }
    void SetCategory(std::wstring_view category) { m_Category = category; }
    void SetInternalKey(std::wstring key); // while it is not filed
    void SetEditorKey(std::wstring_view key) { m_EditorKey = key; }
    void SetDataType(const std::wstring& dataType) { m_DataType = dataType; }
    void ReplaceCategorySeparator(std::wstring_view oldSeparator, std::wstring_view newSeparator);
    // Nothing leaves the old object in place.
    void SetSourceObject(IDispatch* source);
    // A property that left its collection mirrors nothing any more.
    void DropSourceObject();
    // Value, tag and source; those of the list entries are let go by the entries.
    void LetObjectsGo() override;
    IUnknown* Identity() override { return DispatchObject::Identity(); }
    // Whether a collection holds the property. One that was removed lives on as long as a host keeps it.
    bool IsFiled() const { return m_Filed; }
    void SetFiled(bool filed) { m_Filed = filed; }
    FoldedKey FiledKey() const;
    FoldedKey HostKey() const { return FoldedKey(Key()); }
    // Tells the owner; what it fails at is ignored.
    void NotifyChange(Attribute attribute);

    STDMETHODIMP put_Bold(VARIANT_BOOL value) override;
    STDMETHODIMP get_Bold(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Italic(VARIANT_BOOL value) override;
    STDMETHODIMP get_Italic(VARIANT_BOOL* value) override;
    STDMETHODIMP put_BackColor(OLE_COLOR value) override;
    STDMETHODIMP get_BackColor(OLE_COLOR* value) override;
    STDMETHODIMP put_ForeColor(OLE_COLOR value) override;
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) override;
    STDMETHODIMP get_Tag(VARIANT* value) override;
    STDMETHODIMP putref_Tag(VARIANT value) override;
    STDMETHODIMP put_Tag(VARIANT value) override;
    STDMETHODIMP putref_Picture(IPictureDisp* value) override;
    STDMETHODIMP get_Picture(IPictureDisp** value) override;
    STDMETHODIMP get_Key(BSTR* value) override;
    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP put_Name(BSTR value) override;
    STDMETHODIMP get_Value(VARIANT* value) override;
    STDMETHODIMP putref_Value(VARIANT value) override;
    STDMETHODIMP put_Value(VARIANT value) override;
    STDMETHODIMP get_Appearance(long* value) override;
    STDMETHODIMP put_Appearance(omAppearance value) override;
    STDMETHODIMP get_EditorType(omEditorType* value) override;
    STDMETHODIMP put_EditorType(omEditorType value) override;
    STDMETHODIMP get_Help(BSTR* value) override;
    STDMETHODIMP put_Help(BSTR value) override;
    STDMETHODIMP get_ListItems(_CListItems** value) override;
    STDMETHODIMP get_Category(BSTR* value) override;
    STDMETHODIMP get_ReadOnly(VARIANT_BOOL* value) override;
    STDMETHODIMP put_ReadOnly(VARIANT_BOOL value) override;
    STDMETHODIMP get_FormattedText(BSTR* value) override;
    STDMETHODIMP put_Format(BSTR value) override;
    STDMETHODIMP get_Format(BSTR* value) override;
    STDMETHODIMP get_EditorKey(BSTR* value) override;
    STDMETHODIMP put_EditorKey(BSTR value) override;
    STDMETHODIMP put_CustomDraw(VARIANT_BOOL value) override;
    STDMETHODIMP get_CustomDraw(VARIANT_BOOL* value) override;
    STDMETHODIMP get_SourceObject(IDispatch** value) override;
    STDMETHODIMP get_AutoUpdateSource(VARIANT_BOOL* value) override;
    STDMETHODIMP put_AutoUpdateSource(VARIANT_BOOL value) override;
    STDMETHODIMP SetEditorParam(BSTR name, BSTR value) override;
    STDMETHODIMP GetEditorParam(BSTR name, BSTR* value) override;
    STDMETHODIMP put_HelpFile(BSTR value) override;
    STDMETHODIMP get_HelpFile(BSTR* value) override;
    STDMETHODIMP put_HelpContext(long value) override;
    STDMETHODIMP get_HelpContext(long* value) override;
    STDMETHODIMP RemoveEditorParam(BSTR name) override;
    STDMETHODIMP put_Visible(VARIANT_BOOL value) override;
    STDMETHODIMP get_Visible(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PictureMaskColor(OLE_COLOR* value) override;
    STDMETHODIMP put_PictureMaskColor(OLE_COLOR value) override;
    STDMETHODIMP get_Index(long* value) override;
    STDMETHODIMP get_Unicode(VARIANT_BOOL* value) override;
    STDMETHODIMP put_Unicode(VARIANT_BOOL value) override;

private:
    static constexpr OLE_COLOR kColorOfOwner = 0xFFFFFFFF;

    template <class T, class V> void Change(T& field, const V& value, Attribute attribute) {
        if (!(field == value)) {
            field = value;
            NotifyChange(attribute);
        }
    }
    template <class Argument, class Given> HRESULT Put(void (CProperty::*set)(Argument), const Given& given);
    template <class Field, class Given> HRESULT PutField(Field& field, const Given& given, Attribute attribute);
    const std::wstring& SourceName() const { return m_SourceName ? *m_SourceName : m_Name; }
    PropertyOwner* Owner() const { return Link() ? Link()->Get() : nullptr; }
    void FinalRelease() override { Unlist(); }
    void NowHolds() { ObjectHolder::NowHolds({&m_Value, &m_Tag}, m_SourceObject.Get()); }
    // What `field` held comes back in `value`. It is for the caller to let it go: that can call the host.
    void Exchange(_variant_t& field, _variant_t& value);
    void WriteThrough(const std::wstring& member, WORD callType, const _variant_t& value);

    std::wstring m_Name;
    std::unique_ptr<std::wstring>
        m_SourceName; // of the member on the source object: the first name, once it has another
    std::wstring m_InternalKey;
    std::uint32_t m_KeyHash = 0; // of m_InternalKey
    std::wstring m_Category;
    RareText m_Key;
    _variant_t m_Value;
    _variant_t m_Tag;
    RareText m_Format;
    RareText m_Help;
    RareText m_HelpFile;
    long m_HelpContext = 0;
    RareText m_EditorKey;
    RareText m_DataType;
    ComPtr<IDispatch> m_SourceObject;
    ComPtr<IPictureDisp> m_Picture;
    ComPtr<CListItems> m_ListItems;                   // made when first asked for
    std::unique_ptr<EditorParamStore> m_EditorParams; // made by the first parameter
    long m_Index = 0;
    OLE_COLOR m_BackColor = kColorOfOwner;
    OLE_COLOR m_ForeColor = kColorOfOwner;
    OLE_COLOR m_PictureMaskColor = 0xFFFFFF;
    omAppearance m_Appearance = omFlat;
    omEditorType m_EditorType = omTextEditor;
    bool m_Bold = false;
    bool m_Italic = false;
    bool m_ReadOnly = false;
    bool m_AutoUpdateSource = true;
    bool m_CustomDraw = false;
    bool m_Visible = true;
    bool m_Unicode = false;
    bool m_Filed = false;
    unsigned char m_Writes = 0; // that go on, one inside another
};

} // namespace ormisk
