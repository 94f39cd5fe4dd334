#include "tree/CNode.h"

#include "model/ValueRules.h"
#include "tree/CNodes.h"

#include <cstddef>

namespace ormisk {

struct CNode::CategoryFields {
    std::wstring key;
    std::wstring name;
    _variant_t value;
    ComPtr<IPictureDisp> picture;
    OLE_COLOR backColor = 0xFFFFFFFF;
    OLE_COLOR foreColor = 0xFFFFFFFF;
    omAppearance appearance = omFlat;
    bool bold = false;
    bool italic = false;
};

namespace {

std::uint32_t HashOf(const void* object) {
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(object) / alignof(std::max_align_t));
}

} // namespace

CategoryPlace::CategoryPlace(const CNode* parent, std::wstring_view key)
    : parent(parent), key(key), hash(this->key.hash ^ (HashOf(parent) * 0x9E3779B1u)) {}

PropertyPlace::PropertyPlace(const CProperty* property) : property(property), hash(HashOf(property)) {}

CNode::CNode(CProperty& property) : m_Property(&property), m_Hidden(!property.IsVisible()) {}

CNode::CNode(std::wstring key, std::wstring_view name, const VARIANT& value)
    : m_Category(std::make_unique<CategoryFields>()) {
    m_Category->key = std::move(key);
    m_Category->name = name;
    m_Category->value = Plain(value);
}

CNode::~CNode() = default;

CProperty* CNode::Property() const { return m_Property && m_Property->IsFiled() ? m_Property.Get() : nullptr; }

const std::wstring& CNode::Key() const { return m_Category ? m_Category->key : m_Property->InternalKey(); }

const std::wstring& CNode::Name() const { return m_Category ? m_Category->name : m_Property->Name(); }

CategoryPlace CNode::PlaceOfCategory() const { return {m_Parent, m_Category->key}; }

bool CNode::Bold() const {
    const CProperty* property = Property();
    return m_Category ? m_Category->bold : property && property->IsBold();
}

bool CNode::Italic() const {
    const CProperty* property = Property();
    return m_Category ? m_Category->italic : property && property->IsItalic();
}

omAppearance CNode::Appearance() const {
    if (m_Category)
        return m_Category->appearance;
    return Property() ? Property()->Appearance() : omFlat;
}

OLE_COLOR CNode::BackColor() const {
    if (m_Category)
        return m_Category->backColor;
    return Property() ? Property()->ResolvedBackColor() : 0xFFFFFFFF;
}

OLE_COLOR CNode::ForeColor() const {
    if (m_Category)
        return m_Category->foreColor;
    return Property() ? Property()->ResolvedForeColor() : 0xFFFFFFFF;
}

IPictureDisp* CNode::Picture() const {
    if (m_Category)
        return m_Category->picture.Get();
    return Property() ? Property()->Picture() : nullptr;
}

const VARIANT& CNode::Value() const {
    static const _variant_t none;
    if (m_Category)
        return m_Category->value;
    return Property() ? Property()->Value() : none;
}

std::wstring CNode::DataType() const {
    if (m_Category)
        return L"AA";
    return Property() ? Property()->DataType() : std::wstring();
}

void CNode::SetBold(bool bold) {
    if (m_Category)
        m_Category->bold = bold;
    else if (CProperty* property = Property())
        property->SetBold(bold);
}

void CNode::SetItalic(bool italic) {
    if (m_Category)
        m_Category->italic = italic;
    else if (CProperty* property = Property())
        property->SetItalic(italic);
}

void CNode::SetAppearance(omAppearance appearance) {
    if (m_Category)
        m_Category->appearance = appearance;
    else if (CProperty* property = Property())
        property->SetAppearance(appearance);
}

void CNode::SetBackColor(OLE_COLOR color) {
    if (m_Category)
        m_Category->backColor = color;
    else if (CProperty* property = Property())
        property->SetBackColor(color);
}

void CNode::SetForeColor(OLE_COLOR color) {
    if (m_Category)
        m_Category->foreColor = color;
    else if (CProperty* property = Property())
        property->SetForeColor(color);
}

void CNode::SetPicture(IPictureDisp* picture) {
    if (m_Category)
        m_Category->picture = picture;
    else if (CProperty* property = Property())
        property->SetPicture(picture);
}

void CNode::SetName(const std::wstring& name) {
    if (m_Category) {
        m_Category->name = name;
        if (m_Tree)
            m_Tree->NameChanged(this);
    }
}

void CNode::SetDataType(const std::wstring& dataType) {
    if (CProperty* property = Property())
        property->SetDataType(dataType);
}

void CNode::LetValue(const VARIANT& value) {
    if (m_Category) {
        Store(m_Category->value, Plain(value));
        return;
    }
    if (HoldsObject(value)) {
        SetValue(value);
        return;
    }
    const ComPtr<CProperty> property = Property();
    if (property && (V_VT(&property->Value()) == VT_NULL || HoldsObject(property->Value()) ||
                     CompareValues(property->Value(), value) == Comparison::Different)) {
        property->LetValue(value);
    }
}

void CNode::SetValue(const VARIANT& value) {
    if (m_Category) {
        Store(m_Category->value, Plain(value));
        return;
    }
    const ComPtr<CProperty> property = Property();
    const auto differs = [&] {
        const VARIANT& held = property->Value();
        return HoldsObject(held) != HoldsObject(value) || !SameObject(ObjectOf(held), ObjectOf(value));
    };
    if (property && differs())
        property->SetValue(value);
}

omEditorType CNode::EditorType() const { return m_Property->EditorType(); }

CListItems& CNode::ListItems() const { return m_Property->ListItems(); }

void CNode::SetExpanded(bool expanded) {
    if (expanded == m_Expanded)
        return;
    const Ref<CNode> alive(this);
    const auto listener = [this] { return m_Tree ? m_Tree->Owner() : nullptr; };
    VARIANT_BOOL cancel = VARIANT_FALSE;
    if (IsCategory() && listener())
        listener()->NodeStateChanging(*this, cancel);
    if (cancel == VARIANT_TRUE)
        return;
    m_Expanded = expanded;
    if (m_Tree)
        m_Tree->RowsChanged(this);
    if (listener())
        listener()->NodePropertyChanged(*this);
}

long CNode::Rows() const {
    if (m_Hidden)
        return 0;
    return 1 + (m_Expanded && m_Branch ? m_Branch->rows.Total() : 0);
}

} // namespace ormisk
