#include "editors/CListEditor.h"

#include "automation/Value.h"
#include "listbox/OrmiskListBox.h"

namespace ormisk {
namespace {

// Objects by identity; nothing equals Null.
bool IsSameValue(const VARIANT& a, const VARIANT& b) {
    if (HoldsObject(a) || HoldsObject(b))
        return HoldsObject(a) && HoldsObject(b) && SameObject(ObjectOf(a), ObjectOf(b));
    return CompareValues(a, b) == Comparison::Equal;
}

} // namespace

HWND CListEditor::Window() const { return m_ListBox ? m_ListBox->hWnd() : nullptr; }

bool CListEditor::TakeFont(omEditorType type, const FontDescription& font) {
    if (type != omListEditor)
        return false;
    if (m_ListBox)
        m_ListBox->SetFont(font);
    return true;
}

void CListEditor::Activate(bool dropDown) {
    if (!m_ListBox)
        return;
    if (dropDown) {
        m_ListBox->ShowList(true);
        return;
    }
    const long next = m_ListBox->ListIndex() + 1;
    m_ListBox->SetListIndex(next < m_ListBox->ListCount() ? next : 0);
    Notify(&_CEditorListener::NotifyCommit);
}

void CListEditor::KeyPress(int& keyAscii) {
    const ComPtr<_CEditor> self(this);
    if (keyAscii != VK_RETURN && keyAscii != VK_ESCAPE)
        return;
    if (keyAscii == VK_ESCAPE)
        Cancel();
    FocusRows();
}

_variant_t CListEditor::Value() const {
    return m_ListBox ? m_ListBox->ItemValue(m_ListBox->ListIndex()) : _variant_t();
}

long CListEditor::Find(const VARIANT& value) const {
    for (long i = 0; m_ListBox && i < m_ListBox->ListCount(); ++i)
        if (IsSameValue(m_ListBox->ItemValue(i), value))
            return i;
    // Nothing equals Null: but the entry that was made for it serves again.
    return V_VT(&value) == VT_NULL && m_ListBox && V_VT(&m_ListBox->ItemValue(0)) == VT_NULL &&
                   m_ListBox->ItemText(0).empty()
               ? 0
               : -1;
}

void CListEditor::SetValue(const VARIANT& value) {
    if (!m_ListBox)
        return;
    const unsigned row = m_Row;
    const long found = Find(value);
    // A value without a text, such as an array, shows as an empty entry. An object may do anything when it is asked.
    std::wstring text;
    if (found < 0)
        IgnoringFailures([&] { text = TextOf(value); });
    if (!Serves(row))
        return;
    if (found < 0)
        m_ListBox->AddItem(text, Plain(value), 0);
    m_ListBox->SetListIndex(found < 0 ? 0 : found);
}

// The values of a row that has gone may be objects, and are not to be kept alive here.
void CListEditor::LetObjectsGo() {
    ++m_Row;
    if (m_ListBox)
        m_ListBox->Clear();
}

void CListEditor::SetVisible(bool visible) {
    const unsigned row = visible ? m_Row : m_Row + 1;
    if (!visible)
        LetObjectsGo();
    if (Serves(row))
        m_ListBox->SetVisible(visible);
}

void CListEditor::ReadRow(_CProperty* property) {
    const unsigned row = ++m_Row;
    m_ListBox->Clear();
    if (!property || !Serves(row))
        return;
    omEditorType type = omListEditor;
    IgnoringFailures([&] { return property->get_EditorType(&type); });
    if (!Serves(row))
        return;
    if (type != omBooleanEditor) {
        IgnoringFailures([&] { FillWithItems(property, row); });
    } else {
        AddBoolean(property, L"True", true, row);
        AddBoolean(property, L"False", false, row);
    }
    OLE_COLOR color = 0;
    if (SUCCEEDED(property->get_BackColor(&color)) && Serves(row))
        m_ListBox->SetBackColor(color);
    if (SUCCEEDED(property->get_ForeColor(&color)) && Serves(row))
        m_ListBox->SetForeColor(color);
}

void CListEditor::FillWithItems(_CProperty* property, unsigned row) {
    ComPtr<_CListItems> items;
    Check(property->get_ListItems(items.GetAddressOf()));
    long count = 0;
    Check(items->get_Count(&count));
    for (long i = 1; i <= count && Serves(row); ++i) {
        IgnoringFailures([&] {
            ComPtr<_CListItem> item;
            Check(items->get_Item(i, item.GetAddressOf()));
            BSTR text = nullptr;
            Check(item->get_Text(&text));
            const std::wstring shown = FromBstr(_bstr_t(text, false));
            _variant_t value;
            Check(item->get_Value(&value));
            if (Serves(row))
                m_ListBox->AddItem(shown, value);
        });
    }
}

void CListEditor::AddBoolean(_CProperty* property, const wchar_t* label, bool value, unsigned row) {
    std::wstring text;
    IgnoringFailures([&] { text = Param(property, label); });
    if (Serves(row))
        m_ListBox->AddItem(text.empty() ? label : text, _variant_t(value));
}

void CListEditor::Place(int left, int top, int width, int height) {
    if (m_ListBox)
        m_ListBox->Move(left, top, width, height);
}

} // namespace ormisk
