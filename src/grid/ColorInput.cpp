#include "grid/ColorInput.h"

#include "grid/Grid.h"

namespace ormisk {

// The field is no pane of the control, which is held here while the host is told.

// It comes twice for a new colour, and when a row is loaded: what is no change is no commit.
void ColorInput::OnSelectedColorChanged() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Session.UserPicked(omColorEditor);
}

void ColorInput::OnPaletteOpened() { m_Grid.m_Session.AskAnew(); }

// Not when the user went to another window: it would come back here.
void ColorInput::OnPaletteClosed() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const Panes& panes = m_Grid.m_Panes;
    if (m_Grid.IsAlive() && GetActiveWindow() == GetAncestor(panes.m_Control.hWnd(), GA_ROOT))
        m_Grid.m_Panes.m_picTreeContainer.TakeFocus();
}

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

} // namespace ormisk
