#include "grid/ListInput.h"

#include "grid/Grid.h"

namespace ormisk {

// The list is no pane: the control is held here while the host is told.

void ListInput::OnItemChosen() {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    Choose();
}

void ListInput::OnListClosed(bool cancelled) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    const ComPtr<_CEditor> editor = m_Grid.m_Session.CurrentEditor();
    if (cancelled && editor)
        EditorProxy(editor.Get()).Cancel();
}

void ListInput::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyDown(keyCode, shift);
    // ENTER at the closed list confirms anew what it shows; at the open one it makes a choice.
    if (keyCode == VK_RETURN && m_Grid.IsAlive() && !m_Grid.m_Panes.m_ListEditor.IsListOpen())
        Choose();
}

// There is no further step to a choice: its commit is not repeated when the list closes or the row is left.
void ListInput::Choose() {
    EditSession& session = m_Grid.m_Session;
    if (session.IsOpen(omListEditor))
        session.CommitEdit(session.CurrentEditor().Get());
}

void ListInput::OnKeyPress(int& keyAscii) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyPress(keyAscii);
    // The ENTER that chose may come when a handler has gone on to a row with another editor: it is not that one's.
    if (keyAscii != 0 && m_Grid.IsAlive() && m_Grid.m_Session.IsOpen(omListEditor))
        m_Grid.m_Session.EditorKeyPress(keyAscii);
}

void ListInput::OnKeyUp(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(m_Grid.m_Host.Outer());
    m_Grid.m_Events.KeyUp(keyCode, shift);
}

void ListInput::OnGotFocus() { m_Grid.m_Host.FocusEntered(); }

void ListInput::OnLostFocus() { m_Grid.m_Host.FocusLeft(); }

} // namespace ormisk
