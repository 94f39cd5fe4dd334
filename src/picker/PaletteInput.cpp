// The palette window at work: mouse, keys, the colour dialog.

#include "picker/frmColorPicker.h"

#include "automation/Error.h"

#include <algorithm>
#include <optional>

#include <commdlg.h>

namespace ormisk {

namespace {

constexpr int kRowsPerNotch = 3;

std::optional<Direction> DirectionOf(int key) {
    switch (key) {
    case VK_LEFT:
        return Direction::Left;
    case VK_RIGHT:
        return Direction::Right;
    case VK_UP:
        return Direction::Up;
    case VK_DOWN:
        return Direction::Down;
    default:
        return std::nullopt;
    }
}

} // namespace

bool frmColorPicker::OnMessage(Pane& pane, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
    case WM_ACTIVATE:
        if (&pane != &m_Window)
            return false;
        if (LOWORD(wParam) != WA_INACTIVE) {
            m_View.tabFocus = false;
            m_TabContainer.Invalidate(false);
            return false; // takes the focus
        }
        if (m_bColorDialogOpen || !m_bShown)
            return false;
        CloseForm();
        return true;
    case WM_CLOSE:
    case WM_DESTROY: // with the frame
        if (&pane != &m_Window)
            return false;
        CloseForm();
        return true;
    case WM_VSCROLL:
        return m_VScrollBar.HandleScroll(wParam, lParam);
    case WM_MOUSEWHEEL:
        TurnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
        return true;
    case WM_NOTIFY: {
        const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
        if (notice.hwndFrom != m_Tooltip.hwnd() || notice.code != static_cast<UINT>(TTN_SHOW))
            return false;
        result = PlaceTip();
        return true;
    }
    default:
        return false;
    }
}

void frmColorPicker::OnScroll() {
    m_View.scroll = m_VScrollBar.Value();
    ShowTip(-1);
    m_PaletteContainer.Invalidate(false);
}

void frmColorPicker::TurnWheel(int delta) {
    m_Turned -= delta * kRowsPerNotch;
    const int rows = m_Turned / WHEEL_DELTA;
    m_Turned %= WHEEL_DELTA;
    if (m_View.activeTab == kSystemTab)
        m_VScrollBar.SetValue(m_VScrollBar.Value() + rows);
    POINT mouse{}; // which has another row under it
    GetCursorPos(&mouse);
    ScreenToClient(m_PaletteContainer.hWnd(), &mouse);
    const Rect page{0, 0, m_View.area.cx, m_View.area.cy};
    if (m_View.activeTab == kSystemTab && Contains(page, {mouse.x, mouse.y}))
        MoveTo({mouse.x, mouse.y});
}

void frmColorPicker::OnMouse(Pane& pane, const MouseEvent& event) {
    const Point point{event.x, event.y};
    if (&pane == &m_TabContainer && event.stage == MouseStage::Down && event.button == 1)
        ClickTab(point);
    if (&pane != &m_PaletteContainer)
        return;
    if (event.stage == MouseStage::Move)
        MoveTo(point);
    else if (event.stage == MouseStage::Up && m_bShown)
        PickByMouse(event.button);
}

// The first click on the tab that is active already counts, too.
void frmColorPicker::ClickTab(Point point) {
    const int tab = TabAt(m_View.sizes, point);
    if (tab < 0)
        return;
    const bool changed = tab != m_View.activeTab || !m_View.tabFocus;
    m_View.tabFocus = true;
    if (changed)
        ChangeTab(tab);
}

// Only the frames that change are drawn, at once: the rest stays as it is.
template <class Move> void frmColorPicker::MoveHot(Move&& move) {
    const WindowDC dc(m_PaletteContainer.hWnd());
    if (!dc)
        return;
    PalettePainter::DrawHotFrame(dc.Get(), m_View, false);
    const PaletteCell left = m_View.hotCell;
    move();
    PalettePainter::DrawHotFrame(dc.Get(), m_View, true);
    if (m_View.selectedCell == left || m_View.selectedCell == m_View.hotCell)
        PalettePainter::DrawSelectionFrame(dc.Get(), m_View);
}

void frmColorPicker::MoveTo(Point point) {
    if (m_View.activeTab == kPaletteTab) {
        MoveHot([&] { m_View.hotCell = CellAt(point, m_View.area, m_View.sizes.cell); });
        return;
    }
    MoveHot([&] { m_View.hotRow = RowAt(point, m_View.area, m_View.sizes.cell, m_View.scroll); });
    ShowTip(m_View.hotRow);
}

