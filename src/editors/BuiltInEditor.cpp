#include "editors/BuiltInEditor.h"

#include "automation/Value.h"

namespace ormisk {

void BuiltInEditor::Attach(const EditorTools& tools) {
    Borrow(tools);
    if (!Window())
        m_Listener = nullptr;
}

void BuiltInEditor::ResetTo(_CProperty* property, _CEditorListener* listener) {
    if (!Window())
        return;
    m_Listener = listener;
    ReadRow(property);
}

void BuiltInEditor::Notify(HRESULT (STDMETHODCALLTYPE _CEditorListener::*notify)(_CEditor*)) {
    const ComPtr<_CEditor> self(this);
    const ComPtr<_CEditorListener> listener(m_Listener);
    if (Reports())
        Check((listener.Get()->*notify)(this));
}

void BuiltInEditor::FocusRows() const {
    if (Window())
        SetFocus(GetParent(Window()));
}

std::wstring BuiltInEditor::Param(_CProperty* property, const wchar_t* name) {
    CheckPointer(property);
    BSTR text = nullptr;
    Check(property->GetEditorParam(_bstr_t(name), &text));
    return FromBstr(_bstr_t(text, false));
}

} // namespace ormisk
