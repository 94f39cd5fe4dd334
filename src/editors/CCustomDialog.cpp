#include "editors/CCustomDialog.h"

#include "automation/Value.h"
#include "model/ValueRules.h"

namespace ormisk {

void CCustomDialog::Borrow(const EditorTools& tools) {
    m_DialogListener = tools.CustomDialog;
    CaptionEditor::Borrow(tools);
}

void CCustomDialog::ReadRow(_CProperty* property) {
    Field().SetText({});
    ReadColors(property);
}

// An object may do anything when it is asked for its text, and so may the one that was the value when it is let go.
void CCustomDialog::SetValue(const VARIANT& value) {
    const unsigned row = Row();
    Store(m_Value, Plain(value));
    std::wstring text;
    const bool hasText = IgnoringFailures([&] { text = TextOf(_variant_t(m_Value)); });
    if (hasText && Row() == row)
        Field().SetText(text);
}

void CCustomDialog::SetVisible(bool visible) {
    CaptionEditor::SetVisible(visible);
    if (!visible)
        LetObjectsGo();
}

void CCustomDialog::LetObjectsGo() { Store(m_Value, {}); }

bool CCustomDialog::Holds(const IUnknown* object) const {
    return (V_VT(&m_Value) == VT_DISPATCH || V_VT(&m_Value) == VT_UNKNOWN) && V_UNKNOWN(&m_Value) == object;
}

void CCustomDialog::KeyDown(int& key, int shift) {
    if (key == VK_RETURN)
        CommitEdit();
    else if (key == VK_ESCAPE)
        CancelEdit();
    else
        CaptionEditor::KeyDown(key, shift);
}

void CCustomDialog::ShowDialog() {
    const ComPtr<_CEditor> self(this);
    bool fine = true;
    WithDialog(Tells::Nobody, [&] {
        fine = !m_DialogListener || m_DialogListener->RaiseCustomDialogEvent();
        return false;
    });
    if (!fine)
        FocusRows();
}

} // namespace ormisk