// The colour under the mouse or the keys becomes the selected one; false when there is none.
bool frmColorPicker::TakeHot(Color& color) {
    if (m_View.activeTab == kPaletteTab) {
        if (!m_View.hotCell)
            return false;
        color = m_View.ColorOf(m_View.hotCell);
    } else {
        if (HotRow() < 0)
            return false;
        color = SystemColor(HotRow());
    }
    m_View.settings.SelectedColor = color;
    m_View.selectedCell = m_View.hotCell;
    m_View.selectedRow = HotRow();
    return true;
}

// Any button closes the window, with a colour or without one.
void frmColorPicker::PickByMouse(int button) {
    constexpr int kLeft = 1;
    constexpr int kRight = 2;
    const bool cells = m_View.activeTab == kPaletteTab;
    Color color = m_View.settings.SelectedColor;
    bool picked = false;
    if (button == kLeft) {
        picked = (cells || m_View.hotRow >= 0) && TakeHot(color);
    } else if (button == kRight && cells && m_View.hotCell.custom && m_View.hotCell) {
        picked = true;
        const unsigned opening = m_Openings;
        if (!AskColor(color) || !m_bShown || m_Openings != opening) // the user, or a handler, has gone elsewhere
            return;
    }
    if (Close() && picked)
        Tell([&](PaletteOwner& owner) { owner.OnColorPicked(color); });
}

// The system's dialog gives a colour to the cell whose turn it is, not to the one that was clicked. False when the
// window is gone afterwards.
bool frmColorPicker::AskColor(Color& color) {
    const std::weak_ptr<char> life = m_Life;
    std::array<COLORREF, kCustomColors> kept = m_DialogColors;
    CHOOSECOLORW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_Window.hWnd();
    dialog.lpCustColors = kept.data();
    dialog.Flags = CC_FULLOPEN;
    m_bColorDialogOpen = true;
    bool chosen = false;
    {
        std::optional<ModalScope> modal;
        if (DialogHost* const host = m_Owner.Dialogs())
            modal.emplace(*host);
        chosen = ChooseColorW(&dialog) != FALSE;
    }
    if (life.expired())
        return false;
    m_bColorDialogOpen = false;
    m_DialogColors = kept;
    if (!chosen) {
        color = m_View.settings.SelectedColor; // which the owner may have changed meanwhile
        return true;
    }
    const int cell = CellOfPick(m_nNextCustomColor);
    m_nNextCustomColor = cell + 1;
    m_View.custom[static_cast<std::size_t>(cell)] = dialog.rgbResult;
    m_View.hotCell = m_View.selectedCell = {true, cell};
    m_View.settings.SelectedColor = color = dialog.rgbResult;
    return Tell([&](PaletteOwner& owner) { owner.OnCustomColorChanged(cell, dialog.rgbResult); });
}

void frmColorPicker::OnKeyDown(Pane&, int& keyCode, int) {
    if (!m_bShown)
        return;
    if (keyCode == VK_RETURN)
        PickByKey();
    else if (keyCode == VK_ESCAPE)
        CloseForm();
    else if (const auto direction = DirectionOf(keyCode))
        MoveByKey(*direction);
}

// Told before the window closes, other than a pick by mouse.
void frmColorPicker::PickByKey() {
    Color color = 0;
    const unsigned opening = m_Openings;
    if (TakeHot(color) && !Tell([&](PaletteOwner& owner) { owner.OnColorPicked(color); }))
        return;
    if (m_Openings == opening) // a handler may have opened it anew
        CloseForm();
}

// After a click on a tab the keys go to the tabs, until the window is opened again.
void frmColorPicker::MoveByKey(Direction direction) {
    const bool sideways = direction == Direction::Left || direction == Direction::Right;
    if (m_View.activeTab == kPaletteTab) {
        if (m_View.tabFocus && direction == Direction::Right)
            ChangeTab(kSystemTab);
        else
            MoveHot([&] {
                const PaletteCell from = m_View.hotCell ? m_View.hotCell : m_View.selectedCell;
                if (!m_View.tabFocus)
                    m_View.hotCell = MovedCell(from, direction);
            });
    } else if (!sideways) {
        const int row = MovedRow(HotRow(), direction);
        MoveHot([&] { m_View.hotRow = row; });
        m_VScrollBar.SetValue(ScrollFor(row, m_View.area, m_View.sizes.cell, m_View.scroll));
    } else if (m_View.tabFocus && direction == Direction::Left) {
        ChangeTab(kPaletteTab);
    }
}

} // namespace ormisk
