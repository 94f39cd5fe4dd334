#pragma once

#include "platform/Color.h"
#include "platform/Pane.h"
#include "platform/TextBox.h"
#include "sources/Recordset.h"

#include <array>
#include <initializer_list>

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

enum class RecordButton : unsigned { First, Previous, Next, Last };

// The strip under the rows that steps through records: its layout, its look, and how it answers the user.
class RecordToolbar final : private ChildWindowListener {
public:
    explicit RecordToolbar(Grid& grid);

    // Makes what is no pane of the table.
    void Create();
    // Places the strip at the bottom of the tab container, and its children.
    void LayoutRecordToolbar();
    // Draws one of its panes, into a cleared context with the origin of the pane. Other panes are left alone.
    void Paint(const Pane& pane, HDC dc);

    void RefreshRecordToolbar(); // all of it is painted anew
    // The mouse on any pane of the control.
    void Mouse(const Pane& pane, const MouseEvent& event);
    void MouseUp() { Press(nullptr); }
    void MouseLeft(HWND window); // WM_MOUSELEAVE of a button
    // Goes to another record. A failure is reported.
    void Click(RecordButton button);
    void ApplyEnabled();
    bool TakesNumber() const { return m_txtRecordNo.IsVisible() && !m_Emptied; }

    // What it tells of a recordset. What the recordset does not tell is passed over.
    void RecordsetLoaded(const Recordset& recordset);
    // The total, and the buttons that lead nowhere; of none nothing can be used.
    void UpdateRecordsetToolbar(const Recordset& recordset);
    void ShowPosition(const Recordset& recordset); // if it has one
    void MoveComplete(const Recordset& recordset, MoveReason reason);
    void RecordsetChangeComplete(const Recordset& recordset);

    TextBox m_txtRecordNo;

private:
    // ChildWindowListener: the record number
    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;
    void OnGotFocus() override;
    void OnLostFocus() override;

    CButton* ButtonOn(const Pane& pane);
    void MouseMove(const Pane& pane);
    void Highlight(const CButton* button); // that one only; null for none
    void Press(const CButton* button);
    void PaintTotal(HDC dc, Size client);
    void Enable(std::initializer_list<RecordButton> buttons, bool enabled);
    // A recordset that only goes forward leads neither back nor to its end.
    void EnableFor(const Recordset& recordset, std::initializer_list<RecordButton> buttons);
    void EnableAt(const Recordset& recordset, std::int64_t position);
    void SetTotal(const std::wstring& caption, bool countKnown);
    void GoToNumber();

    Grid& m_Grid;
    std::array<CButton, 4> m_Buttons; // in the order of RecordButton
    HWND m_Tracked = nullptr;         // whose leaving by the mouse is still to be told
    bool m_bRecordCountKnown = true;
    bool m_Emptied = false; // the recordset is gone
};

} // namespace ormisk
