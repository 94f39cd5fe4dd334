#pragma once

#include "platform/Color.h"
#include "platform/Pane.h"
#include "platform/TextBox.h"

#include <array>

namespace ormisk {

class Grid;

// A button of the record toolbar. Its surface is a pane, and that pane is disabled when the button is.
class CButton {
public:
    Pane* PictureContainer() const { return m_Surface; }
    void PictureContainer(Pane* surface) { m_Surface = surface; }
    // These repaint the button when they change it.
    bool Highlighted() const { return m_Highlighted; }
    void Highlighted(bool highlighted) { Change(m_Highlighted, highlighted); }
    bool Pressed() const { return m_Pressed; }
    void Pressed(bool pressed) { Change(m_Pressed, pressed); }
    bool Enabled() const { return !m_Surface || IsWindowEnabled(m_Surface->hWnd()); }
    void Enabled(bool enabled);

private:
    void Change(bool& state, bool value);

    Pane* m_Surface = nullptr;
    bool m_Highlighted = false;
    bool m_Pressed = false;
};

// The strip under the rows that steps through records: its layout, its look, and how it answers the mouse.
class RecordToolbar {
public:
    explicit RecordToolbar(Grid& grid);

    // Makes what is no pane of the table.
    void Create();
    // Places the strip at the bottom of the tab container, and its children.
    void LayoutRecordToolbar();
    // Draws one of its panes, into a cleared context with the origin of the pane. Other panes are left alone.
    void Paint(const Pane& pane, HDC dc);

    // The mouse on any pane of the control.
    void Mouse(const Pane& pane, const MouseEvent& event);
    void MouseUp() { Press(nullptr); }
    void MouseLeft(HWND window); // WM_MOUSELEAVE of a button

    TextBox m_txtRecordNo;

private:
    CButton* ButtonOn(const Pane& pane);
    void MouseMove(const Pane& pane);
    void Highlight(const CButton* button); // that one only; null for none
    void Press(const CButton* button);

    Grid& m_Grid;
    std::array<CButton, 4> m_Buttons; // first, previous, next, last
    HWND m_Tracked = nullptr;         // whose leaving by the mouse is still to be told
};

} // namespace ormisk
