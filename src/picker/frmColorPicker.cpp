#include "picker/frmColorPicker.h"

#include "automation/Error.h"
#include "win/Rects.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr UINT_PTR kTip = 1;

std::size_t Position(long index) {
    if (index < 0 || index >= kCustomColors)
        RaiseBadPosition();
    return static_cast<std::size_t>(index);
}

} // namespace

frmColorPicker::frmColorPicker(PaletteOwner& owner) : m_Owner(owner) {
    m_View.custom.fill(kUnsetCustomColor);
    m_DialogColors.fill(0xFFFFFFFF);
}

void frmColorPicker::Load(HWND parent) {
    if (m_VScrollBar.hWnd() && GetWindow(m_Window.hWnd(), GW_OWNER) == GetAncestor(parent, GA_ROOT))
        return;
    if (!Unload() || m_Window.IsAlive()) // or made anew meanwhile
        return;
    m_Window.Create(parent, *this, {.takesFocus = true, .visible = false, .popup = true});
    m_Window.SetBackColor(kTabShadow); // what shows of it is a line around the page
    m_TabContainer.Create(m_Window.hWnd(), *this, {.erases = false});
    m_PaletteContainer.Create(m_Window.hWnd(), *this, {.erases = false});
    m_VScrollBar.Create(m_PaletteContainer.hWnd(), *this);
}

bool frmColorPicker::Unload() {
    const HWND window = m_Window.hWnd();
    if (!Close())
        return false;
    if (m_Window.hWnd() == window)
        DestroyWindows();
    return true;
}

void frmColorPicker::DestroyWindows() {
    m_bShown = false;
    m_Tooltip.Destroy();
    m_PaletteContainer.Destroy(); // with the scroll bar
    m_TabContainer.Destroy();
    m_Window.Destroy();
}

void frmColorPicker::UpdateInfo(const SwatchSettings& settings) {
    m_View.settings = settings;
    FindSelection();
    m_PaletteContainer.Invalidate(false);
}

