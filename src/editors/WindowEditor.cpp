#include "editors/WindowEditor.h"

#include <utility>

namespace ormisk {

void WindowEditor::Borrow(const EditorTools& tools) {
    m_Keys = tools.Keys;
    if (!m_Keys)
        DestroyWindows();
}

void WindowEditor::ResetTo(_CProperty* property, _CEditorListener* listener) {
    ++m_Row;
    BuiltInEditor::ResetTo(property, listener);
}

void WindowEditor::CommitAndLeave() {
    const ComPtr<_CEditor> self(this);
    CommitEdit();
    FocusRows();
}

void WindowEditor::CancelAndLeave() {
    const ComPtr<_CEditor> self(this);
    CancelEdit();
    FocusRows();
}

void WindowEditor::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<_CEditor> self(this);
    if (IsForRows(keyCode, shift)) {
        const HWND rows = GetParent(Window());
        FocusRows();
        SendMessageW(rows, WM_KEYDOWN, static_cast<WPARAM>(std::exchange(keyCode, 0)), 1);
        return;
    }
    const unsigned row = m_Row;
    if (m_Keys)
        m_Keys->OnKeyDown(keyCode, shift);
    if (keyCode == 0 || !Takes(row))
        return;
    NotePick();
    KeyDown(keyCode, shift);
}

void WindowEditor::OnKeyPress(int& keyAscii) {
    const ComPtr<_CEditor> self(this);
    const unsigned row = m_Row;
    if (m_Keys)
        m_Keys->OnKeyPress(keyAscii);
    if (keyAscii != 0 && Takes(row))
        Character(keyAscii);
}

void WindowEditor::OnKeyUp(int& keyCode, int shift) {
    const ComPtr<_CEditor> self(this);
    if (m_Keys)
        m_Keys->OnKeyUp(keyCode, shift);
}

void WindowEditor::OnGotFocus() {
    const ComPtr<_CEditor> self(this);
    if (m_Keys)
        m_Keys->OnGotFocus();
}

void WindowEditor::OnLostFocus() {
    const ComPtr<_CEditor> self(this);
    if (m_Keys)
        m_Keys->OnLostFocus();
}

} // namespace ormisk
