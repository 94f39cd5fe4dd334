#include "editors/CListEditor.h"

#include "automation/Value.h"
#include "listbox/OrmiskListBox.h"
#include "platform/Rounding.h"

namespace ormisk {
namespace {

template <class F> HRESULT EditorCall(F&& body) { return Guarded(__uuidof(_CEditor), std::forward<F>(body)); }

// Objects by identity; nothing equals Null.
bool IsSameValue(const VARIANT& a, const VARIANT& b) {
    if (HoldsObject(a) || HoldsObject(b))
        return HoldsObject(a) && HoldsObject(b) && SameObject(ObjectOf(a), ObjectOf(b));
    return CompareValues(a, b) == Comparison::Equal;
}

} // namespace

std::wstring CListEditor::Text() const {
    return m_ListBox ? m_ListBox->ItemText(m_ListBox->ListIndex()) : std::wstring();
}

void CListEditor::Attach(const EditorWindows& windows) {
    ListEdit(windows.ListEditor);
    if (!m_ListBox)
        m_Listener = nullptr;
}

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
    ListEditorChange();
}

void CListEditor::ListEditorChange() { Notify(&_CEditorListener::NotifyCommit); }

void CListEditor::KeyPress(int& keyAscii) {
    const ComPtr<_CEditor> self(this);
    if (keyAscii != VK_RETURN && keyAscii != VK_ESCAPE)
        return;
    if (keyAscii == VK_ESCAPE)
        Cancel();
    if (m_ListBox)
        SetFocus(m_ListBox->Parent());
}

void CListEditor::Notify(HRESULT (STDMETHODCALLTYPE _CEditorListener::*notify)(_CEditor*)) {
    const ComPtr<_CEditor> self(this);
    const ComPtr<_CEditorListener> listener(m_Listener);
    if (m_ListBox && listener)
        Check((listener.Get()->*notify)(this));
}

STDMETHODIMP CListEditor::get_ScaleMode(long* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = static_cast<long>(OrmiskListBox::Scale());
    });
}

STDMETHODIMP CListEditor::get_Value(VARIANT* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        _variant_t value;
        if (m_ListBox)
            value = m_ListBox->ItemValue(m_ListBox->ListIndex());
        *pValue = value.Detach();
    });
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

STDMETHODIMP CListEditor::put_Value(VARIANT newValue) {
    return EditorCall([&] {
        if (!m_ListBox)
            return;
        const ComPtr<_CEditor> self(this);
        const unsigned row = m_Row;
        const long found = Find(newValue);
        if (found >= 0) {
            if (Serves(row))
                m_ListBox->SetListIndex(found);
            return;
        }
        // A value without a text, such as an array, shows as an empty entry. An object may do anything when it is
        // asked.
        std::wstring text;
        IgnoringFailures([&] { text = TextOf(newValue); });
        if (!Serves(row))
            return;
        m_ListBox->AddItem(text, Plain(newValue), 0);
        m_ListBox->SetListIndex(0);
    });
}

STDMETHODIMP CListEditor::get_Visible(VARIANT_BOOL* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = m_ListBox && m_ListBox->IsVisible() ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP CListEditor::put_Visible(VARIANT_BOOL newValue) {
    return EditorCall([&] {
        const ComPtr<_CEditor> self(this);
        unsigned row = m_Row;
        // The values of a row that has gone may be objects, and are not to be kept alive here.
        if (m_ListBox && newValue == VARIANT_FALSE) {
            row = ++m_Row;
            m_ListBox->Clear();
        }
        if (Serves(row))
            m_ListBox->SetVisible(newValue != VARIANT_FALSE);
    });
}

STDMETHODIMP CListEditor::get_hwnd(long* pValue) {
    return EditorCall([&] {
        CheckPointer(pValue);
        *pValue = m_ListBox ? HandleToLong(m_ListBox->hWnd()) : 0;
    });
}

STDMETHODIMP CListEditor::put_hFont(long) { return S_OK; }

STDMETHODIMP CListEditor::init(long) { return S_OK; }

STDMETHODIMP CListEditor::Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) {
    return EditorCall([&] {
        const ComPtr<_CEditor> self(this);
        if (!m_ListBox)
            return;
        m_Listener = anEditorListener;
        const unsigned row = ++m_Row;
        m_ListBox->Clear();
        if (aProperty && Serves(row))
            FillFrom(aProperty, row);
    });
}

// The host may hear of any of this, and end the control.
void CListEditor::FillFrom(_CProperty* property, unsigned row) {
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
    BSTR param = nullptr;
    property->GetEditorParam(_bstr_t(label), &param);
    const std::wstring text = FromBstr(_bstr_t(param, false));
    if (Serves(row))
        m_ListBox->AddItem(text.empty() ? label : text, _variant_t(value));
}

STDMETHODIMP CListEditor::Move(float nLeft, float nTop, float nWidth, float nHeight) {
    return EditorCall([&] {
        const auto whole = [](float value) { return RoundToLong(static_cast<double>(value)); };
        if (m_ListBox)
            m_ListBox->Move(whole(nLeft), whole(nTop), whole(nWidth), whole(nHeight));
    });
}

STDMETHODIMP CListEditor::Commit() { return S_OK; }

STDMETHODIMP CListEditor::Cancel() {
    return EditorCall([&] { Notify(&_CEditorListener::NotifyCancel); });
}

} // namespace ormisk