void frmColorPicker::RecalculateSize() {
    const WindowDC dc(m_Window.hWnd());
    if (!dc)
        return;
    const SelectGuard font(dc.Get(), m_Painter.Font(m_View));
    const Size screen{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    m_View.sizes = MeasurePalette(m_Painter.CaptionSize(dc.Get(), m_View), m_Painter.LineHeight(dc.Get()), screen);
    const Size size = m_View.sizes.window;
    if (m_Window.ClientSize() != size)
        SetWindowPos(m_Window.hWnd(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_Tooltip.hFont(m_Painter.Font(m_View));
    if (m_bShown)
        Arrange();
}

void frmColorPicker::FindSelection() {
    m_View.selectedCell = m_View.hotCell = CellOfColor(m_View.settings.SelectedColor, m_View.custom);
    m_View.selectedRow = RowOfColor(m_View.settings.SelectedColor);
    m_View.hotRow = -1;
}

void frmColorPicker::Arrange() {
    const Size window = m_View.sizes.window;
    const long top = m_View.sizes.TabHeight();
    const bool rows = m_View.activeTab == kSystemTab;
    m_TabContainer.MovePixels({0, 0, window.cx, top});
    const Rect page{1, top, window.cx - 1, window.cy - 1};
    m_PaletteContainer.MovePixels(page);
    m_View.area = {page.Width() - (rows ? GetSystemMetrics(SM_CXVSCROLL) : 0), page.Height()};
    m_VScrollBar.MovePixels({m_View.area.cx, 0, page.Width(), m_View.area.cy});
    m_VScrollBar.SetRange(LastScroll(m_View.area, m_View.sizes.cell), 1);
    m_VScrollBar.SetVisible(rows);
    m_View.names = m_Owner.Names();
    FindSelection();
    ShowTip(-1);
    m_TabContainer.Invalidate(false);
    m_PaletteContainer.Invalidate(false);
}

bool frmColorPicker::Showform() {
    if (IsShown() || !m_Window.IsAlive())
        return false;
    if (!m_Tooltip.hwnd()) {
        m_Tooltip.init(m_PaletteContainer.hWnd());
        m_Tooltip.AddTool(kTip, false, 0, 0, 0, 0, {});
    }
    m_Tooltip.hFont(m_Painter.Font(m_View));
    m_Tooltip.BackColor(m_View.settings.ToolTipBackColor);
    m_Tooltip.ForeColor(m_View.settings.ToolTipForeColor);
    m_Tooltip.Unicode(m_View.settings.Unicode);
    ActiveTab(IsSystemColor(m_View.settings.SelectedColor) ? kSystemTab : kPaletteTab);
    m_bShown = true;
    ++m_Openings;
    Arrange();
    if (!Tell([](PaletteOwner& owner) { owner.OnPaletteOpened(); }) || !IsShown())
        return false;
    // The window that was active hears of it, too.
    const HWND window = m_Window.hWnd();
    const std::weak_ptr<char> life = m_Life;
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
    return !life.expired() && IsShown();
}

void frmColorPicker::CloseForm() { Close(); }

// False when the window is gone afterwards.
bool frmColorPicker::Close() {
    if (!m_bShown)
        return true;
    m_bShown = false;
    const std::weak_ptr<char> life = m_Life;
    m_Tooltip.Activate(false);
    m_Window.SetVisible(false); // another window becomes active, and hears of it
    return !life.expired() && Tell([](PaletteOwner& owner) { owner.OnPaletteClosed(); });
}

Color frmColorPicker::GetCustomColor(long index) const { return m_View.custom[Position(index)]; }

void frmColorPicker::SetCustomColor(long index, Color color) {
    m_View.custom[Position(index)] = color;
    FindSelection();
    m_PaletteContainer.Invalidate(false);
}

void frmColorPicker::ChangeTab(int tab) {
    ActiveTab(tab);
    Arrange();
    m_TabContainer.Refresh();
    m_PaletteContainer.Refresh();
    Tell([](PaletteOwner& owner) { owner.OnTabChanged(); });
}

void frmColorPicker::OnPaint(Pane& pane, HDC dc, const Rect&) {
    m_View.names = m_Owner.Names();
    if (&pane == &m_TabContainer)
        m_Painter.DrawTabs(dc, m_View);
    else if (&pane == &m_PaletteContainer)
        m_Painter.DrawPage(dc, m_View);
}

// The tip of a row whose name does not fit, over the row; of no row, none.
void frmColorPicker::ShowTip(int row) {
    const bool changed = row != m_nLastToolTip;
    m_nLastToolTip = row;
    if (!changed && row < 0)
        return;
    if (changed)
        m_Tooltip.Activate(false);
    const WindowDC dc(m_PaletteContainer.hWnd());
    const SelectGuard font(dc.Get(), dc ? m_Painter.Font(m_View) : nullptr);
    const Rect place = row >= 0 ? m_View.Place(row) : Rect{};
    const long left = place.Height(); // right of the swatch
    if (!dc || row < 0 || m_Painter.RowTextWidth(dc.Get(), m_View, row) <= place.Width() - left) {
        m_Tooltip.SetNewToolRect(kTip, 0, 0, 0, 0);
        return;
    }
    m_Tooltip.SetNewToolRect(kTip, left, place.top, place.Width() - left, place.Height());
    if (changed) {
        m_Tooltip.Text(kTip, PalettePainter::RowText(m_View, row));
        m_Tooltip.Activate(true);
    }
}

// When the tip comes up: at the left of the text.
bool frmColorPicker::PlaceTip() {
    if (m_nLastToolTip < 0)
        return false;
    const Rect place = m_View.Place(m_nLastToolTip);
    POINT corner{place.Height(), place.top};
    ClientToScreen(m_PaletteContainer.hWnd(), &corner);
    m_Tooltip.SetToolWindowPos(corner.x, corner.y);
    return true;
}

} // namespace ormisk
