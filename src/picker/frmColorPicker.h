#pragma once

#include "automation/Error.h"
#include "picker/PaletteMoves.h"
#include "picker/PalettePainter.h"
#include "platform/ModalScope.h"
#include "platform/Pane.h"
#include "platform/ScrollBar.h"
#include "platform/Tooltip.h"

#include <memory>

namespace ormisk {

// The colour field that a palette window belongs to. Whatever is told may end the window.
class PaletteOwner {
public:
    virtual const SystemColorNames& Names() const = 0;
    virtual void OnTabChanged() = 0;
    virtual void OnColorPicked(Color color) = 0; // also the one that was picked before
    virtual void OnPaletteOpened() = 0;
    virtual void OnPaletteClosed() = 0;
    virtual void OnCustomColorChanged(int index, Color color) = 0;
    virtual DialogHost* Dialogs() = 0; // null when nobody need know of one

protected:
    ~PaletteOwner() = default;
};

// The window that drops down from a colour field, with a tab of cells and one of system colours. It picks one colour
// and closes, and closes without one when another window becomes active; only the system's colour dialog, which gives
// the custom cells their colours, does not close it. Closed means hidden: the tables stay.
class frmColorPicker final : PaneListener, ScrollBarListener {
public:
    explicit frmColorPicker(PaletteOwner& owner);
    frmColorPicker(const frmColorPicker&) = delete;
    frmColorPicker& operator=(const frmColorPicker&) = delete;
    ~frmColorPicker() { DestroyWindows(); }

    // Makes the window, unless there is one for the frame that the parent is in. Raises the system's error.
    void Load(HWND parent);
    bool Unload(); // closes and destroys it; false when this object is gone afterwards
    HWND hwnd() const { return m_Window.hWnd(); }

    void UpdateInfo(const SwatchSettings& settings);
    void RecalculateSize();
    Size WindowSize() const { return m_View.sizes.window; }
    // Opens the window where it stands, on the tab of the selected colour; true when that happened.
    bool Showform();
    void CloseForm();
    bool IsShown() const { return m_bShown && m_Window.IsAlive(); }
    bool isColorDialog() const { return m_bColorDialogOpen; }

    int ActiveTab() const { return m_View.activeTab; }
    void ActiveTab(long tab) { m_View.activeTab = tab == kSystemTab ? kSystemTab : kPaletteTab; }
    // Positions from 0; a wrong one raises.
    Color GetCustomColor(long index) const;
    void SetCustomColor(long index, Color color);

private:
    bool OnMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnPaint(Pane& pane, HDC dc, const Rect& clip) override;
    void OnMouse(Pane& pane, const MouseEvent& event) override;
    void OnKeyDown(Pane& pane, int& keyCode, int shift) override;
    void OnScroll() override;
    void OnScrollBarFocus() override {}

    void DestroyWindows();
    void Arrange();
    void FindSelection();
    bool Close();
    void ChangeTab(int tab);
    void ClickTab(Point point);
    void MoveTo(Point point);

    template <class Move> void MoveHot(Move&& move);
    int HotRow() const { return m_View.hotRow >= 0 ? m_View.hotRow : m_View.selectedRow; }
    void MoveByKey(Direction direction);
    void TurnWheel(int delta);
    bool TakeHot(Color& color);
    void PickByKey();
    void PickByMouse(int button);
    bool AskColor(Color& color);

    void ShowTip(int row);
    bool PlaceTip();

    template <class Call> bool Tell(Call&& call);

    PaletteOwner& m_Owner;
    std::shared_ptr<char> m_Life =
        std::make_shared<char>(); // an event that ends the window is seen by a weak reference
    Pane m_Window;
    Pane m_TabContainer;
    Pane m_PaletteContainer;
    ScrollBar m_VScrollBar;
    CTooltip m_Tooltip;
    PalettePainter m_Painter;
    PaletteView m_View;
    bool m_bShown = false;
    bool m_bColorDialogOpen = false;
    unsigned m_Openings = 0; // so far
    int m_nLastToolTip = -1; // the row that the tip is about
    int m_nNextCustomColor = 0;
    int m_Turned = 0;                                     // of the wheel, less than a notch
    std::array<COLORREF, kCustomColors> m_DialogColors{}; // what the dialog keeps
};

// Tells the owner; false when the window is gone afterwards. What fails in a handler ends there.
template <class Call> bool frmColorPicker::Tell(Call&& call) {
    const std::weak_ptr<char> life = m_Life;
    IgnoringFailures([&] { call(m_Owner); });
    return !life.expired();
}

} // namespace ormisk
