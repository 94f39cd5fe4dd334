#include "model/CProperty.h"

#include "automation/ByName.h"
#include "model/NumberText.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"
#include "win/Meanwhile.h"

namespace ormisk {

namespace {

constexpr unsigned char kMostWrites = 8;

} // namespace

OLE_COLOR CProperty::ResolvedBackColor() const {
    if (m_BackColor != kColorOfOwner)
        return m_BackColor;
    return Owner() ? Owner()->PropertyBackColor() : 0;
}

OLE_COLOR CProperty::ResolvedForeColor() const {
    if (m_ForeColor != kColorOfOwner)
        return m_ForeColor;
    return Owner() ? Owner()->PropertyForeColor() : 0;
}

void CProperty::Init(const Ref<OwnerLink>& owner, std::wstring_view name, const VARIANT& value, IDispatch* source,
                     bool autoUpdate, omEditorType editorType, bool readOnly) {
    BindTo(owner);
    m_Name = name;
    m_EditorType = editorType;
    m_ReadOnly = readOnly;
    CheckSystem(VariantCopyInd(&m_Value, const_cast<VARIANT*>(&value)));
    m_SourceObject = source;
    m_AutoUpdateSource = autoUpdate;
    NowHolds();
}

void CProperty::SetInternalKey(std::wstring key) {
    m_InternalKey = std::move(key);
    m_KeyHash = FoldedKey(m_InternalKey).hash;
}

FoldedKey CProperty::FiledKey() const {
    FoldedKey key;
    key.text = m_InternalKey;
    key.hash = m_KeyHash;
    return key;
}

void CProperty::SetSourceObject(IDispatch* source) {
    if (source && source != m_SourceObject.Get()) {
        const ComPtr<IDispatch> former = std::exchange(m_SourceObject, source);
        NowHolds();
    }
}

void CProperty::DropSourceObject() {
    const ComPtr<IDispatch> former = std::exchange(m_SourceObject, nullptr);
    NowHolds();
}

void CProperty::LetObjectsGo() {
    const ComPtr<IDispatch> source = std::exchange(m_SourceObject, nullptr);
    const _variant_t value = TakeObjects(m_Value);
    const _variant_t tag = TakeObjects(m_Tag);
    NowHolds();
}

void CProperty::Exchange(_variant_t& field, _variant_t& value) {
    SwapValues(field, value);
    NowHolds();
}

void CProperty::ReplaceCategorySeparator(std::wstring_view oldSeparator, std::wstring_view newSeparator) {
    if (oldSeparator.empty())
        return;
    for (std::size_t at = m_Category.find(oldSeparator); at != std::wstring::npos;
         at = m_Category.find(oldSeparator, at + newSeparator.size())) {
        m_Category.replace(at, oldSeparator.size(), newSeparator);
    }
}

void CProperty::NotifyChange(Attribute attribute) {
    const ComPtr<CProperty> alive(this);
    IgnoringFailures([&] {
        if (PropertyOwner* owner = Owner())
            owner->PropertyChangedEx(*this, attribute);
    });
}

void CProperty::SetName(const std::wstring& name) {
    if (m_Name == name)
        return;
    if (!m_SourceName)
        m_SourceName = std::make_unique<std::wstring>(std::move(m_Name));
    m_Name = name;
    NotifyChange(Attribute::Name);
}

void CProperty::SetPicture(IPictureDisp* picture) {
    if (SameObject(m_Picture.Get(), picture))
        return;
    ComPtr<IPictureDisp> old(picture);
    m_Picture.Swap(old);
    NotifyChange(Attribute::Picture);
}

void CProperty::LetValue(const VARIANT& given) {
    if (HoldsObject(given)) {
        SetValue(given);
        return;
    }
    const ComPtr<CProperty> alive(this);
    const _variant_t value = Plain(given);
    if (!IsNull(m_Value) && CompareValues(value, m_Value) != Comparison::Different)
        return;
    _variant_t former = value;
    Exchange(m_Value, former);
    WriteThrough(SourceName(), DISPATCH_PROPERTYPUT, value);
    NotifyChange(Attribute::Value);
}

void CProperty::SetValue(const VARIANT& given) {
    const ComPtr<CProperty> alive(this);
    const _variant_t value = Plain(given);
    if (!ObjectOf(m_Value)) {
        _variant_t nothing(static_cast<IDispatch*>(nullptr));
        Exchange(m_Value, nothing);
    }
    if (!HoldsObject(value)) {
        LetValue(value);
        return;
    }
    _variant_t former = value;
    if (!SameObject(ObjectOf(value), ObjectOf(m_Value))) {
        Exchange(m_Value, former);
        WriteThrough(m_Name, DISPATCH_PROPERTYPUTREF, value);
    }
    NotifyChange(Attribute::Value);
}

bool CProperty::MirrorValue(const VARIANT& given) {
    const ComPtr<CProperty> alive(this);
    _variant_t value = Plain(given);
    const bool same = V_VT(&value) == VT_NULL || V_VT(&value) == VT_EMPTY || V_VT(&m_Value) == VT_EMPTY
                          ? V_VT(&value) == V_VT(&m_Value)
                          : ValuesEqual(value, m_Value);
    if (same)
        return false;
    Exchange(m_Value, value);
    NotifyChange(Attribute::Value);
    return true;
}

// The source's own idea of the value wins. The source may do anything meanwhile; it and the member's name are held. One
// that sets the row from within is written to again, but not for ever.
void CProperty::WriteThrough(const std::wstring& memberName, WORD callType, const _variant_t& value) {
    const ComPtr<IDispatch> source = m_SourceObject;
    if (!m_AutoUpdateSource || !source || m_Writes == kMostWrites)
        return;
    const Meanwhile writing(m_Writes, static_cast<unsigned char>(m_Writes + 1));
    const std::wstring member = memberName;
    const bool written = callType == DISPATCH_PROPERTYPUT && IgnoringFailures([&] {
                             _variant_t argument = value;
                             InvokeByName(source.Get(), member, callType, &argument);
                         });
    if (!written)
        IgnoringFailures([&] { InvokeProperty(source.Get(), member, callType, value); });
    IgnoringFailures([&] {
        _variant_t taken = Plain(InvokeByName(source.Get(), member, DISPATCH_PROPERTYGET));
        if (m_SourceObject.Get() == source.Get()) // else the property mirrors it no longer
            Exchange(m_Value, taken);
    });
}

omEditorType CProperty::EditorType() {
    const ComPtr<CProperty> alive(this);
    if (const auto fillList = KindOf(m_EditorType).fillList)
        fillList(*this);
    return m_EditorType;
}

CListItems& CProperty::ListItems() {
    if (!m_ListItems)
        m_ListItems = MakeObject<CListItems>(Link());
    return *m_ListItems.Get();
}

std::wstring CProperty::EditorParam(const std::wstring& name) const {
    const std::wstring trimmed(TrimBlanks(name));
    if (trimmed.empty())
        Raise(ErrorCode::InvalidKey);
    std::wstring value = m_EditorParams ? m_EditorParams->Get(trimmed) : std::wstring();
    if (value.empty() && Owner())
        value = Owner()->EditorParam(m_EditorType, trimmed);
    return value;
}

void CProperty::SetParam(const std::wstring& name, const std::wstring& value) {
    if (!m_EditorParams)
        m_EditorParams = std::make_unique<EditorParamStore>();
    m_EditorParams->Set(name, value);
}

std::wstring CProperty::ParamOr(const std::wstring& name, const wchar_t* otherwise) const {
    std::wstring value = EditorParam(name);
    return value.empty() ? otherwise : value;
}

} // namespace ormisk
