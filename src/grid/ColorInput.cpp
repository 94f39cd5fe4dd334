#include "grid/ColorInput.h"

#include "grid/Grid.h"

namespace ormisk {

// The field is no pane of the control, which is held here while the host is told.

// It comes twice for a new colour: what is no change is no commit. A pick is for the row that the palette was opened
// for, where the field may serve another one by now.
void ColorInput::OnSelectedColorChanged() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    if (m_Grid.m_Session.Starts() == m_Start)
        m_Grid.m_Session.UserPicked(omColorEditor);
}

void ColorInput::OnPaletteOpened() {
    m_Start = m_Grid.m_Session.Starts();
    m_Grid.m_Session.AskAnew();
}

// Not when the user went to another window, which would come back here, or the control is hidden.
void ColorInput::OnPaletteClosed() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    Pane& rows = m_Grid.m_Panes.m_picTreeContainer;
    if (m_Grid.IsAlive() && IsWindowVisible(rows.hWnd()) && GetActiveWindow() == GetAncestor(rows.hWnd(), GA_ROOT))
        rows.TakeFocus();
}

DialogHost* ColorInput::Dialogs() { return &m_Grid.m_FieldInput; }

void ColorInput::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyDown(keyCode, shift);
}

void ColorInput::OnKeyPress(int& keyAscii) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyPress(keyAscii);
    if (keyAscii != 0 && m_Grid.IsAlive() && m_Grid.m_Session.IsOpen(omColorEditor))
        m_Grid.m_Session.EditorKeyPress(keyAscii);
}

void ColorInput::OnKeyUp(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyUp(keyCode, shift);
}

void ColorInput::OnGotFocus() { m_Grid.m_Host.FocusEntered(); }

void ColorInput::OnLostFocus() { m_Grid.m_Host.FocusLeft(); }

} // namespace ormisk
